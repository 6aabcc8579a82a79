// The ids of the controls that the scenarios work with.
#pragma once

namespace tests::torture::id {

// The main window.
inline constexpr int Profiles = 1001, Rules = 1030, Search = 1079, Save = 1000, LogPath = 1022;
inline constexpr int AddRule = 1023, CopyRule = 1037, EditRule = 1024, DeleteRule = 1025, MakeFirst = 1026,
                     MoveUp = 1027, MoveDown = 1028, MakeLast = 1029, Export = 1034, Import = 1035;
inline constexpr int AddProfile = 1031, EditProfile = 1032, DeleteProfile = 1033, ProfileName = 1037;
// The rule editor.
inline constexpr int Operation = 1042, Action = 1050, Masks = 1001, AddMask = 1124, DeleteMask = 1126,
                     Mask = 1095;
// Signer lists.
inline constexpr int Lists = 1230, AddList = 1231, EditList = 1232, DeleteList = 1233, ListName = 1224;
// The picker and its filter.
inline constexpr int Candidates = 1214, FromLocal = 1215, FromGroup = 1216, FromLdap = 1217, SelectAll = 1218,
                     SaveGroup = 1221, Choose = 1027, Remove = 1028, Chosen = 1222, FilterField = 1202,
                     FilterSample = 1204;

}  // namespace tests::torture::id
