// A save that ends in the middle, because its process is ended: what there is to be saved over, and what may
// be found by the next start.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <string>
#include <vector>

#include "config/Records.h"
#include "platform/memory/FaultyRegistry.h"

namespace tests {

// How a process that saves tells what became of it.
inline constexpr uint32_t SaverSaved = 0;
inline constexpr uint32_t SaverWasEnded = 99;

// A day's work: settings, rules and names changed, a profile deleted and one added. Every step of a save has
// something to do then.
inline config::Configuration AfterADaysWork(config::Configuration configuration) {
    configuration.Settings.LogPath = L"D:\\Logs of the new machine";
    configuration.Settings.LogFilesize += 1000;
    std::vector<config::ServiceProfile>& profiles = configuration.Profiles;
    if (profiles.size() > 1) profiles.erase(profiles.begin());
    config::ServiceProfile added = profiles.back();
    for (config::ServiceProfile& profile : profiles) {
        profile.HandlerTimeout += 7;
        std::reverse(profile.Rules.begin(), profile.Rules.end());
        if (profile.Rules.empty()) continue;
        profile.Rules.front().Descryption = L"Moved to the front";
        profile.Rules.front().SignerLists.insert(profile.Rules.front().SignerLists.begin(), {L"!Added", {L"CN=Added"}});
    }
    added.Name = L"zz added";
    profiles.push_back(added);
    return configuration;
}

inline bool IsWrite(platform::memory::RegistryCall call) {
    using platform::memory::RegistryCall;
    return call == RegistryCall::Create || call == RegistryCall::Set || call == RegistryCall::DeleteSubkey;
}

inline const config::ServiceProfile* ProfileNamed(const config::Configuration& configuration,
                                                  const std::wstring& name) {
    for (const config::ServiceProfile& profile : configuration.Profiles)
        if (profile.Name == name) return &profile;
    return nullptr;
}

// Rules that the save has not come to, or some of them once it deletes them, one perhaps without its signer
// lists already; or those it has written, the last of them perhaps only in part.
inline bool AreRulesOnTheWay(const std::vector<config::Rule>& rules, const std::vector<config::Rule>& before,
                             const std::vector<config::Rule>& after) {
    const auto isNew = [&before](const config::Rule& rule) {
        return std::find(before.begin(), before.end(), rule) == before.end();
    };
    if (std::count_if(rules.begin(), rules.end(), isNew) <= 1 && rules.size() <= before.size()) return true;
    return rules.size() <= after.size() && std::equal(rules.begin(), rules.end() - 1, after.begin());
}

// Between the deletion of the last profile and the creation of the first new one there is none at all: the
// next start is a first one.
inline bool IsFirstStart(const config::Configuration& found) {
    return found.Profiles.size() == 1 && found.Profiles[0].Name == L"default";
}

// What any other start finds after a save was ended somewhere between these two: at most one profile is in
// the middle of its way from the one to the other, and no rule in it is but the one that was being written.
inline void ExpectOnTheWay(const config::Configuration& found, const config::Configuration& before,
                           const config::Configuration& after) {
    static const config::ServiceProfile none;
    size_t onTheWay = 0;
    for (const config::ServiceProfile& profile : found.Profiles) {
        const config::ServiceProfile* old = ProfileNamed(before, profile.Name);
        const config::ServiceProfile* wanted = ProfileNamed(after, profile.Name);
        ASSERT_TRUE(old != nullptr || wanted != nullptr);
        if ((old != nullptr && profile == *old) || (wanted != nullptr && profile == *wanted)) continue;
        ++onTheWay;
        EXPECT_TRUE(AreRulesOnTheWay(profile.Rules, (old != nullptr ? *old : none).Rules,
                                     (wanted != nullptr ? *wanted : none).Rules));
    }
    EXPECT_LE(onTheWay, 1U);
    for (const config::ServiceProfile& profile : before.Profiles) {
        const bool stays = ProfileNamed(after, profile.Name) != nullptr;
        EXPECT_TRUE(!stays || ProfileNamed(found, profile.Name) != nullptr);
    }
}

}  // namespace tests
