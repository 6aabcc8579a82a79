#include "tests/model/Walk.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "tests/app/MainWindow.h"
#include "tests/support/MachineWith.h"

namespace tests::model {
namespace {

const Texts createdFolders{L"C:\\In", L"C:\\Out", L"C:\\Error", L"C:\\Second", L"C:\\Logs"};

std::string LibraryText() {
    std::string text;
    int number = 0;
    for (const auto& [name, folder] : StoreProfileFolders())
        text += "[HKEY_CURRENT_USER\\SOFTWARE\\TALVERON\\morcel\\Profiles\\" + std::to_string(number++) +
                "]\nProfileName = \"" + Narrow(name) + "\"\nBasePath = \"" + Narrow(folder) + "\"\n";
    return text;
}

}  // namespace

Walk::Walk(World& world, uint32_t seed)
    : world_(world),
      user_(world.User()),
      dice_(seed),
      model_(RandomTree(dice_)),
      machine_(MachineWith(world.Machine(), {.Files = &files_})),
      certificates_(world),
      reporter_(machine_, certificates_),
      store_(machine_, reporter_),
      services_{machine_, certificates_, reporter_, store_} {
    for (const std::wstring& folder : createdFolders) files_.AddFolder(folder);
    demo::ApplyRegistryText(LibraryText() + model_.Registry().Text(), world.Machine().Registry);
}

const std::vector<Walk::Command>& Walk::Commands() {
    static const std::vector<Command> commands{
        {"open a profile", 6, &Walk::OpenProfile},
        {"click below the profiles", 1, &Walk::ClickBelowProfiles},
        {"move in the profiles", 2, &Walk::MoveInProfiles},
        {"open the selected profile", 2, &Walk::OpenSelectedProfile},
        {"add a profile", 3, &Walk::AddProfile},
        {"edit the profile", 5, &Walk::EditProfile, true},
        {"edit a profile by double click", 2, &Walk::EditProfileByDoubleClick},
        {"double click below the profiles", 1, &Walk::DoubleClickBelowProfiles},
        {"delete a profile", 3, &Walk::DeleteProfile, true},
        {"click a rule", 20, &Walk::ClickRow, true},
        {"select one rule more or less", 6, &Walk::ToggleRowSelection, true},
        {"click below the rules", 1, &Walk::ClickBelowRows, true},
        {"move in the rules", 4, &Walk::MoveInRules, true},
        {"click a check box", 8, &Walk::ToggleCheck, true},
        {"press Space in the rules", 3, &Walk::PressSpace, true},
        {"right click", 3, &Walk::RightClick, true},
        {"search", 6, &Walk::SearchRules},
        {"add a rule", 5, &Walk::AddRule, true},
        {"copy a rule", 5, &Walk::CopyRule, true},
        {"edit a rule", 5, &Walk::EditRule, true},
        {"edit a rule by double click", 3, &Walk::EditByDoubleClick, true},
        {"delete rules", 6, &Walk::DeleteRules, true},
        {"make first", 3, &Walk::MakeFirst, true},
        {"move up", 4, &Walk::MoveUp, true},
        {"move down", 4, &Walk::MoveDown, true},
        {"make last", 3, &Walk::MakeLast, true},
        {"export the rules", 2, &Walk::ExportRules, true},
        {"import rules", 1, &Walk::ImportRules, true},
        {"log settings", 2, &Walk::EditLogSettings},
        {"extensions", 3, &Walk::EditExtensions},
        {"save", 3, &Walk::Save},
        {"save in vain", 1, &Walk::SaveInVain},
        {"save and exit", 1, &Walk::SaveAndExit},
        {"exit", 5, &Walk::Exit},
    };
    return commands;
}

void Walk::Run(size_t commands) {
    commandsLeft_ = commands;
    while (commandsLeft_ > 0 && !HasDiverged()) UseProgram();
}

bool Walk::HasDiverged() const {
    return ::testing::Test::HasFailure();
}

void Walk::UseProgram() {
    Note("start");
    user_.Expect<app::CBrisgateDlg>([this](app::CBrisgateDlg& dialog) {
        model_.Start();
        rememberedStore_ = 0;
        Compare();
        while (!dialog.HasEnded() && !HasDiverged()) {
            commandsLeft_ > 0 ? Step() : ExitForGood();
            if (!dialog.HasEnded()) Compare();
        }
    });
    app::CBrisgateDlg(services_).DoModal();
    if (!HasDiverged()) CompareRegistry();
}

void Walk::Step() {
    --commandsLeft_;
    size_t total = 0;
    for (const Command& command : Commands()) total += command.weight;
    size_t chosen = dice_.Below(total);
    for (const Command& command : Commands()) {
        if (chosen < command.weight) {
            if (command.needsProfile && !model_.ShowsProfile()) return;
            Note(command.name);
            return (this->*command.give)();
        }
        chosen -= command.weight;
    }
}

std::function<void()> Walk::ClickElsewhere(int button) {
    return [this, button] {
        model_.MoveKeyboard(Place::Elsewhere);
        user_.Click(button);
    };
}

std::function<void()> Walk::ButtonOrMenu(int button, int command) {
    if (dice_.Chance(50)) return ClickElsewhere(button);
    model_.CommandIsGiven();
    return [this, command] { user_.ChooseMenu(command); };
}

void Walk::Compare() {
    CompareProfiles();
    CompareCommands();
    CompareRules();
    EXPECT_EQ(user_.Top().ReasonToStay() != nullptr, model_.HasUnsaved());
    EXPECT_EQ(user_.Text(id::Search), model_.Search());
    EXPECT_EQ(user_.Get<ui::ListView>(id::Profiles).HasFocus(), model_.Keyboard() == Place::Profiles);
    EXPECT_EQ(user_.Get<ui::ListView>(id::Rules).HasFocus(), model_.Keyboard() == Place::Rules);
    EXPECT_EQ(user_.Get<ui::Edit>(id::Search).HasFocus(), model_.Keyboard() == Place::Search);
}

void Walk::CompareProfiles() {
    const Texts names = model_.ProfileNames();
    ASSERT_EQ(user_.RowCount(id::Profiles), names.size());
    for (size_t row = 0; row < names.size(); ++row) EXPECT_EQ(user_.Row(id::Profiles, row).at(0), names[row]);
    EXPECT_EQ(user_.Get<ui::ListView>(id::Profiles).FirstSelected(), model_.SelectedProfile());
    EXPECT_EQ(user_.Text(id::ProfileLabel), model_.ProfileLabel());
    EXPECT_EQ(user_.Text(id::CsProfileLabel), model_.CsProfileLabel());
}

// Only what works on the opened profile can be out of use.
void Walk::CompareCommands() {
    for (const int control : id::NeedProfile) EXPECT_EQ(user_.CanUse(control), model_.ShowsProfile()) << control;
    static const std::vector<int> always{command::Save, command::LogPath, command::Configurations, command::Exit,
                                         command::AddProfile};
    for (const ui::Menu& menu : user_.Top().MenuBar())
        for (const ui::MenuItem& item : menu.items) {
            const bool isAlways = std::find(always.begin(), always.end(), item.command) != always.end();
            EXPECT_EQ(item.enabled, isAlways || model_.ShowsProfile()) << item.command;
        }
}

void Walk::CompareRules() {
    const auto& list = user_.Get<ui::ListView>(id::Rules);
    ASSERT_EQ(list.RowCount(), model_.Rows().size());
    EXPECT_EQ(list.FocusedRow(), model_.FocusedRow());
    for (size_t i = 0; i < list.RowCount(); ++i) {
        const Row& row = model_.Rows()[i];
        EXPECT_EQ(user_.Row(id::Rules, i), row.cells) << "row " << i;
        EXPECT_EQ(list.IsChecked(i), row.checked) << "row " << i;
        EXPECT_EQ(list.IsSelected(i), row.selected) << "row " << i;
    }
}

// In full only when something has been written since it was last compared.
void Walk::CompareRegistry() {
    using platform::memory::RegistryCall;
    platform::memory::FaultyRegistry& registry = world_.Registry();
    const size_t writes = registry.CountOf(RegistryCall::Set) + registry.CountOf(RegistryCall::DeleteSubkey);
    if (writes == 0) {
        EXPECT_TRUE(model_.Registry() == comparedRegistry_);
        return;
    }
    const std::string written =
        demo::DumpRegistryKey(registry, platform::RootKey::LocalMachine, L"SOFTWARE\\TALVERON\\morcelservice");
    EXPECT_EQ(Lines(written), model_.Registry().Lines());
    comparedRegistry_ = model_.Registry();
    registry.ForgetCalls();
    files_.ForgetCalls();
}

}  // namespace tests::model
