// Scenarios in the profile editor: a profile with two CS profiles whose settings all differ, and the ids
// of the controls that a user works with.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "editors/AddProfile.h"
#include "tests/support/Fixture.h"
#include "tests/support/Ids.h"

namespace tests {

// How the settings of the sample's CS profiles look in the form, and where the chooser lists them.
namespace profilesample {
inline constexpr int List = profileid::CsProfiles;
inline constexpr wchar_t officeSettings[] = L"1054 1056 1058 1062 24 h. http://tsp.office";
inline constexpr wchar_t bankSettings[] = L"1055 1057 1060 1061 8760 h. http://tsp.bank";
inline constexpr wchar_t newSettings[] = L"1054 1 h. 0";
inline constexpr int bankChoice = 1, taxChoice = 2, upperOfficeChoice = 3;
}  // namespace profilesample

class ProfileEditorTest : public WorldTest {
  protected:
    using Texts = std::vector<std::wstring>;

    // "Alpha" with the CS profiles "Office" and "Bank".
    static config::ServiceProfile Alpha();
    static config::ServiceProfile With(const Texts& csProfiles);  // the settings of all are those of a new one

    // Opens the editor on the profile; the user does what the script says and has to leave. The finished
    // profile, nothing when the user gave up.
    std::optional<config::ServiceProfile> Edit(const config::ServiceProfile& profile,
                                               const std::function<void(ui::Dialog&)>& script);

    void Leave() { user_.Click(ui::IdCancel); }
    void ExpectFocus(int id) { EXPECT_EQ(user_.Top().Focus(), &user_.Top().Find(id)); }

    // Adds the CS profile that the chooser offers at this place.
    void AddFromChooser(int index);
    // Deletes the selected CS profile, which no rule uses.
    void DeleteSelected();

    bool IsChecked(int id) const { return user_.Get<ui::CheckBox>(id).IsChecked(); }
    // The shown settings in one line: the checked boxes by their ids, the period and the server.
    std::wstring ShownSettings() const;
    Texts CsProfiles() const { return user_.Get<ui::ListBox>(profileid::CsProfiles).Items(); }
    std::wstring SelectedCsProfile() const { return user_.Get<ui::ListBox>(profileid::CsProfiles).SelectedItem(); }

    Texts profileNames_{L"Alpha", L"Beta"};
    Texts csProfileNames_{L"Office", L"Bank", L"Tax", L"OFFICE"};
    editors::EditorMemory memory_;
    Texts removed_;  // as the editor reported them
};

// The lengths of the names and of the ten lists beside them.
std::vector<size_t> ListLengths(const config::ServiceProfile& profile);

}  // namespace tests
