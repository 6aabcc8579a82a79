#include "tests/app/MainWindow.h"

#include <gtest/gtest.h>

#include "app/AboutDlg.h"
#include "errors/MessageBoxes.h"

namespace tests {
namespace {

using app::CBrisgateDlg;
using Texts = std::vector<std::wstring>;
constexpr wchar_t alphaRule0[] = L"SOFTWARE\\TALVERON\\morcelservice\\Alpha\\rules\\Rule 0";

TEST_F(MainWindowTest, ShowsTheIconOfTheProgram) {
    SeedSmallConfiguration();
    Run([&](CBrisgateDlg& dialog) {
        EXPECT_EQ(dialog.Icon(), ui::Icon::App);
        user_.PressCloseBox();
    });
}

TEST_F(MainWindowTest, EveryIconButtonHasAnIconOfItsOwn) {
    SeedSmallConfiguration();
    using ui::Icon;
    const std::map<int, Icon> expected{
        {1021, Icon::Save},          {1022, Icon::LogSettings}, {1023, Icon::RuleAdd},    {1037, Icon::RuleCopy},
        {1024, Icon::RuleEdit},      {1025, Icon::RuleDelete},  {1026, Icon::RuleFirst},  {1027, Icon::RuleUp},
        {1028, Icon::RuleDown},      {1029, Icon::RuleLast},    {1031, Icon::ProfileAdd}, {1032, Icon::ProfileEdit},
        {1033, Icon::ProfileDelete}, {1034, Icon::RulesExport}, {1035, Icon::RulesImport}};
    Run([&](CBrisgateDlg& dialog) {
        std::map<int, Icon> icons;
        for (ui::Control* control : dialog.Controls())
            if (const auto* button = dynamic_cast<ui::IconButton*>(control)) icons[control->Id()] = button->Icon();
        EXPECT_EQ(icons, expected);
        user_.PressCloseBox();
    });
}

TEST_F(MainWindowTest, OpensTheFirstProfileAtStart) {
    SeedSmallConfiguration();
    Run([&](CBrisgateDlg& dialog) {
        EXPECT_EQ(user_.RowCount(id::Profiles), 2U);
        EXPECT_EQ(user_.Row(id::Profiles, 0), Texts{L"Alpha"});
        EXPECT_EQ(user_.Row(id::Profiles, 1), Texts{L"Beta"});
        EXPECT_TRUE(user_.Get<ui::ListView>(id::Profiles).IsSelected(0));
        EXPECT_EQ(dialog.Focus(), &dialog.Find(id::Profiles));
        EXPECT_EQ(user_.Text(id::ProfileLabel), L"Profile: Alpha");
        EXPECT_EQ(user_.Text(id::CsProfileLabel), L"CS profile's num: 2");
        for (const int control : id::NeedProfile) EXPECT_TRUE(dialog.Find(control).IsEnabled()) << control;
        for (const ui::Menu& menu : dialog.MenuBar())
            for (const ui::MenuItem& item : menu.items) EXPECT_TRUE(item.enabled) << item.command;
        user_.PressCloseBox();
    });
}

TEST_F(MainWindowTest, ShowsTheRulesThatHaveAnOperation) {
    SeedSmallConfiguration();
    Run([&](CBrisgateDlg&) {
        EXPECT_EQ(user_.RowCount(id::Rules), 3U);
        EXPECT_EQ(user_.Row(id::Rules, 0), (Texts{L"1", L"Encrypt reports", L"Encrypt", L"C:\\In", L"C:\\Out",
                                                  L"C:\\Error", L"2", L"Office", L"1"}));
        EXPECT_EQ(user_.Row(id::Rules, 1),
                  (Texts{L"2", L"Move reports", L"Move", L"", L"", L"", L"*.dat", L"", L"C:\\Second"}));
        EXPECT_EQ(RuleColumn(0), (Texts{L"1", L"2", L"3"}));
        EXPECT_EQ(user_.Get<ui::ListView>(id::Rules).Checks(), (std::vector<bool>{true, false, true}));
        user_.PressCloseBox();
    });
}

TEST_F(MainWindowTest, AClickOnAProfileOpensIt) {
    SeedSmallConfiguration();
    Run([&](CBrisgateDlg&) {
        user_.ClickRow(id::Profiles, 1);
        EXPECT_EQ(user_.Text(id::ProfileLabel), L"Profile: Beta");
        EXPECT_EQ(user_.Text(id::CsProfileLabel), L"CS profile's num: 1");
        EXPECT_EQ(RuleColumn(1), Texts{L"Delete drafts"});
        user_.ClickRow(id::Profiles, 0);
        EXPECT_EQ(RuleColumn(0), (Texts{L"1", L"2", L"3"}));
        user_.PressCloseBox();  // opening is no change: no question
    });
}

TEST_F(MainWindowTest, SearchingKeepsTheRulesWhoseDescriptionHoldsTheText) {
    SeedSmallConfiguration();
    Run([&](CBrisgateDlg&) {
        user_.Type(id::Search, L"ENcrypt");
        EXPECT_EQ(RuleColumn(0), (Texts{L"1", L"3"}));
        EXPECT_EQ(user_.Get<ui::ListView>(id::Rules).Checks(), (std::vector<bool>{true, true}));
        user_.Type(id::Search, L"no such rule");
        EXPECT_EQ(user_.RowCount(id::Rules), 0U);
        user_.Type(id::Search, L"");
        EXPECT_EQ(RuleColumn(0), (Texts{L"1", L"2", L"3"}));
        user_.Type(id::Search, L"mail");
        user_.ClickRow(id::Profiles, 1);
        EXPECT_EQ(user_.RowCount(id::Rules), 0U);  // the search holds for every profile
        user_.PressCloseBox();
    });
}

TEST_F(MainWindowTest, ARightClickTellsTheCell) {
    SeedSmallConfiguration();
    constexpr uint32_t information = ui::box::Ok | ui::box::InformationIcon;
    Run([&](CBrisgateDlg&) {
        user_.ExpectBox(L"1", information, ui::IdOk, L"");
        user_.RightClickCell(id::Rules, 0, 0);
        user_.ExpectBox(L"Encrypt", information, ui::IdOk, L"Rules");
        user_.RightClickCell(id::Rules, 0, 2);
        user_.ExpectBox(L"\r\n*.txt\r\n*.pdf", information, ui::IdOk, L"Masks");
        user_.RightClickCell(id::Rules, 0, 6);
        user_.Expect<errors::WarningBox>([&](errors::WarningBox& box) {
            EXPECT_EQ(box.Caption(), L"Extra");
            EXPECT_EQ(box.Controls().front()->Text(), L"Recipient 1:\r\nCN=Anna\r\n\r\n");
            user_.Press(Key::Escape);
        });
        user_.RightClickCell(id::Rules, 0, 8);
        user_.RightClickBelowRows(id::Rules);
        user_.PressCloseBox();
    });
}

TEST_F(MainWindowTest, ARightClickUnderASearchTellsTheRuleThatTheRowShows) {
    SeedSmallConfiguration();
    Run([&](CBrisgateDlg&) {
        user_.Type(id::Search, L"move");
        user_.Expect<errors::WarningBox>([&](errors::WarningBox& box) {
            EXPECT_EQ(box.Controls().front()->Text(), L"Second Output folder : C:\\Second\r\n\r\n");
            user_.Press(Key::Enter);
        });
        user_.RightClickCell(id::Rules, 0, 8);
        // The list was left with rows that stand for other rules than those at their positions.
        ExpectLeaveQuestion(ui::IdYes);
        user_.PressCloseBox();
    });
}

TEST_F(MainWindowTest, ARuleWithoutAnOperationHasNoRowButKeepsItsNumber) {
    SeedSmallConfiguration();
    Seed("[HKEY_LOCAL_MACHINE\\SOFTWARE\\TALVERON\\morcelservice\\Alpha\\rules\\Rule 1]\nOperation = \"\"\n");
    Run([&](CBrisgateDlg&) {
        EXPECT_EQ(RuleColumn(0), (Texts{L"1", L"3"}));
        user_.PressCloseBox();
    });
}

TEST_F(MainWindowTest, LeavingTheListUnderASearchSwitchesTheRulesAtTheRowsPositions) {
    SeedSmallConfiguration();
    Run([&](CBrisgateDlg&) {
        user_.Type(id::Search, L"move");
        user_.ClickRow(id::Rules, 0);  // unchecked, and the only row: rule 1 goes off, rules 2 and 3 go on
        user_.Click(ui::IdOk);
    });
    const auto isOn = [this](const wchar_t* rule) {
        return StoredInteger(std::wstring(L"SOFTWARE\\TALVERON\\morcelservice\\Alpha\\rules\\") + rule, L"Is on");
    };
    EXPECT_EQ(isOn(L"Rule 0"), 0);
    EXPECT_EQ(isOn(L"Rule 1"), 1);
    EXPECT_EQ(isOn(L"Rule 2"), 1);
}

TEST_F(MainWindowTest, TheMenusCarryTheCommands) {
    using Item = ui::MenuItem;
    const std::vector<ui::Menu> expected{
        {L"File",
         {Item{57603, L"Save"}, Item{32787, L"Log path"}, Item{32822, L"Configurations"}, Item{32788, L"Exit"}}},
        {L"Profiles",
         {Item{32808, L"Add profile"}, Item{32810, L"Edit profile"}, Item{32814, L"Delete profile"},
          Item{32811, L"Import profile rules"}, Item{32812, L"Export profile rules"}}},
        {L"Rules",
         {Item{32815, L"Add rule"}, Item{32828, L"Copy rule"}, Item{32816, L"Edit rule"}, Item{32817, L"Delete rule"},
          Item{32818, L"Make first"}, Item{32819, L"Move up"}, Item{32820, L"Move down"}, Item{32821, L"Make last"}}}};
    SeedSmallConfiguration();
    Run([&](CBrisgateDlg& dialog) {
        EXPECT_EQ(dialog.MenuBar(), expected);
        EXPECT_EQ(dialog.SystemMenuEntries(), (std::vector<Item>{{16, L"About programm..."}}));
        user_.Expect<app::CAboutDlg>([&](app::CAboutDlg&) { user_.Click(ui::IdOk); });
        user_.ChooseSystemMenu(16);
        user_.ChooseMenu(command::Exit);
    });
}

TEST_F(MainWindowTest, SwitchingARuleOffCountsAsAChangeOnceTheListIsLeft) {
    SeedSmallConfiguration();
    const std::string before = Dump();
    const int result = Run([&](CBrisgateDlg& dialog) {
        user_.ClickCheckBox(id::Rules, 0);
        EXPECT_FALSE(user_.Get<ui::ListView>(id::Rules).IsChecked(0));
        user_.Click(id::Search);
        ExpectLeaveQuestion(ui::IdNo);
        user_.Click(ui::IdCancel);
        EXPECT_TRUE(dialog.IsOpen());
        EXPECT_FALSE(user_.Get<ui::ListView>(id::Rules).IsChecked(0));
        ExpectLeaveQuestion(ui::IdYes);
        user_.Press(Key::Escape);
    });
    EXPECT_EQ(result, ui::IdCancel);
    EXPECT_EQ(Dump(), before);
}

TEST_F(MainWindowTest, SavingWritesTheSwitchedRuleAndClearsTheChange) {
    SeedSmallConfiguration();
    for (const bool byMenu : {false, true}) {
        Run([&](CBrisgateDlg&) {
            user_.ClickCheckBox(id::Rules, 0);
            user_.Click(id::Search);
            byMenu ? user_.ChooseMenu(command::Save) : user_.Click(id::Save);
            user_.PressCloseBox();
        });
        EXPECT_EQ(StoredInteger(alphaRule0, L"Is on"), byMenu ? 1 : 0);
    }
    Run([&](CBrisgateDlg&) {
        user_.ClickCheckBox(id::Rules, 0);
        user_.Click(id::SaveIcon);
        user_.PressCloseBox();
    });
    EXPECT_EQ(StoredInteger(alphaRule0, L"Is on"), 0);
}

TEST_F(MainWindowTest, EnterInTheSearchBoxSavesAndExits) {
    SeedSmallConfiguration();
    const int result = Run([&](CBrisgateDlg&) {
        user_.ClickCheckBox(id::Rules, 0);
        user_.Click(id::Search);
        user_.Press(Key::Enter);
    });
    EXPECT_EQ(result, ui::IdOk);
    EXPECT_EQ(StoredInteger(alphaRule0, L"Is on"), 0);
}

TEST_F(MainWindowTest, SaveAndExitAsksAfterASaveThatFailedEarly) {
    SeedSmallConfiguration();
    const std::string before = Dump();
    Run([&](CBrisgateDlg&) {
        user_.ClickCheckBox(id::Rules, 0);
        user_.Click(id::Search);
        world_->Registry().FailWhere(platform::memory::RegistryCall::Open, L"morcelservice", 5);
        for (const int answer : {ui::IdNo, ui::IdYes}) {
            ExpectReport(L"Create (open) register key HKEY_LOCAL_MACHINE\\SOFTWARE\\TALVERON\\morcelservice", 5);
            ExpectLeaveQuestion(answer);
            user_.Click(ui::IdOk);
        }
    });
    world_->Registry().NoFaults();
    EXPECT_EQ(Dump(), before);
}

// The report takes the focus from the rule list, which only then hands over its check boxes.
TEST_F(MainWindowTest, ACheckBoxThatAFailingSaveTakesOverIsUnsaved) {
    SeedSmallConfiguration();
    Run([&](CBrisgateDlg&) {
        user_.ClickCheckBox(id::Rules, 0);
        world_->Registry().FailWhere(platform::memory::RegistryCall::Open, L"morcelservice", 5);
        user_.ExpectBoxBeginning(L"Create (open) register key ", ui::box::ErrorIcon, ui::IdOk);
        user_.ChooseMenu(command::Save);
        world_->Registry().NoFaults();
        ExpectLeaveQuestion(ui::IdYes);
        user_.PressCloseBox();
    });
}

TEST_F(MainWindowTest, SaveAndExitLeavesAfterASaveThatFailedEarlyWhenNothingHadChanged) {
    SeedSmallConfiguration();
    const int result = Run([&](CBrisgateDlg&) {
        world_->Registry().FailWhere(platform::memory::RegistryCall::Open, L"morcelservice", 5);
        user_.ExpectBoxBeginning(L"Create (open) register key ", ui::box::ErrorIcon, ui::IdOk);
        user_.Click(ui::IdOk);
    });
    world_->Registry().NoFaults();
    EXPECT_EQ(result, ui::IdOk);
}

TEST_F(MainWindowTest, SaveAndExitDoesNotAskAfterASaveThatFailedInAProfile) {
    SeedSmallConfiguration();
    const int result = Run([&](CBrisgateDlg&) {
        user_.ClickCheckBox(id::Rules, 0);
        user_.Click(id::Search);
        world_->Registry().FailWhere(platform::memory::RegistryCall::Open, L"morcelservice\\Alpha", 5);
        ExpectReport(L"Create (open) register key HKEY_LOCAL_MACHINE\\SOFTWARE\\TALVERON\\morcelservice\\Alpha", 5);
        user_.Click(ui::IdOk);
    });
    world_->Registry().NoFaults();
    EXPECT_EQ(result, ui::IdOk);
}

TEST_F(MainWindowTest, AFailedLoadClosesItAtOnce) {
    user_.ExpectBoxBeginning(L"Create (open) register key HKEY_CURRENT_USER\\SOFTWARE\\TALVERON\\morcel\\Profiles.",
                             ui::box::ErrorIcon, ui::IdOk);
    EXPECT_EQ(CBrisgateDlg(services_).DoModal(), ui::IdCancel);
}

}  // namespace
}  // namespace tests
