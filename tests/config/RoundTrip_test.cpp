// What is saved is what is loaded, for any configuration.
#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <vector>

#include "config/RoundTrip.h"
#include "tests/config/ConfigTest.h"
#include "tests/config/GoldenTree.h"
#include "tests/config/HostileModel.h"
#include "tests/config/RandomModel.h"
#include "tests/config/TreeText.h"

namespace {

constexpr uint32_t modelSeed = 20250117;
constexpr int rounds = 40;

class RoundTrip : public tests::ConfigTest {
  protected:
    void SetUp() override {
        screen_.ExpectOnlyReports();
        SeedTrees(tests::GoldenLibrary + tests::Key(tests::ServiceKey));
    }
    std::optional<config::Configuration> SavedAndLoaded(const config::Configuration& configuration) {
        static_cast<void>(SaveReportingTo(toNobody_, configuration));
        return LoadReportingTo(toNobody_);
    }

    tests::RandomModel random_{modelSeed};
    tests::Saboteur saboteur_{modelSeed};
    tests::RecordingScreen screen_{world_->Screen()};
    const errors::ErrorReporter toNobody_{world_->Machine(), screen_};
};

TEST_F(RoundTrip, RandomConfigurationsSavedOneOverTheOther) {
    for (int round = 0; round < rounds; ++round) {
        SCOPED_TRACE("modelSeed " + std::to_string(modelSeed) + ", round " + std::to_string(round));
        const config::Configuration configuration = random_.Next();
        ASSERT_EQ(config::FindUnreadable(configuration).size(), 0U);
        ASSERT_TRUE(Save(configuration));
        ASSERT_EQ(Load(), configuration);
    }
}

TEST_F(RoundTrip, RulesWithoutOperationAreLeftOut) {
    for (int round = 0; round < rounds / 4; ++round) {
        SCOPED_TRACE("modelSeed " + std::to_string(modelSeed) + ", round " + std::to_string(round));
        config::Configuration configuration = random_.Next();
        for (config::ServiceProfile& profile : configuration.Profiles)
            for (size_t i = 0; i < profile.Rules.size(); i += 3) profile.Rules[i].Operation.clear();
        ASSERT_TRUE(Save(configuration));
        for (config::ServiceProfile& profile : configuration.Profiles)
            std::erase_if(profile.Rules, [](const config::Rule& rule) { return rule.Operation.empty(); });
        ASSERT_EQ(Load(), configuration);
    }
}

TEST_F(RoundTrip, SavingTheSameAgainChangesNothing) {
    for (int round = 0; round < rounds / 4; ++round) {
        const config::Configuration configuration = random_.Next();
        ASSERT_TRUE(Save(configuration));
        const auto first = Load();
        ASSERT_TRUE(first);
        ASSERT_TRUE(Save(*first));
        ASSERT_EQ(Load(), first) << "modelSeed " << modelSeed << ", round " << round;
    }
}

TEST_F(RoundTrip, WhatLoadingPutsRightIsNotNamed) {
    for (int round = 0; round < rounds; ++round) {
        SCOPED_TRACE("modelSeed " + std::to_string(modelSeed) + ", round " + std::to_string(round));
        config::Configuration configuration = random_.Next();
        saboteur_.Loosen(configuration);
        ASSERT_EQ(config::FindUnreadable(configuration).size(), 0U);
        ASSERT_EQ(SavedAndLoaded(configuration), tests::AsLoaded(configuration));
        ASSERT_EQ(screen_.boxes.size(), 0U);
    }
}

// And nothing else is named.
TEST_F(RoundTrip, WhatCannotBeReadBackIsNamed) {
    for (int round = 0; round < 5 * rounds; ++round) {
        SCOPED_TRACE("modelSeed " + std::to_string(modelSeed) + ", round " + std::to_string(round));
        config::Configuration configuration = random_.Next();
        if (round % 2 == 0) saboteur_.Loosen(configuration);
        const config::Unreadable damage = saboteur_.Damage(configuration);
        std::vector<config::Unreadable> found = config::FindUnreadable(configuration);
        ASSERT_EQ(found.size(), 1U) << static_cast<int>(damage.Why);
        EXPECT_NE(found[0].Field, L"");
        found[0].Field.clear();
        ASSERT_EQ(found[0], damage);
        ASSERT_FALSE(SavedAndLoaded(configuration) == tests::AsLoaded(configuration)) << static_cast<int>(damage.Why);
    }
}

TEST_F(RoundTrip, WhateverIsDoneToAConfigurationItComesBackOrIsNamed) {
    size_t cameBack = 0;
    for (int round = 0; round < 3 * rounds; ++round) {
        SCOPED_TRACE("modelSeed " + std::to_string(modelSeed) + ", round " + std::to_string(round));
        config::Configuration configuration = random_.Next();
        saboteur_.Loosen(configuration);
        for (int damages = round % 4; damages > 0; --damages) saboteur_.Damage(configuration);
        const bool isNamed = !config::FindUnreadable(configuration).empty();
        const bool comesBack = SavedAndLoaded(configuration) == tests::AsLoaded(configuration);
        ASSERT_NE(isNamed, comesBack);
        if (comesBack) ++cameBack;
    }
    EXPECT_EQ(cameBack, 3U * rounds / 4);
}

}  // namespace
