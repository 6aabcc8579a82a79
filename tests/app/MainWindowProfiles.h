// Scenarios with the commands on profiles in the main window.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "editors/AddProfile.h"
#include "tests/app/MainWindow.h"
#include "tests/support/Ids.h"

namespace tests {

class MainWindowProfilesTest : public MainWindowTest {
  protected:
    using Texts = std::vector<std::wstring>;

    void SetUp() override { SeedSmallConfiguration(); }

    // Profiles behind the two others, each with the rule "of" and its name.
    void SeedProfiles(const Texts& names);

    Texts Profiles() const { return user_.Column(id::Profiles, 0); }
    std::vector<size_t> SelectedProfiles() const { return user_.Get<ui::ListView>(id::Profiles).SelectedRows(); }
    // Whether everything that needs an opened profile can be used.
    static void ExpectProfileCommands(const app::CBrisgateDlg& dialog, bool enabled);

    void ExpectEditor(const std::function<void(editors::CAddProfile&)>& script) {
        user_.Expect<editors::CAddProfile>(script);
    }
    // In the editor of "Alpha", of whose rules the first one uses certificates of "Office".
    void DeleteOffice();
    // The editor opens; the user types the name and accepts.
    void ExpectNaming(const std::wstring& name);
    void ExpectDeleteQuestion(const std::wstring& name, int answer) {
        ExpectQuestion(L"Delete profile '" + name + L"'?", answer);
    }
    void Delete(const std::wstring& name) {
        ExpectDeleteQuestion(name, ui::IdYes);
        user_.Click(id::DeleteProfile);
    }
};

}  // namespace tests
