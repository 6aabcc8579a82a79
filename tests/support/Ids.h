// The ids of the controls and commands that scenarios use: the only place of the tests that knows them by
// number, besides the sheet of the forms and the orders of the Tab key.
#pragma once

#include <array>

namespace tests {

// The main window.
namespace id {
inline constexpr int SaveIcon = 1021, LogPath = 1022, SearchCaption = 1120, Search = 1079;
inline constexpr int AddRule = 1023, CopyRule = 1037, EditRule = 1024, DeleteRule = 1025, MakeFirst = 1026,
                     MoveUp = 1027, MoveDown = 1028, MakeLast = 1029, ExportRules = 1034, ImportRules = 1035;
inline constexpr int AddProfile = 1031, EditProfile = 1032, DeleteProfile = 1033;
inline constexpr int ProfileLabel = 1041, CsProfileLabel = 1042, Profiles = 1001, Rules = 1030;
inline constexpr int Configurations = 1036, OpenProfile = 1053, Save = 1000;

// What can be used only while a profile is open.
inline constexpr std::array NeedProfile{AddRule,     CopyRule,    EditRule,     DeleteRule,     MakeFirst,
                                        MoveUp,      MoveDown,    MakeLast,     EditProfile,    DeleteProfile,
                                        ExportRules, ImportRules, ProfileLabel, CsProfileLabel, Rules};
}  // namespace id

// Its menus, the last one that of the window.
namespace command {
inline constexpr int Save = 57603, LogPath = 32787, Configurations = 32822, Exit = 32788;
inline constexpr int AddProfile = 32808, OpenProfile = 32809, EditProfile = 32810, DeleteProfile = 32814,
                     ImportRules = 32811, ExportRules = 32812;
inline constexpr int AddRule = 32815, EditRule = 32816, DeleteRule = 32817, MakeFirst = 32818, MoveUp = 32819,
                     MoveDown = 32820, MakeLast = 32821, CopyRule = 32828;
inline constexpr int About = 16;
}  // namespace command

namespace ruleid {
inline constexpr int Operation = 1042, CsProfileLabel = 1104, CsProfile = 1051;
inline constexpr int DescriptionLabel = 1122, Description = 1079;
inline constexpr int PickPathIn = 1000, PathIn = 1045, PickPathOut = 1043, PathOut = 1046;
inline constexpr int PickPathError = 1044, PathError = 1047, ActionButton = 1050, ActionField = 1049;
inline constexpr int Masks = 1001, AddMask = 1124, EditMask = 1125, DeleteMask = 1126;
inline constexpr int LabelA = 1108, ListA = 1105, TextA = 1130, NumberA = 1139;
inline constexpr int LabelB = 1109, ListB = 1106, TextB = 1131, NumberB = 1140;
inline constexpr int LabelC = 1110, ListC = 1107, TextC = 1136, NumberC = 1141;
inline constexpr int LabelD = 1138, TextD = 1137;
inline constexpr int OldMask = 1095, OldMaskLabel = 1123, OldMaskEdit = 1048;
inline constexpr int MaskCombo = 1095;  // of the mask dialog
}  // namespace ruleid

namespace profileid {
inline constexpr int NameLabel = 1070, Name = 1037;
inline constexpr int CsProfiles = 1001, Add = 1098, Delete = 1099, Settings = 1100;
inline constexpr int NotUseLdap = 1054, NotAddCert = 1055, NotCopyToLocal = 1056, NotLoadCrl = 1057;
inline constexpr int PeriodLabel = 1094, Period = 1064, PeriodArrows = 1129;
inline constexpr int UseTsp = 1058, Tsp = 1059, VerifyTsp = 1060, NoTspIsError = 1061, UseAia = 1062;
inline constexpr int VerifyFile = 1076, VerifyXFile = 1077, VerifyDetFile = 1078, VerifyResignFile = 1080;
inline constexpr int TimeoutLabel = 1092, Timeout = 1079, RenameConfFiles = 1093;
inline constexpr int Choice = 1102;  // of the chooser
}  // namespace profileid

// The certificate picker.
namespace pickid {
inline constexpr int SortLabel = 1210, SortField = 1211, FilterLabel = 1212, Filter = 1213;
inline constexpr int Candidates = 1214, FromLocalStore = 1215, FromGroup = 1216, FromLdap = 1217;
inline constexpr int SelectAll = 1218, Clear = 1219, DeleteAll = 1220, Save = 1221;
inline constexpr int Choose = 1027, Remove = 1028, Chosen = 1222, NameLabel = 1223, Name = 1224;
inline constexpr int FilterField = 1202, FilterSample = 1204;  // of the filter form
}  // namespace pickid

// The form of signer lists.
namespace signersid {
inline constexpr int List = 1230, Add = 1231, Edit = 1232, Delete = 1233;
}  // namespace signersid

// The settings of extensions.
namespace extid {
inline constexpr int Signed = 250, Detached = 253, Encrypted = 255, Base64 = 259, Hash = 268, Report = 1079;
inline constexpr int Zip = 1080, Gzip = 1134, Additional = 275, Add = 261, Delete = 263, Apply = 1000;
inline constexpr int Asked = 266;  // of the dialog that asks for an extension
}  // namespace extid

// The settings of the log.
namespace logid {
inline constexpr int Pick = 1090, Path = 1091, Size = 1133;
}  // namespace logid

// The boxes of the program's own, and what it says about itself.
namespace boxid {
inline constexpr int WarningText = 1160, ErrorPicture = 1150, ErrorText = 1151;
inline constexpr int AboutMaker = 1201, AboutProgram = 1202;
}  // namespace boxid

}  // namespace tests
