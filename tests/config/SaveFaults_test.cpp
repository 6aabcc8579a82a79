// Every registry call of saving fails once: the report for it and no other, no key stays open, and the next
// save, when nothing fails any more, puts everything right.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/config/FaultTest.h"
#include "tests/config/GoldenModel.h"
#include "tests/config/GoldenTree.h"
#include "tests/config/TreeText.h"

namespace {

using tests::KindOf;
using tests::RecordedCall;
using tests::RegistryCall;
using tests::Report;
using tests::Reports;
using tests::ServicePath;
using tests::ValueOf;
using Calls = std::vector<RecordedCall>;
namespace code = platform::code;

// A profile to be deleted, one to be renewed, and none yet of the name "Reports": every step has something to
// do.
const std::string before = tests::GoldenLibrary + tests::BelowService("Doomed\\rules\\Rule 0\\List") +
                           "Signer Num = 0\n" + tests::BelowService("Doomed\\rules\\Rule 1") +
                           tests::BelowService("Exchange\\rules\\Rule 0\\Former\\deep") + "x = 1\n" +
                           tests::BelowService("Exchange\\rules\\Rule 5") + "Operation = \"ENCR\"\n";

class SaveFaults : public tests::FaultTest {
  protected:
    bool SaveWithReports() {
        screen_.reports.clear();
        return SaveReportingTo(faultReporter_, tests::GoldenModel());
    }
    Calls CallsOfACleanSave() {
        SeedTrees(before);
        EXPECT_TRUE(SaveWithReports());
        EXPECT_EQ(screen_.reports, Reports{});
        const Calls calls = Registry().Calls();
        ExpectEverythingSaved();
        return calls;
    }
    void ExpectEverythingSaved() { EXPECT_EQ(DumpTrees(), tests::Canonical(tests::GoldenTrees)); }
    void ExpectThatASecondSavePutsItRight() {
        Registry().NoFaults();
        EXPECT_TRUE(SaveWithReports());
        EXPECT_EQ(screen_.reports, Reports{});
        ExpectEverythingSaved();
    }
};

size_t FirstWrite(const Calls& calls) {
    size_t n = 0;
    while (calls[n].call != RegistryCall::Set) ++n;
    return n;
}

// The end of the first so many calls, the closes at their end not counted.
size_t BehindTheLastButCloses(const Calls& calls, size_t count) {
    while (calls[count - 1].call == RegistryCall::Close) --count;
    return count;
}

// The deletion to which the call belongs, as its report names it.
std::wstring DeletionReport(const RecordedCall& call) {
    if (call.target.starts_with(ServicePath + L"\\Doomed")) return L"Delete register key " + ServicePath;
    const std::wstring rules = L"\\rules";
    return L"Delete register key " + call.target.substr(0, call.target.find(rules) + rules.size());
}

Reports ExpectedReports(const Calls& calls, size_t n) {
    const RecordedCall& call = calls[n];
    const auto one = [](const std::wstring& operation) {
        return Reports{Report(operation, code::AccessDenied)};
    };
    const std::wstring opening = L"Create (open) register key ";
    switch (call.call) {
        case RegistryCall::Open:
            return one(opening + call.target);
        case RegistryCall::Create:
            // A new profile without its key is met once more when it is to be written.
            if (call.target != ServicePath + L"\\Reports") return one(opening + call.target);
            return {Report(opening + call.target, code::AccessDenied),
                    Report(opening + call.target, code::FileNotFound)};
        case RegistryCall::EnumerateSubkey:
            if (call.target == ServicePath) return one(L"Search register key " + ServicePath + L" subkeys");
            // Taken for the end; with subkeys left the system then refuses to delete the key.
            return calls[n + 1].call == RegistryCall::OpenSubkey ? one(DeletionReport(call)) : Reports{};
        case RegistryCall::OpenSubkey:
        case RegistryCall::DeleteSubkey:
            return one(DeletionReport(call));
        case RegistryCall::Query:
            return one(L"Reading string value '" + ValueOf(call) + L"' from register");
        case RegistryCall::Set:
            return one(L"Writing " + KindOf(call) + L" value '" + ValueOf(call) + L"' into register");
        default:
            return n + 1 == calls.size() ? one(opening + ServicePath) : Reports{};
    }
}

TEST_F(SaveFaults, EveryCall) {
    const Calls calls = CallsOfACleanSave();
    ASSERT_GT(calls.size(), 200U);
    const size_t firstWrite = FirstWrite(calls);
    for (size_t n = 0; n < calls.size(); ++n) {
        SCOPED_TRACE(testing::PrintToString(n) + " " + testing::PrintToString(calls[n].target));
        SeedTrees(before);
        Registry().FailNth(n, code::AccessDenied);
        const bool saved = SaveWithReports();
        const Reports expected = ExpectedReports(calls, n);
        EXPECT_EQ(screen_.reports, expected);
        const bool endsIt = n < firstWrite && !expected.empty() && calls[n].call != RegistryCall::Query;
        EXPECT_EQ(saved, !endsIt);
        EXPECT_EQ(Registry().CountOf(RegistryCall::Set) == 0, endsIt);
        if (calls[n].call == RegistryCall::Close) ++unclosed_;
        ExpectNoOtherKeyOpen();
        if (expected.empty()) {
            Registry().NoFaults();
            ExpectEverythingSaved();
        }
        ExpectThatASecondSavePutsItRight();
    }
}

TEST_F(SaveFaults, EveryCallFromOneOn) {
    const Calls calls = CallsOfACleanSave();
    const size_t endOfWhatEndsIt = BehindTheLastButCloses(calls, FirstWrite(calls));
    const size_t endOfAll = BehindTheLastButCloses(calls, calls.size());
    for (size_t first = 0; first < calls.size(); ++first) {
        SCOPED_TRACE(first);
        SeedTrees(before);
        // Keys can still be closed, so that those left open would show.
        Registry().SetFault([first](size_t number, const RecordedCall& call) {
            return number >= first && call.call != RegistryCall::Close ? code::KeyDeleted : code::Success;
        });
        const bool saved = SaveWithReports();
        EXPECT_EQ(saved, first >= endOfWhatEndsIt);
        EXPECT_EQ(screen_.reports.empty(), first >= endOfAll);
        ExpectNoOtherKeyOpen();
        ExpectThatASecondSavePutsItRight();
    }
}

}  // namespace
