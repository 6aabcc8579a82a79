// The main dialog's commands: where each stands in the menu bar, what it does, and what it needs.
#include <algorithm>
#include <array>

#include "app/AboutDlg.h"
#include "app/BrisgateDlg.h"

namespace app {
namespace {

constexpr int aboutCommand = 16;  // in the system menu
constexpr const wchar_t* onNoMenu = nullptr;

}  // namespace

// A menu has its commands in this order.
std::span<const CBrisgateDlg::Command> CBrisgateDlg::Commands() {
    using Dlg = CBrisgateDlg;
    constexpr const wchar_t* file = L"File";
    constexpr const wchar_t* profiles = L"Profiles";
    constexpr const wchar_t* rules = L"Rules";
    static constexpr std::array commands{
        Command{57603, file, L"Save", &Dlg::Save},
        Command{32787, file, L"Log path", &Dlg::EditLogSettings},
        Command{32822, file, L"Configurations", &Dlg::EditExtensions},
        Command{32788, file, L"Exit", &Dlg::OnCancel},
        Command{32808, profiles, L"Add profile", &Dlg::AddProfile},
        Command{32809, onNoMenu, L"", &Dlg::OpenProfile},
        Command{32810, profiles, L"Edit profile", &Dlg::EditProfile, &Dlg::editProfile_},
        Command{32814, profiles, L"Delete profile", &Dlg::DeleteProfile, &Dlg::deleteProfile_},
        Command{32811, profiles, L"Import profile rules", &Dlg::ImportRules, &Dlg::importRules_},
        Command{32812, profiles, L"Export profile rules", &Dlg::ExportRules, &Dlg::exportRules_},
        Command{32815, rules, L"Add rule", &Dlg::AddRule, &Dlg::addRule_},
        Command{32828, rules, L"Copy rule", &Dlg::CopyRule, &Dlg::copyRule_},
        Command{32816, rules, L"Edit rule", &Dlg::EditRule, &Dlg::editRule_},
        Command{32817, rules, L"Delete rule", &Dlg::DeleteRules, &Dlg::deleteRule_},
        Command{32818, rules, L"Make first", &Dlg::MakeFirst, &Dlg::makeFirst_},
        Command{32819, rules, L"Move up", &Dlg::MoveUp, &Dlg::moveUp_},
        Command{32820, rules, L"Move down", &Dlg::MoveDown, &Dlg::moveDown_},
        Command{32821, rules, L"Make last", &Dlg::MakeLast, &Dlg::makeLast_},
    };
    return commands;
}

void CBrisgateDlg::CreateMenus() {
    std::vector<ui::Menu> menus;
    for (const Command& command : Commands()) {
        if (command.menu == onNoMenu) continue;
        if (menus.empty() || menus.back().title != command.menu) menus.push_back({command.menu, {}});
        menus.back().items.push_back({command.id, command.text});
    }
    SetMenuBar(std::move(menus));
    AppendToSystemMenu(aboutCommand, L"About programm...");
}

void CBrisgateDlg::EnableProfileControls(bool enabled) {
    for (ui::Control* control : std::initializer_list<ui::Control*>{&profileLabel_, &csProfileLabel_, &rules_})
        control->Enable(enabled);
    std::vector<int> onMenus;
    for (const Command& command : Commands()) {
        if (!command.NeedsProfile()) continue;
        (this->*command.profileButton).Enable(enabled);
        onMenus.push_back(command.id);
    }
    EnableMenuItems(onMenus, enabled);
}

void CBrisgateDlg::OnMenuCommand(int id) {
    ApplyNewChecks();
    const auto command = std::ranges::find(Commands(), id, &Command::id);
    if (command != Commands().end()) (this->*command->run)();
}

void CBrisgateDlg::OnSystemCommand(int id) {
    if (id == aboutCommand) CAboutDlg(Screen(), this).DoModal();
}

}  // namespace app
