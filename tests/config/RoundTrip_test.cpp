// What is saved is what is loaded, for any configuration.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/config/ConfigTest.h"
#include "tests/config/GoldenTree.h"
#include "tests/config/RandomModel.h"
#include "tests/config/TreeText.h"

namespace {

constexpr uint32_t modelSeed = 20250117;
constexpr int rounds = 40;

class RoundTrip : public tests::ConfigTest {
  protected:
    void SetUp() override { SeedTrees(tests::GoldenLibrary + tests::Key(tests::ServiceKey)); }
    tests::RandomModel random_{modelSeed};
};

TEST_F(RoundTrip, RandomConfigurationsSavedOneOverTheOther) {
    for (int round = 0; round < rounds; ++round) {
        SCOPED_TRACE("modelSeed " + std::to_string(modelSeed) + ", round " + std::to_string(round));
        const config::Configuration configuration = random_.Next();
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

}  // namespace
