// The menu bar of the main dialog and the numbers of its commands.
#pragma once

#include <vector>

#include "ui/Menu.h"

namespace app {

namespace command {
inline constexpr int Save = 57603;
inline constexpr int LogPath = 32787;
inline constexpr int Configurations = 32822;
inline constexpr int Exit = 32788;
inline constexpr int AddProfile = 32808;
inline constexpr int OpenProfile = 32809;  // on no menu
inline constexpr int EditProfile = 32810;
inline constexpr int DeleteProfile = 32814;
inline constexpr int ImportRules = 32811;
inline constexpr int ExportRules = 32812;
inline constexpr int AddRule = 32815;
inline constexpr int CopyRule = 32828;
inline constexpr int EditRule = 32816;
inline constexpr int DeleteRule = 32817;
inline constexpr int MakeFirst = 32818;
inline constexpr int MoveUp = 32819;
inline constexpr int MoveDown = 32820;
inline constexpr int MakeLast = 32821;
inline constexpr int About = 16;  // in the system menu
}  // namespace command

// As it is before a profile is opened.
std::vector<ui::Menu> MainMenu();

// The commands that need an opened profile.
const std::vector<int>& ProfileCommands();

}  // namespace app
