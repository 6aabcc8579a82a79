// Random walks through the whole program. By default a few, always the same; the environment asks for others:
// BRISGATE_WALKS, how many, BRISGATE_WALK_SEED, the number of the first one, and BRISGATE_WALK_SECONDS, after
// how long no further one begins.
#include <gtest/gtest.h>

#include <chrono>
#include <cstdlib>
#include <iostream>

#include "tests/model/Walk.h"

namespace tests {
namespace {

constexpr uint32_t commandsOfAWalk = 180;
constexpr uint32_t usualWalks = 30;
constexpr uint32_t secondsOfADay = 24 * 60 * 60;

uint32_t FromEnvironment(const char* name, uint32_t otherwise) {
    const char* const text = std::getenv(name);
    return text == nullptr ? otherwise : static_cast<uint32_t>(std::strtoul(text, nullptr, 10));
}

TEST(RandomWalk, TheProgramDoesWhatTheModelSays) {
    const uint32_t first = FromEnvironment("BRISGATE_WALK_SEED", 1);
    const uint32_t walks = FromEnvironment("BRISGATE_WALKS", usualWalks);
    const std::chrono::seconds patience(FromEnvironment("BRISGATE_WALK_SECONDS", secondsOfADay));
    const auto end = std::chrono::steady_clock::now() + patience;
    uint32_t seed = first;
    for (; seed < first + walks && !HasFailure() && std::chrono::steady_clock::now() < end; ++seed) {
        const std::unique_ptr<World> world = World::Make();
        model::Walk walk(*world, seed);
        walk.Run(commandsOfAWalk);
        if (HasFailure())
            std::cout << "BRISGATE_WALK_SEED=" << seed << " BRISGATE_WALKS=1 shows this again:\n" << walk.Story();
    }
    EXPECT_GT(seed, first) << "not one walk";
    std::cout << "Walks " << first << " to " << seed - 1 << "\n";
}

}  // namespace
}  // namespace tests
