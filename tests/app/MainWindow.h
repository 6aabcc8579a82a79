// Scenarios in the main window: a small configuration and the ids of the controls that a user works with.
#pragma once

#include <functional>
#include <string>

#include "app/BrisgateDlg.h"
#include "tests/support/Fixture.h"
#include "tests/support/Ids.h"

namespace tests {

inline constexpr wchar_t ServiceRoot[] = L"SOFTWARE\\TALVERON\\morcelservice";

// Two CS profiles, and where the log is.
inline constexpr char OfficeAndBank[] = R"([HKEY_CURRENT_USER\SOFTWARE\TALVERON\morcel\Profiles\1]
ProfileName = "Office"
BasePath = "C:\Keys"

[HKEY_CURRENT_USER\SOFTWARE\TALVERON\morcel\Profiles\2]
ProfileName = "Bank"
BasePath = "C:\Bank"

[HKEY_LOCAL_MACHINE\SOFTWARE\TALVERON\morcelservice]
LogPath = "C:\Logs"
)";

class MainWindowTest : public WorldTest {
  protected:
    // Two CS profiles and the profiles "Alpha" (two attached, four rules, the last one without an
    // operation) and "Beta" (one attached, one rule).
    void SeedSmallConfiguration();

    // Opens the main window; the user does what the script says and has to leave.
    int Run(const std::function<void(app::CBrisgateDlg&)>& script) {
        user_.Expect<app::CBrisgateDlg>(script);
        return app::CBrisgateDlg(services_).DoModal();
    }
    // The cells of one column of the rule list, top to bottom.
    std::vector<std::wstring> RuleColumn(size_t column) const { return user_.Column(id::Rules, column); }
    int32_t StoredInteger(const std::wstring& path, const std::wstring& name);
};

}  // namespace tests
