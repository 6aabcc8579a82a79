// Every registry call of saving fails once: the report for it and no other, no key stays open, and the next
// save, when nothing fails any more, puts everything right.
#include <gtest/gtest.h>

#include <algorithm>

#include <string>
#include <vector>

#include "config/RedoRecord.h"
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
        screen_.boxes.clear();
        return SaveReportingTo(faultReporter_, tests::GoldenModel());
    }
    Calls CallsOfACleanSave() {
        SeedTrees(before);
        EXPECT_TRUE(SaveWithReports());
        EXPECT_EQ(screen_.Reports(), Reports{});
        const Calls calls = Registry().Calls();
        ExpectEverythingSaved();
        return calls;
    }
    void ExpectEverythingSaved() { EXPECT_EQ(DumpTrees(), tests::Canonical(tests::GoldenTrees)); }
    void ExpectThatASecondSavePutsItRight() {
        Registry().NoFaults();
        EXPECT_TRUE(SaveWithReports());
        EXPECT_EQ(screen_.Reports(), Reports{});
        ExpectEverythingSaved();
    }
};

// The first value of the service's tree that is written.
size_t FirstWrite(const Calls& calls) {
    size_t n = 0;
    while (calls[n].call != RegistryCall::Set || tests::IsOfRecord(calls[n])) ++n;
    return n;
}

size_t CountOfWrites(const Calls& calls) {
    return static_cast<size_t>(std::ranges::count_if(
        calls, [](const RecordedCall& call) { return call.call == RegistryCall::Set && !tests::IsOfRecord(call); }));
}

// The last close of the service's own key ends the save.
size_t EndOfSave(const Calls& calls) {
    size_t n = calls.size() - 1;
    while (calls[n].call != RegistryCall::Close || tests::IsOfRecord(calls[n])) --n;
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
    const auto one = [](const std::wstring& operation) { return Reports{Report(operation, code::AccessDenied)}; };
    if (tests::IsOfRecord(call)) {
        const std::wstring report = tests::RecordReport(call);
        return report.empty() ? Reports{} : one(report);
    }
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
            return n == EndOfSave(calls) ? one(opening + ServicePath) : Reports{};
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
        EXPECT_EQ(screen_.Reports(), expected);
        const bool endsIt = n < firstWrite && !expected.empty() && calls[n].call != RegistryCall::Query;
        EXPECT_EQ(saved, !endsIt);
        EXPECT_EQ(CountOfWrites(Registry().Calls()) == 0, endsIt);
        if (calls[n].call == RegistryCall::Close) ++unclosed_;
        ExpectNoOtherKeyOpen();
        if (expected.empty()) {
            Registry().NoFaults();
            ExpectEverythingSaved();
        }
        ExpectThatASecondSavePutsItRight();
    }
}

// What has failed once the save had begun, the record makes again.
TEST_F(SaveFaults, EveryCallIsMadeUpForByTheRecord) {
    const Calls calls = CallsOfACleanSave();
    const auto written = std::ranges::find_if(
        calls, [](const RecordedCall& call) { return call.call == RegistryCall::Flush && tests::IsOfRecord(call); });
    size_t completed = 0;
    for (auto n = static_cast<size_t>(written - calls.begin()); n < calls.size(); ++n) {
        SCOPED_TRACE(testing::PrintToString(n) + " " + testing::PrintToString(calls[n].target));
        SeedTrees(before);
        Registry().FailNth(n, code::AccessDenied);
        static_cast<void>(SaveWithReports());
        Registry().NoFaults();
        if (calls[n].call == RegistryCall::Close) ++unclosed_;
        config::RegistryStore store(world_->Machine(), faultReporter_);
        config::RedoRecord record(store, nullptr);
        const bool isLeft = record.Find() == config::RedoRecord::State::Whole;
        EXPECT_EQ(isLeft, !screen_.boxes.empty());
        if (isLeft) {
            EXPECT_TRUE(record.Complete());
            ++completed;
        }
        ExpectEverythingSaved();
    }
    EXPECT_GT(completed, 150U);
}

// At most one report, and the record is there until all is done.
TEST_F(SaveFaults, EveryCallOfACompletion) {
    SeedTrees(before);
    Registry().FailWhere(RegistryCall::Set, L"LogPath", code::AccessDenied);
    static_cast<void>(SaveWithReports());
    Registry().NoFaults();
    const std::string unfinished = DumpTrees();
    const auto complete = [this] {
        screen_.boxes.clear();
        config::RegistryStore store(world_->Machine(), faultReporter_);
        config::RedoRecord record(store, nullptr);
        return record.Find() == config::RedoRecord::State::Whole && record.Complete();
    };
    Registry().ForgetCalls();
    EXPECT_TRUE(complete());
    const Calls calls = Registry().Calls();
    ASSERT_GT(calls.size(), 150U);
    for (size_t n = 0; n < calls.size(); ++n) {
        SCOPED_TRACE(testing::PrintToString(n) + " " + testing::PrintToString(calls[n].target));
        SeedTrees(unfinished);
        Registry().FailNth(n, code::AccessDenied);
        const bool completed = complete();
        EXPECT_EQ(screen_.boxes.size(), completed ? 0U : 1U);
        Registry().NoFaults();
        if (calls[n].call == RegistryCall::Close) ++unclosed_;
        EXPECT_TRUE(completed || complete());
        ExpectEverythingSaved();
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
        EXPECT_EQ(screen_.boxes.empty(), first >= endOfAll);
        ExpectNoOtherKeyOpen();
        ExpectThatASecondSavePutsItRight();
    }
}

}  // namespace
