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

namespace tests {

namespace extid {
inline constexpr int Signed = 250, Detached = 253, Encrypted = 255, Base64 = 259, Hash = 268, Report = 1079;
inline constexpr int Zip = 1080, Gzip = 1134, Additional = 275, Add = 261, Delete = 263, Apply = 1000;
inline constexpr int Asked = 266;  // of the dialog that asks for an extension
}  // namespace extid

namespace logid {
inline constexpr int Pick = 1090, Path = 1091, Size = 1133;
}  // namespace logid

class SettingsTest : public MainWindowTest {
  protected:
    using Texts = std::vector<std::wstring>;

    static constexpr wchar_t Title[] = L"ZEMA AC QLD Service - configuration";

    SettingsTest()
        : machine_{world_->Machine().Registry,      files_,
                   world_->Machine().CodePage,      world_->Machine().SystemMessages,
                   world_->Machine().Clock,         world_->Machine().InstanceLock,
                   world_->Machine().ScreenMetrics, world_->Machine().Memory,
                   world_->Machine().CryptoLibrary},
          settingsServices_{machine_, world_->Screen(), reporter_, store_} {
        files_.AddFolder(L"C:\\Logs");
        files_.AddFolder(L"C:\\windows");
    }

    // The main window with the folders of these scenarios.
    int RunMain(const std::function<void(app::CBrisgateDlg&)>& script) {
        user_.Expect<app::CBrisgateDlg>(script);
        return app::CBrisgateDlg(settingsServices_).DoModal();
    }

    void AskToLeave(int answer) { user_.ExpectBox(boxes::LeaveText, boxes::Question, answer, Title); }

    // Goes round with the Tab key once, from the control that has the focus.
    std::vector<int> TabOrder() {
        std::vector<int> order;
        ui::Control* const first = user_.Top().Focus();
        do {
            order.push_back(user_.Top().Focus()->Id());
            user_.Press(Key::Tab);
        } while (user_.Top().Focus() != first && order.size() < 100);
        return order;
    }

    platform::memory::MemoryFiles files_;
    const platform::Machine machine_;
    const config::Services settingsServices_;
};

}  // namespace tests
