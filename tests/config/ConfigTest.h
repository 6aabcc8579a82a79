// The base of tests of the configuration: a world, its registry as text, loading and saving, and expected
// reports.
#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "config/Load.h"
#include "config/RegistryStore.h"
#include "config/Save.h"
#include "demo/RegistryTool.h"
#include "tests/support/Fixture.h"
#include "text/Numbers.h"

namespace tests {

using platform::memory::RegistryCall;
namespace code = platform::code;

class ConfigTest : public WorldTest {
  protected:
    void TearDown() override { EXPECT_EQ(Registry().OpenKeys(), 0U) << "a key stayed open"; }

    platform::memory::FaultyRegistry& Registry() { return world_->Registry(); }

    // Both trees, from nothing; the calls for it are forgotten.
    void SeedTrees(std::string_view trees) {
        Registry().NoFaults();
        demo::SeedRegistry(trees, Registry());
        Registry().ForgetCalls();
    }
    std::string DumpTrees() {
        Registry().NoFaults();
        return demo::DumpRegistry(Registry());
    }
    // A key of the machine and all below it, the calls for it forgotten.
    std::string DumpMachine(const std::wstring& path) {
        return demo::DumpRegistryKey(Registry(), platform::RootKey::LocalMachine, path);
    }

    // Every load and save uses a store of its own, so that no key may be left open afterwards.
    std::optional<config::Configuration> Load() { return LoadReportingTo(reporter_); }
    std::optional<config::Configuration> LoadReportingTo(const errors::ErrorReporter& reporter) {
        config::RegistryStore store(world_->Machine(), reporter);
        return config::LoadConfiguration(store, nullptr);
    }
    bool Save(const config::Configuration& configuration) { return SaveReportingTo(reporter_, configuration); }
    bool SaveReportingTo(const errors::ErrorReporter& reporter, const config::Configuration& configuration) {
        config::RegistryStore store(world_->Machine(), reporter);
        return config::SaveConfiguration(store, nullptr, configuration);
    }
};

}  // namespace tests
