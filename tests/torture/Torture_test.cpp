// Each scenario is played once undisturbed; then again and again with each single call to the machine failing
// with each code that matters for it, and with all calls from one on failing. By default every so many faults
// are tried; BRISGATE_TORTURE=all tries all of them.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <iostream>
#include <string_view>

#include "platform/memory/MemorySystemMessages.h"
#include "tests/torture/Oracle.h"
#include "tests/torture/Scenarios.h"
#include "tests/torture/ShortMemory.h"

namespace tests::torture {
namespace {

constexpr size_t stepOfMany = 37;  // where there are very many calls
constexpr size_t stepOfFew = 4;
constexpr size_t fewCalls = 50;

bool TriesAll() {
    const char* const wanted = std::getenv("BRISGATE_TORTURE");
    return wanted != nullptr && std::string_view(wanted) == "all";
}

size_t totalFaults = 0;
size_t totalRuns = 0;

class Torture : public testing::TestWithParam<size_t> {
  protected:
    // The end of the test program looks for leaks, too.
    void TearDown() override { EXPECT_FALSE(TriesAll() && AnythingLeaked()); }

    const Scenario& scenario_ = Scenarios().at(GetParam());
    const platform::memory::MemorySystemMessages messages_;
    const Outcome untouched_ = Play(scenario_, {.works = false});
    Outcome plain_;
    size_t faults_ = 0;
    size_t runs_ = 0;

    bool IsTried() {
        const size_t step = plain_.calls.size() < fewCalls ? stepOfFew : stepOfMany;
        return TriesAll() || tried_++ % step == GetParam() % step;
    }
    void PlayWith(const Torment& run);
    void Check(const Torment& run, const Outcome& outcome);
    void CheckLoad(const Outcome& outcome, const Prescribed& told) const;
    void CheckSave(const Torment& run, const Outcome& outcome, const Prescribed& told) const;
    void CheckCommand(const Outcome& outcome, const Prescribed& told) const;

  private:
    size_t tried_ = 0;
};

void Torture::PlayWith(const Torment& run) {
    const Outcome outcome = Play(scenario_, run);
    ++runs_;
    for (const Call& call : outcome.calls) faults_ += call.injected != 0 ? 1 : 0;
    Check(run, outcome);
}

void Torture::Check(const Torment& run, const Outcome& outcome) {
    const Prescribed told = PrescribedFor(outcome.calls, messages_, run.goesOn);
    if (told.descriptionsKnown) {
        EXPECT_EQ(outcome.reports, told.reports);
    } else {
        EXPECT_EQ(WithoutDescriptions(outcome.reports), WithoutDescriptions(told.reports));
    }
    EXPECT_EQ(outcome.memoryBoxes, 0U);
    EXPECT_EQ(outcome.started, !told.loadingEnds);
    switch (scenario_.kind) {
        case Kind::Load:
            return CheckLoad(outcome, told);
        case Kind::Save:
            return CheckSave(run, outcome, told);
        case Kind::Command:
            return CheckCommand(outcome, told);
    }
}

// Nothing that was loaded counts as a change, whatever was missing.
void Torture::CheckLoad(const Outcome& outcome, const Prescribed& told) const {
    EXPECT_FALSE(outcome.unsaved);
    if (told.reports.empty() && !told.quietDifference) {
        EXPECT_EQ(outcome.rows, plain_.rows);
        EXPECT_EQ(outcome.trees, plain_.trees);
    }
}

// Memory stays what it was: the next save puts everything right.
void Torture::CheckSave(const Torment& run, const Outcome& outcome, const Prescribed& told) const {
    EXPECT_EQ(outcome.rows, plain_.rows);
    const bool nothingFailed = told.reports.empty() && !told.quietDifference;
    if (run.ending == Ending::Leave) {
        EXPECT_EQ(outcome.unsaved, told.savingEnds);
    }
    if (run.ending == Ending::SaveAgain || outcome.unsaved || nothingFailed) {
        EXPECT_EQ(outcome.trees, plain_.trees);
    }
}

// A command is carried out, or nothing has changed. The picker comes only where there is a context.
void Torture::CheckCommand(const Outcome& outcome, const Prescribed& told) const {
    if (std::ranges::any_of(outcome.calls, [](const Call& call) { return call.op == Op::FindLibrary; })) {
        EXPECT_EQ(outcome.pickers, static_cast<size_t>(told.pickers));
    }
    if (told.reports.empty() && !told.quietDifference) {
        EXPECT_EQ(outcome.rows, plain_.rows);
        EXPECT_EQ(outcome.notes, plain_.notes);
        EXPECT_EQ(outcome.unsaved, plain_.unsaved);
        EXPECT_EQ(outcome.trees, plain_.trees);
        EXPECT_EQ(outcome.files, plain_.files);
    } else if (!outcome.unsaved) {
        EXPECT_EQ(outcome.rows, untouched_.rows);
    }
}

TEST_P(Torture, EveryCallFails) {
    plain_ = Play(scenario_, {});
    Check({}, plain_);
    const std::vector<Call> calls = plain_.calls;
    for (size_t n = 0; n < calls.size() && !HasFailure(); ++n) {
        for (const uint32_t code : CodesFor(calls[n].op)) {
            for (const Ending ending : {Ending::Leave, Ending::SaveAgain}) {
                const bool isFirstCode = code == CodesFor(calls[n].op).front();
                if (ending == Ending::SaveAgain && !(scenario_.kind == Kind::Save && isFirstCode)) continue;
                if (!IsTried()) continue;
                SCOPED_TRACE("call " + std::to_string(n) + " fails with " + std::to_string(code) + ", " +
                             testing::PrintToString(calls[n].target));
                PlayWith({.plan = [n, code](size_t number, const Call&) { return number == n ? code : 0; },
                          .ending = ending,
                          .goesOn = n % 2 == 0});
            }
        }
    }
    for (size_t n = 0; n < calls.size() && !HasFailure(); ++n) {
        if (!IsTried()) continue;
        SCOPED_TRACE("all calls fail from " + std::to_string(n) + " on, " + testing::PrintToString(calls[n].target));
        PlayWith({.plan = [n](size_t number, const Call& call) { return number >= n ? CodesFor(call.op).back() : 0; },
                  .goesOn = n % 2 == 0});
    }
    totalFaults += faults_;
    totalRuns += runs_;
    RecordProperty("runs", static_cast<int>(runs_));
    RecordProperty("faults", static_cast<int>(faults_));
    std::cout << scenario_.name << ": " << calls.size() << " calls, " << faults_ << " faults in " << runs_
              << " runs; so far " << totalFaults << " in " << totalRuns << "\n";
}

INSTANTIATE_TEST_SUITE_P(Scenarios, Torture, testing::Range(size_t{0}, Scenarios().size()),
                         [](const auto& scenario) { return NameInTests(Scenarios().at(scenario.param).name); });

}  // namespace
}  // namespace tests::torture
