// The walk's commands on profiles.
#include <gtest/gtest.h>

#include "tests/app/MainWindow.h"
#include "tests/model/Walk.h"

namespace tests::model {
// Neither way is one that a user finds: the button is hidden, and no menu item carries the command.
void Walk::OpenSelectedProfile() {
    if (dice_.Chance(50)) {
        model_.CommandIsGiven();
        user_.Top().UserChoseMenu(command::OpenProfile);
    } else {
        user_.Get<ui::Button>(id::OpenProfile).UserClicked();
    }
    model_.OpenProfile();
}

void Walk::AddProfile() {
    const auto open = ButtonOrMenu(id::AddProfile, command::AddProfile);
    model_.WindowOpens();
    if (const auto profile = RunProfileEditor(Profile(), open)) model_.AddProfile(*profile);
}

void Walk::EditOpenedProfile(const std::function<void()>& gesture) {
    model_.WindowOpens();
    if (model_.Opened() == nullptr) return gesture();
    const Profile opened = *model_.Opened();
    if (const auto edited = RunProfileEditor(opened, gesture)) model_.ReplaceProfile(*edited);
}

void Walk::EditProfile() {
    EditOpenedProfile(ButtonOrMenu(id::EditProfile, command::EditProfile));
}

void Walk::EditProfileByDoubleClick() {
    const size_t row = dice_.Below(model_.ProfileNames().size());
    model_.MoveKeyboard(Place::Profiles);
    model_.SelectProfile(row);
    model_.OpenProfile();
    EditOpenedProfile([this, row] { user_.DoubleClickRow(id::Profiles, row); });
}

// Also without a profile shown: the name that is still the opened one is edited then.
void Walk::DoubleClickBelowProfiles() {
    model_.MoveKeyboard(Place::Profiles);
    model_.SelectProfile(std::nullopt);
    EditOpenedProfile([this] {
        user_.ClickBelowRows(id::Profiles);
        user_.Get<ui::ListView>(id::Profiles).UserDoubleClicked({});
    });
}

void Walk::DeleteProfile() {
    const auto gesture = ButtonOrMenu(id::DeleteProfile, command::DeleteProfile);
    if (!model_.SelectedProfile()) return gesture();
    const int answer = dice_.Chance(60) ? ui::IdYes : ui::IdNo;
    const bool isLast = model_.ProfileNames().size() == 1;
    user_.ExpectBox(L"Delete profile '" + model_.OpenedName() + L"'?", boxes::Question, answer, boxes::Title);
    if (answer == ui::IdYes && isLast)
        user_.ExpectBox(L"Last profile cannot be deleted.", boxes::Hint, ui::IdOk, boxes::Title);
    gesture();
    model_.WindowOpens();
    if (answer == ui::IdNo || isLast) return;
    model_.DeleteProfile();
}

}  // namespace tests::model
