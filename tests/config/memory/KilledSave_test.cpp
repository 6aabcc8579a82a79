// A save is ended before each of its writes in turn, as if the process had been ended there. The record that
// it has made completes it, also when that is ended in turn; who does not want that finds nothing worse than
// one report at the next start, and the next save makes everything whole.
#include "tests/config/KilledSave.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <optional>
#include <sstream>
#include <string>

#include "config/RedoRecord.h"
#include "config/RegistryLayout.h"
#include "tests/config/FaultTest.h"
#include "tests/config/GoldenTree.h"
#include "tests/config/RandomModel.h"
#include "tests/config/TreeText.h"

namespace {

using config::Configuration;
using tests::RecordedCall;
using tests::Reports;

struct Killed {};

std::string DemoText() {
    std::stringstream text;
    text << std::ifstream("demo/configuration.txt", std::ios::binary).rdbuf();
    return text.str();
}

class KilledSave : public tests::FaultTest {
  protected:
    std::optional<Configuration> LoadWithReports() {
        screen_.boxes.clear();
        return LoadReportingTo(faultReporter_);
    }
    void SaveAll(const Configuration& configuration) {
        Registry().NoFaults();
        screen_.boxes.clear();
        ASSERT_TRUE(SaveReportingTo(faultReporter_, configuration));
        ASSERT_EQ(screen_.Reports(), Reports{});
    }
    void KillBefore(size_t write) {
        writes_ = 0;
        Registry().ForgetCalls();
        Registry().SetFault([this, write](size_t, const RecordedCall& call) {
            if (tests::IsWrite(call.call) && writes_++ == write) throw Killed();
            return tests::code::Success;
        });
    }
    // False when the save came to its end before that write.
    bool SaveKilledBefore(size_t write, const Configuration& configuration) {
        KillBefore(write);
        bool killed = false;
        try {
            EXPECT_TRUE(SaveReportingTo(faultReporter_, configuration));
        } catch (const Killed&) {
            killed = true;
        }
        Registry().NoFaults();
        return killed;
    }

    std::string Service() { return DumpMachine(config::ServiceRoot); }
    bool CompletionKilledBefore(config::RedoRecord& record, size_t write) {
        KillBefore(write);
        bool killed = false;
        try {
            EXPECT_TRUE(record.Complete());
        } catch (const Killed&) {
            killed = true;
        }
        Registry().NoFaults();
        return killed;
    }

    // The tree is what it was, or the record makes it what it was to be, however often that is ended as well:
    // before every so many of its writes, if at all.
    void ExpectAllOrNothing(const std::string& before, const std::string& after, size_t killStep) {
        config::RegistryStore store(world_->Machine(), faultReporter_);
        config::RedoRecord record(store, nullptr);
        const auto state = record.Find();
        if (state == config::RedoRecord::State::Missing) {
            // Before the save had anything to do, or when it had ended.
            EXPECT_TRUE(Service() == before || Service() == after);
        } else {
            ASSERT_EQ(state, config::RedoRecord::State::Whole);
            for (size_t write = 0; killStep != 0 && CompletionKilledBefore(record, write); write += killStep)
                ASSERT_EQ(record.Find(), config::RedoRecord::State::Whole);
            if (killStep == 0) {
                EXPECT_TRUE(record.Complete());
            }
            EXPECT_EQ(Service(), after);
        }
        if (!LoadWithReports()) ++refusedStarts_;
        EXPECT_EQ(screen_.Reports(), Reports{});
    }

    // Whoever puts the completion off: a start is refused, with one report, while a profile has no key for
    // its rules.
    void ExpectAStart(const Configuration& before, const Configuration& after) {
        const auto found = LoadWithReports();
        if (found) {
            EXPECT_EQ(screen_.Reports(), Reports{});
            if (!tests::IsFirstStart(*found)) tests::ExpectOnTheWay(*found, before, after);
            return;
        }
        ASSERT_EQ(screen_.boxes.size(), 1U);
        EXPECT_TRUE(screen_.Reports()[0].starts_with(L"Create (open) register key " + tests::ServicePath));
        EXPECT_TRUE(screen_.Reports()[0].ends_with(L"\\rules.\r\nError 0x2 - "));
    }

    // Every step-th write of the way from one configuration to the other. Both must be whole again when the
    // save has been completed, and after the next save where it has not; and so must the way back be.
    size_t KillOnTheWay(const Configuration& before, const Configuration& after, size_t step = 1) {
        SaveAll(after);
        const std::string whole = DumpTrees();
        const std::string serviceAfter = Service();
        SaveAll(before);
        const std::string serviceBefore = Service();
        size_t kills = 0;
        for (size_t write = 0; SaveKilledBefore(write, after); write += step) {
            SCOPED_TRACE(write);
            if (++kills % putOffStep_ == 0) {
                ExpectAStart(before, after);
            } else {
                ExpectAllOrNothing(serviceBefore, serviceAfter, kills % killAgainStep_ == 0 ? 31 : 0);
            }
            SaveAll(after);
            EXPECT_EQ(DumpTrees(), whole);
            SaveAll(before);
            if (HasFailure()) break;
        }
        EXPECT_EQ(refusedStarts_, 0U);
        return kills;
    }
    void Tell(const char* what, size_t kills) const {
        std::printf("%s: ended at %zu writes, %zu of the completed starts refused\n", what, kills, refusedStarts_);
    }

    static constexpr size_t putOffStep_ = 5;
    static constexpr size_t killAgainStep_ = 7;
    size_t writes_ = 0;
    size_t refusedStarts_ = 0;
};

TEST_F(KilledSave, TheGoldenConfiguration) {
    SeedTrees(tests::GoldenTrees);
    const auto before = Load();
    ASSERT_TRUE(before);
    const Configuration after = tests::AfterADaysWork(*before);
    const size_t kills = KillOnTheWay(*before, after) + KillOnTheWay(after, *before);
    EXPECT_GT(kills, 150U);
    Tell("golden configuration", kills);
}

TEST_F(KilledSave, TheDemoConfiguration) {
    SeedTrees(DemoText());
    SaveAll(*Load());
    const auto before = Load();
    ASSERT_TRUE(before);
    // Every write of so many is much: all of them only where it is asked for.
    const char* step = std::getenv("BRISGATE_KILL_STEP");
    const size_t kills = KillOnTheWay(*before, tests::AfterADaysWork(*before), step == nullptr ? 19 : std::stoul(step));
    EXPECT_GT(kills, 40U);
    Tell("demo configuration", kills);
}

TEST_F(KilledSave, RandomConfigurations) {
    SeedTrees(tests::GoldenLibrary + tests::Key(tests::ServiceKey));
    tests::RandomModel random(20260117);
    size_t kills = 0;
    for (int round = 0; round < 2; ++round) {
        const Configuration before = random.Next();
        kills += KillOnTheWay(before, tests::AfterADaysWork(before), 41);
        kills += KillOnTheWay(before, random.Next(), 41);
    }
    Tell("random configurations", kills);
}

}  // namespace
