// The controls of the certificate forms.
#pragma once

namespace tests {

namespace pickid {
inline constexpr int SortLabel = 1210, SortField = 1211, FilterLabel = 1212, Filter = 1213;
inline constexpr int Candidates = 1214, FromLocalStore = 1215, FromGroup = 1216, FromLdap = 1217;
inline constexpr int SelectAll = 1218, Clear = 1219, DeleteAll = 1220, Save = 1221;
inline constexpr int Choose = 1027, Remove = 1028, Chosen = 1222, NameLabel = 1223, Name = 1224;
inline constexpr int FilterField = 1202, FilterSample = 1204;  // of the filter form
}  // namespace pickid

namespace signersid {
inline constexpr int List = 1230, Add = 1231, Edit = 1232, Delete = 1233;
}

}  // namespace tests
