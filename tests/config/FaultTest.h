// The base of tests that fail every registry call of loading or saving in turn.
#pragma once

#include <string>
#include <vector>

#include "tests/config/ConfigTest.h"
#include "tests/config/ValueKinds.h"

namespace tests {

using platform::memory::RecordedCall;
using Reports = std::vector<std::wstring>;

inline const std::wstring ServicePath = L"HKEY_LOCAL_MACHINE\\SOFTWARE\\TALVERON\\morcelservice";

// The name of the value that a call is about.
inline std::wstring ValueOf(const RecordedCall& call) {
    return call.target.substr(call.target.rfind(L'\\') + 1);
}

inline std::wstring KindOf(const RecordedCall& call) {
    return ValueKind(call.target);
}

inline std::wstring Report(const std::wstring& operation, uint32_t code) {
    return operation + L".\r\nError 0x" + text::Hexadecimal(code) + L" - ";
}

// A call about the record of the save itself.
inline bool IsOfRecord(const RecordedCall& call) {
    return call.target.starts_with(ServicePath + L" editor") ||
           call.target == L"HKEY_LOCAL_MACHINE\\SOFTWARE\\TALVERON";
}

// What is reported when that fails: a record that cannot be made is done without, one that cannot be removed
// would be found by the next start.
inline std::wstring RecordReport(const RecordedCall& call) {
    const bool isRemoval = call.call == RegistryCall::OpenSubkey || call.call == RegistryCall::DeleteSubkey ||
                           (call.call == RegistryCall::Open && !call.target.ends_with(L" editor"));
    return isRemoval ? L"Delete register key " + ServicePath + L" editor" : std::wstring();
}

class FaultTest : public ConfigTest {
  protected:
    FaultTest() { screen_.ExpectOnlyReports(); }
    // A close that is made to fail leaves its key open for good: the real registry was not asked.
    void TearDown() override { EXPECT_EQ(Registry().OpenKeys(), unclosed_); }
    void ExpectNoOtherKeyOpen() { EXPECT_EQ(Registry().OpenKeys(), unclosed_) << "a key stayed open"; }

    RecordingScreen screen_{world_->Screen()};
    const errors::ErrorReporter faultReporter_{world_->Machine(), screen_};
    size_t unclosed_ = 0;
};

}  // namespace tests
