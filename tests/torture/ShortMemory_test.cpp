// Each scenario is played with memory running out: each single allocation of the program's own is refused,
// and all from one on. A command then ends as a whole, the user is told in one box, and the program goes on
// with nothing lost; where it has not started yet, it ends after one box. By default a few allocations are
// tried; BRISGATE_TORTURE=all tries many.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <iostream>
#include <string_view>

#include "tests/torture/Scenarios.h"
#include "tests/torture/ShortMemory.h"

namespace tests::torture {
namespace {

constexpr size_t usualRuns = 3;
constexpr size_t manyRuns = ShortMemory::Never;
constexpr wchar_t programEnds[] = L"The program has to end.\r\nThere is not enough memory.";

size_t RunsOfAScenario() {
    const char* const wanted = std::getenv("BRISGATE_TORTURE");
    return wanted != nullptr && std::string_view(wanted) == "all" ? manyRuns : usualRuns;
}

// The times of revocation lists are no part of the configuration.
std::string WithoutStamps(std::string trees) {
    const size_t stamps = trees.find("LastCrlUpdate = ");
    if (stamps != std::string::npos) trees.erase(stamps, trees.find('\n', stamps) + 1 - stamps);
    return trees;
}

size_t totalRuns = 0;

const Scenario& ScenarioNumber(size_t number) {
    const size_t outer = Scenarios().size();
    return number < outer ? Scenarios()[number] : InnerScenarios().at(number - outer);
}

class ShortOfMemory : public testing::TestWithParam<size_t> {
  protected:
    // The end of the test program looks for leaks, too.
    void TearDown() override { EXPECT_FALSE(RunsOfAScenario() == manyRuns && AnythingLeaked()); }
    void Check(const Outcome& outcome) const;
    void CheckModel(const Outcome& saved, const Outcome& left) const;

    const Scenario& scenario_ = ScenarioNumber(GetParam());
    size_t allocations_ = 0;
    const Outcome plain_ = Play(scenario_, {.allocations = &allocations_});
    const Outcome untouched_ = Play(scenario_, {.works = false});
    // What the next save writes, with the command carried out and without it.
    const std::string done_ = WithoutStamps(Play(scenario_, {.ending = Ending::SaveAgain}).trees);
    const std::string undone_ = WithoutStamps(Play(scenario_, {.ending = Ending::SaveAgain, .works = false}).trees);
    size_t runs_ = 0;
};

void ShortOfMemory::Check(const Outcome& outcome) const {
    if (outcome.memoryBoxes == 0 && outcome.started) {
        // There was another way to do it.
        EXPECT_EQ(outcome.trees, plain_.trees);
        EXPECT_EQ(outcome.reports, plain_.reports);
        return;
    }
    if (scenario_.kind == Kind::Load) {
        if (outcome.started) return;
        EXPECT_EQ(outcome.reports, (std::vector<Report>{{.text = programEnds, .flags = 0x10, .owned = false}}));
        return;
    }
    EXPECT_TRUE(outcome.started);
    for (const Report& report : outcome.reports) EXPECT_NE(report.text, programEnds);
    if (scenario_.kind == Kind::Save) {
        EXPECT_TRUE(outcome.unsaved);
        EXPECT_EQ(outcome.trees, plain_.trees);
    } else if (!outcome.unsaved) {
        EXPECT_EQ(WithoutStamps(outcome.trees), WithoutStamps(untouched_.trees));
    }
}

// What has changed counts as unsaved.
void ShortOfMemory::CheckModel(const Outcome& saved, const Outcome& left) const {
    const std::string trees = WithoutStamps(saved.trees);
    EXPECT_TRUE(left.unsaved || trees == undone_) << "a change that is not asked for when the user leaves";
    if (scenario_.oneStep) {
        EXPECT_TRUE(trees == undone_ || trees == done_) << trees;
    }
}

TEST_P(ShortOfMemory, ACommandEndsAsAWhole) {
    const size_t runs = std::min(RunsOfAScenario(), allocations_);
    for (size_t i = 0; i < runs && !HasFailure(); ++i) {
        const size_t n = i * allocations_ / runs;
        for (const size_t last : {n, ShortMemory::Never}) {
            SCOPED_TRACE("allocation " + std::to_string(n) + (last == n ? "" : " and all behind it"));
            const Outcome left = Play(scenario_, {.firstRefused = n, .lastRefused = last});
            Check(left);
            ++runs_;
            if (scenario_.kind != Kind::Command) continue;
            CheckModel(Play(scenario_, {.ending = Ending::SaveAgain, .firstRefused = n, .lastRefused = last}), left);
            ++runs_;
        }
    }
    totalRuns += runs_;
    RecordProperty("runs", static_cast<int>(runs_));
    std::cout << scenario_.name << ": " << allocations_ << " allocations, refused in " << runs_ << " runs; so far "
              << totalRuns << "\n";
}

INSTANTIATE_TEST_SUITE_P(Scenarios, ShortOfMemory,
                         testing::Range(size_t{0}, Scenarios().size() + InnerScenarios().size()),
                         [](const auto& scenario) { return NameInTests(ScenarioNumber(scenario.param).name); });

}  // namespace
}  // namespace tests::torture
