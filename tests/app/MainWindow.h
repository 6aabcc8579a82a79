// Scenarios in the main window: a small configuration and the ids of the controls that a user works with.
#pragma once

#include <functional>
#include <string>

#include "app/BrisgateDlg.h"
#include "tests/support/Fixture.h"

namespace tests {

namespace id {
inline constexpr int SaveIcon = 1021;
inline constexpr int SearchCaption = 1120;
inline constexpr int Search = 1079;
inline constexpr int ProfileLabel = 1041;
inline constexpr int CsProfileLabel = 1042;
inline constexpr int Profiles = 1001;
inline constexpr int Rules = 1030;
inline constexpr int Configurations = 1036;
inline constexpr int OpenProfile = 1053;
inline constexpr int Save = 1000;
}  // namespace id

inline constexpr wchar_t ServiceRoot[] = L"SOFTWARE\\TALVERON\\morcelservice";

class MainWindowTest : public WorldTest {
  protected:
    // Two store profiles and the profiles "Alpha" (two attached, four rules, the last one without an
    // operation) and "Beta" (one attached, one rule).
    void SeedSmallConfiguration();

    // Opens the main window; the user does what the script says and has to leave.
    int Run(const std::function<void(app::CBrisgateDlg&)>& script) {
        user_.Expect<app::CBrisgateDlg>(script);
        return app::CBrisgateDlg(services_).DoModal();
    }
    // The cells of one column of the rule list, top to bottom.
    std::vector<std::wstring> RuleColumn(size_t column) const;
    int32_t StoredInteger(const std::wstring& path, const std::wstring& name);
};

}  // namespace tests
