// Scenarios with the commands on profiles in the main window.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "editors/AddProfile.h"
#include "tests/app/MainWindow.h"

namespace tests {

namespace id {
inline constexpr int AddProfile = 1031, EditProfile = 1032, DeleteProfile = 1033;
}

namespace command {
inline constexpr int AddProfile = 32808, OpenProfile = 32809, EditProfile = 32810, DeleteProfile = 32814;
}

class MainWindowProfilesTest : public MainWindowTest {
  protected:
    using Texts = std::vector<std::wstring>;
    static constexpr wchar_t Caption[] = L"ZEMA AC QLD Service - configuration";
    static constexpr int NameField = 1037;  // of the editor

    void SetUp() override { SeedSmallConfiguration(); }

    // Profiles behind the two others, each with the rule "of" and its name.
    void SeedProfiles(const Texts& names);

    Texts Profiles() const;
    std::vector<size_t> SelectedProfiles() const {
        return user_.Get<ui::ListView>(id::Profiles).SelectedRows();
    }
    // Whether everything that needs an opened profile can be used.
    static void ExpectProfileCommands(const app::CBrisgateDlg& dialog, bool enabled);

    void LeaveUnchanged() { user_.PressCloseBox(); }
    void LeaveChanged();
    void ExpectEditor(const std::function<void(editors::CAddProfile&)>& script) {
        user_.Expect<editors::CAddProfile>(script);
    }
    // The editor opens; the user types the name and accepts.
    void ExpectNaming(const std::wstring& name);
    void ExpectDeleteQuestion(const std::wstring& name, int answer) {
        user_.ExpectBox(L"Delete profile '" + name + L"'?", boxes::Question, answer, Caption);
    }
    void Delete(const std::wstring& name) {
        ExpectDeleteQuestion(name, ui::IdYes);
        user_.Click(id::DeleteProfile);
    }
};

}  // namespace tests
