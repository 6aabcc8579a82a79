#include "app/MainMenu.h"

namespace app {

std::vector<ui::Menu> MainMenu() {
    return {
        {L"File",
         {{command::Save, L"Save"},
          {command::LogPath, L"Log path"},
          {command::Configurations, L"Configurations"},
          {command::Exit, L"Exit"}}},
        {L"Profiles",
         {{command::AddProfile, L"Add profile"},
          {command::EditProfile, L"Edit profile", false},
          {command::DeleteProfile, L"Delete profile", false},
          {command::ImportRules, L"Import profile rules", false},
          {command::ExportRules, L"Export profile rules", false}}},
        {L"Rules",
         {{command::AddRule, L"Add rule", false},
          {command::CopyRule, L"Copy rule", false},
          {command::EditRule, L"Edit rule", false},
          {command::DeleteRule, L"Delete rule", false},
          {command::MakeFirst, L"Make first", false},
          {command::MoveUp, L"Move up", false},
          {command::MoveDown, L"Move down", false},
          {command::MakeLast, L"Make last", false}}},
    };
}

const std::vector<int>& ProfileCommands() {
    static const std::vector<int> commands{command::EditProfile, command::DeleteProfile, command::ImportRules,
                                           command::ExportRules, command::AddRule,       command::CopyRule,
                                           command::EditRule,    command::DeleteRule,    command::MakeFirst,
                                           command::MoveUp,      command::MoveDown,      command::MakeLast};
    return commands;
}

}  // namespace app
