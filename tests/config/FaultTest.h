// The base of tests that fail every registry call of loading or saving in turn.
#pragma once

#include <set>
#include <string>
#include <vector>

#include "tests/config/ConfigTest.h"
#include "tests/config/ReportsOnlyScreen.h"

namespace tests {

using platform::memory::RecordedCall;
using Reports = std::vector<std::wstring>;

inline const std::wstring ServicePath = L"HKEY_LOCAL_MACHINE\\SOFTWARE\\TALVERON\\morcelservice";

// The name of the value that a call is about.
inline std::wstring ValueOf(const RecordedCall& call) {
    return call.target.substr(call.target.rfind(L'\\') + 1);
}

// "integer", "multistring" or "string", as reports call a value of this name.
inline std::wstring KindOf(const std::wstring& value) {
    static const std::set<std::wstring> lists{L"ExtExt",        L"ServerTSP",      L"ZCSProfile",
                                              L"NotUseLDAP",    L"NotCopyToLocal", L"AutoUseTSP",
                                              L"AutoVerifyTSP", L"NoTSPisError",   L"UseAIA",
                                              L"NotAddCert",    L"NotLoadCrl",     L"CrlUpdatePeriod"};
    static const std::set<std::wstring> integers{
        L"Window_top",        L"Window_bottom", L"Window_left",     L"Window_right",       L"Log filesize",
        L"Verify File",       L"Verify x file", L"Verify det file", L"Verify resign file", L"Handler timeout",
        L"Rename conf files", L"ArchCount",     L"ArchSize",        L"ArchTimeout",        L"ExecTimeout",
        L"Mask num",          L"Ext num",       L"Is on",           L"In format det",      L"Out format det",
        L"ZipFile",           L"Signer Num"};
    return integers.contains(value) ? L"integer" : lists.contains(value) ? L"multistring" : L"string";
}

// ZCSProfile is a list in a profile and a string in a rule.
inline std::wstring KindOf(const RecordedCall& call) {
    const bool inRule = call.target.find(L"\\rules\\") != std::wstring::npos;
    return inRule && ValueOf(call) == L"ZCSProfile" ? L"string" : KindOf(ValueOf(call));
}

inline std::wstring Report(const std::wstring& operation, uint32_t code) {
    return operation + L".\r\nError 0x" + text::Hexadecimal(code) + L" - ";
}

class FaultTest : public ConfigTest {
  protected:
    // A close that is made to fail leaves its key open for good: the real registry was not asked.
    void TearDown() override { EXPECT_EQ(Registry().OpenKeys(), unclosed_); }
    void ExpectNoOtherKeyOpen() { EXPECT_EQ(Registry().OpenKeys(), unclosed_) << "a key stayed open"; }

    ReportsOnlyScreen screen_{world_->Machine().ScreenMetrics};
    const errors::ErrorReporter faultReporter_{world_->Machine(), screen_};
    size_t unclosed_ = 0;
};

}  // namespace tests
