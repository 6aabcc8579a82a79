// Scenarios in the settings dialogs: folders that exist only here, and the ids of the controls that a user
// works with.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "app/BrisgateDlg.h"
#include "platform/memory/MemoryFiles.h"
#include "settings/ConfigPage.h"
#include "settings/ConflictDlg.h"
#include "tests/app/MainWindow.h"
#include "tests/support/MachineWith.h"

namespace tests {

class SettingsTest : public MainWindowTest {
  protected:
    using Texts = std::vector<std::wstring>;

    SettingsTest() {
        files_.AddFolder(L"C:\\Logs");
        files_.AddFolder(L"C:\\windows");
    }

    // The main window with the folders of these scenarios.
    int RunMain(const std::function<void(app::CBrisgateDlg&)>& script) {
        user_.Expect<app::CBrisgateDlg>(script);
        return app::CBrisgateDlg(settingsServices_).DoModal();
    }

    platform::memory::MemoryFiles files_;
    const platform::Machine machine_ = MachineWith(world_->Machine(), {.Files = &files_});
    const config::Services settingsServices_{machine_, world_->Screen(), reporter_, store_};
};

}  // namespace tests
