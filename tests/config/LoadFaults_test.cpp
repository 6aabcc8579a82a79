// Every registry call of loading fails once, and from there on all of them do: one report for the cause,
// nothing partial is handed out, no key stays open.
#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "tests/config/FaultTest.h"
#include "tests/config/GoldenModel.h"
#include "tests/config/GoldenTree.h"

namespace {

using tests::KindOf;
using tests::RecordedCall;
using tests::RegistryCall;
using tests::Report;
using tests::Reports;
using tests::ValueOf;
namespace code = platform::code;

class LoadFaults : public tests::FaultTest {
  protected:
    std::optional<config::Configuration> LoadWithReports() {
        screen_.boxes.clear();
        return LoadReportingTo(faultReporter_);
    }
    std::vector<RecordedCall> CallsOfACleanLoad(const std::string& trees) {
        SeedTrees(trees);
        EXPECT_TRUE(LoadWithReports());
        return Registry().Calls();
    }
    void CheckLoadWhoseCallFails(const std::string& trees, const std::vector<RecordedCall>& calls, size_t n);
};

// What is to be said when the n-th call fails, and whether loading ends with it.
struct Expected {
    std::wstring report;  // empty: nothing
    bool ends;
};

Expected ExpectedFor(const std::vector<RecordedCall>& calls, size_t n) {
    const RecordedCall& call = calls[n];
    if (tests::IsOfRecord(call)) return {tests::RecordReport(call), false};
    switch (call.call) {
        case RegistryCall::Open:
        case RegistryCall::Create:
            return {L"Create (open) register key " + call.target, true};
        case RegistryCall::EnumerateSubkey:
            return {L"Search register key " + call.target + L" subkeys", true};
        case RegistryCall::Query:
            return {L"Reading " + KindOf(call) + L" value '" + ValueOf(call) + L"' from register", false};
        case RegistryCall::Set:
            return {L"Writing " + KindOf(call) + L" value '" + ValueOf(call) + L"' into register", false};
        default:
            // Former keys are closed without a word; only the close at the very end counts.
            if (n + 1 < calls.size()) return {L"", false};
            return {L"Create (open) register key " + tests::ServicePath, true};
    }
}

void LoadFaults::CheckLoadWhoseCallFails(const std::string& trees, const std::vector<RecordedCall>& calls, size_t n) {
    SCOPED_TRACE(testing::PrintToString(n) + " " + testing::PrintToString(calls[n].target));
    SeedTrees(trees);
    Registry().FailNth(n, code::AccessDenied);
    const auto loaded = LoadWithReports();
    const Expected expected = ExpectedFor(calls, n);
    EXPECT_EQ(screen_.Reports(),
              expected.report.empty() ? Reports{} : Reports{Report(expected.report, code::AccessDenied)});
    EXPECT_EQ(loaded.has_value(), !expected.ends);
    if (calls[n].call == RegistryCall::Close) ++unclosed_;
    ExpectNoOtherKeyOpen();
    if (expected.ends) {
        EXPECT_LE(Registry().Calls().size(), n + 2) << "nothing but closing follows the failure";
    } else if (expected.report.empty()) {
        Registry().NoFaults();
        EXPECT_EQ(loaded, Load()) << "a failure that is nobody's business changes nothing";
    }
}

TEST_F(LoadFaults, EveryCallOfAFullLoad) {
    const auto calls = CallsOfACleanLoad(tests::GoldenTrees);
    ASSERT_GT(calls.size(), 200U);
    for (size_t n = 0; n < calls.size(); ++n) CheckLoadWhoseCallFails(tests::GoldenTrees, calls, n);
}

TEST_F(LoadFaults, EveryCallOfTheFirstLoad) {
    const auto calls = CallsOfACleanLoad(tests::GoldenLibrary);
    ASSERT_GT(calls.size(), 80U);
    for (size_t n = 0; n < calls.size(); ++n) CheckLoadWhoseCallFails(tests::GoldenLibrary, calls, n);
}

// How many records of the two, each without those inside it, differ.
size_t Differences(const config::ServiceProfile& left, config::ServiceProfile right) {
    if (left.Rules.size() != right.Rules.size()) return 2;
    size_t differences = 0;
    for (size_t i = 0; i < left.Rules.size(); ++i)
        if (left.Rules[i] != right.Rules[i]) ++differences;
    right.Rules = left.Rules;
    return left == right ? differences : differences + 1;
}

size_t Differences(const config::Configuration& left, const config::Configuration& right) {
    if (left.Profiles.size() != right.Profiles.size() || left.CsProfiles.size() != right.CsProfiles.size()) return 2;
    size_t differences = left.Settings == right.Settings ? 0 : 1;
    for (size_t i = 0; i < left.CsProfiles.size(); ++i)
        if (left.CsProfiles[i] != right.CsProfiles[i]) ++differences;
    for (size_t i = 0; i < left.Profiles.size(); ++i) differences += Differences(left.Profiles[i], right.Profiles[i]);
    return differences;
}

TEST_F(LoadFaults, ARefusedValueLeavesAllOtherRecordsAsTheyAre) {
    const auto calls = CallsOfACleanLoad(tests::GoldenTrees);
    for (size_t n = 0; n < calls.size(); ++n) {
        if (calls[n].call != RegistryCall::Query) continue;
        SeedTrees(tests::GoldenTrees);
        Registry().FailNth(n, code::AccessDenied);
        const auto loaded = LoadWithReports();
        ASSERT_TRUE(loaded);
        EXPECT_LE(Differences(*loaded, tests::GoldenModel()), 1U) << testing::PrintToString(calls[n].target);
    }
}

TEST_F(LoadFaults, EveryCallFromOneOn) {
    const size_t count = CallsOfACleanLoad(tests::GoldenTrees).size();
    for (size_t first = 0; first < count; ++first) {
        SCOPED_TRACE(first);
        SeedTrees(tests::GoldenTrees);
        // Keys can still be closed, so that those left open would show.
        Registry().SetFault([first](size_t number, const RecordedCall& call) {
            return number >= first && call.call != RegistryCall::Close ? code::KeyDeleted : code::Success;
        });
        const auto loaded = LoadWithReports();
        const bool onlyTheLastCloseIsLeft = first + 1 == count;
        EXPECT_EQ(screen_.boxes.empty(), onlyTheLastCloseIsLeft);
        ExpectNoOtherKeyOpen();
    }
}

TEST_F(LoadFaults, AtThePlacesWhereItEndsThePathIsShown) {
    const std::wstring library = L"HKEY_CURRENT_USER\\SOFTWARE\\TALVERON\\morcel\\Profiles";
    const std::wstring rules = tests::ServicePath + L"\\Exchange\\rules";
    const std::pair<RegistryCall, std::wstring> cases[] = {
        {RegistryCall::Open, library},
        {RegistryCall::EnumerateSubkey, library},
        {RegistryCall::Open, library + L"\\2"},
        {RegistryCall::Create, tests::ServicePath},
        {RegistryCall::EnumerateSubkey, tests::ServicePath},
        {RegistryCall::Open, tests::ServicePath + L"\\Reports"},
        {RegistryCall::Open, tests::ServicePath + L"\\Reports\\rules"},
        {RegistryCall::EnumerateSubkey, rules},
        {RegistryCall::Open, rules + L"\\Rule 1"},
        {RegistryCall::EnumerateSubkey, rules + L"\\Rule 1"},
        {RegistryCall::Open, rules + L"\\Rule 0\\Nobody"},
    };
    for (const auto& [call, path] : cases) {
        SeedTrees(tests::GoldenTrees);
        Registry().FailWhere(call, path, code::KeyDeleted);
        ExpectReport(call == RegistryCall::EnumerateSubkey ? L"Search register key " + path + L" subkeys"
                                                           : L"Create (open) register key " + path,
                     code::KeyDeleted);
        EXPECT_EQ(Load(), std::nullopt) << testing::PrintToString(path);
    }
}

}  // namespace
