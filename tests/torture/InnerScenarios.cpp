#include "editors/AddProfile.h"
#include "editors/AddRule.h"
#include "editors/MaskList.h"
#include "errors/MessageBoxes.h"
#include "settings/ConflictDlg.h"
#include "tests/config/GoldenTree.h"
#include "tests/torture/Scenarios.h"

namespace tests::torture {
namespace {

constexpr int operations = 24;

// The editor of a rule, in which everything is tried before it is accepted.
void TryRule(World& world, Notes& /*notes*/) {
    Hand& hand = world.hand;
    hand.In<editors::AddMask>([&hand] {
        hand.Paste(ruleid::MaskCombo, L"*.new");
        hand.Click(ui::IdOk);
    });
    hand.In<errors::ErrBox>([&hand] { hand.Click(ui::IdOk); });
    hand.In<editors::CAddRule>([&hand] {
        for (int operation = 0; operation < operations; ++operation) hand.Choose(ruleid::Operation, operation);
        hand.Choose(ruleid::Operation, 1);  // one that asks for no certificates
        for (const int folder : {ruleid::PathIn, ruleid::PathOut, ruleid::PathError}) hand.Paste(folder, L"C:\\In");
        hand.Click(ruleid::AddMask);
        hand.Select(ruleid::Masks, 0);
        hand.Click(ruleid::DeleteMask);
        hand.Click(ruleid::AddMask);
        hand.Click(ui::IdOk);
    });
}

void RenameProfile(World& world, Notes& /*notes*/) {
    world.hand.In<editors::CAddProfile>([&hand = world.hand] {
        hand.Paste(profileid::Name, L"A name of its own that is rather long");
        hand.Click(ui::IdOk);
    });
}

void ChangeSettings(World& world, Notes& /*notes*/) {
    world.hand.In<settings::CConflictDlg>([&hand = world.hand] {
        hand.Paste(logid::Path, L"C:\\In");
        hand.Click(ui::IdOk);
    });
}

void SelectFirst(Hand& hand) {
    hand.Select(id::Rules, 0);
}

std::function<void(Hand&)> Press(int button) {
    return [button](Hand& hand) { hand.Click(button); };
}

}  // namespace

const std::vector<Scenario>& InnerScenarios() {
    static const std::vector<Scenario> all{
        {"rule added", Kind::Command, GoldenTrees, TryRule, {}, Press(id::AddRule)},
        {"rule copied", Kind::Command, GoldenTrees, Nothing, SelectFirst, Press(id::CopyRule), OneStep},
        {"rule edited", Kind::Command, GoldenTrees, TryRule, SelectFirst, Press(id::EditRule)},
        {"rule deleted", Kind::Command, GoldenTrees, Nothing, SelectFirst, Press(id::DeleteRule), OneStep},
        {"rule moved down", Kind::Command, GoldenTrees, Nothing, SelectFirst, Press(id::MoveDown), OneStep},
        {"rule made last", Kind::Command, GoldenTrees, Nothing, SelectFirst, Press(id::MakeLast), OneStep},
        {"rules searched",
         Kind::Command,
         GoldenTrees,
         Nothing,
         {},
         [](Hand& hand) { hand.Paste(id::Search, L"run"); },
         OneStep},
        {"profile opened",
         Kind::Command,
         GoldenTrees,
         Nothing,
         {},
         [](Hand& hand) { hand.Select(id::Profiles, 1); },
         OneStep},
        {"profile added", Kind::Command, GoldenTrees, RenameProfile, {}, Press(id::AddProfile), OneStep},
        {"profile renamed", Kind::Command, GoldenTrees, RenameProfile, {}, Press(id::EditProfile), OneStep},
        {"profile deleted", Kind::Command, GoldenTrees, Nothing, {}, Press(id::DeleteProfile), OneStep},
        {"log path", Kind::Command, GoldenTrees, ChangeSettings, {}, Press(id::LogPath), OneStep},
    };
    return all;
}

}  // namespace tests::torture
