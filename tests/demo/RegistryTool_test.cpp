#include "demo/RegistryTool.h"

#include <gtest/gtest.h>

#include <stdexcept>

#include "demo/RegistryText.h"
#include "tests/support/TestRegistry.h"

namespace {

using demo::DumpRegistry;
using demo::SeedRegistry;
using demo::SeedRegistryOnce;

const std::string profile =
    "[HKEY_LOCAL_MACHINE\\SOFTWARE\\TALVERON\\morcelservice]\nLogPath = \"C:\\Logs\"\n\n"
    "[HKEY_LOCAL_MACHINE\\SOFTWARE\\TALVERON\\morcelservice\\default]\nHandler timeout = 15\n";
const std::string store =
    "[HKEY_CURRENT_USER\\SOFTWARE\\TALVERON\\morcel]\n\n"
    "[HKEY_CURRENT_USER\\SOFTWARE\\TALVERON\\morcel\\Profiles]\n";
const std::string bareService = "[HKEY_LOCAL_MACHINE\\SOFTWARE\\TALVERON\\morcelservice]\nold = 1\n";

class RegistryToolTest : public testing::Test {
  protected:
    const std::unique_ptr<platform::RegistryBackend> registry_ = tests::MakeTestRegistry();
};

TEST_F(RegistryToolTest, MissingTreesAreDumpedAsNothing) {
    EXPECT_EQ(DumpRegistry(*registry_), "");
    SeedRegistry(store, *registry_);
    EXPECT_EQ(DumpRegistry(*registry_), store);
}

TEST_F(RegistryToolTest, ADumpSeedsTheSameTreesAgain) {
    SeedRegistry(store + "\n" + profile, *registry_);
    EXPECT_EQ(DumpRegistry(*registry_), profile + "\n" + store);
    SeedRegistry(DumpRegistry(*registry_), *registry_);
    EXPECT_EQ(DumpRegistry(*registry_), profile + "\n" + store);
}

TEST_F(RegistryToolTest, SeedingLeavesNothingOfTheOldTreesAndEverythingElse) {
    demo::ApplyRegistryText("[HKEY_LOCAL_MACHINE\\SOFTWARE\\TALVERON\\other]\nx = 1\n", *registry_);
    SeedRegistry(profile + "\n" + store, *registry_);
    SeedRegistry(bareService, *registry_);
    EXPECT_EQ(DumpRegistry(*registry_), bareService);
    EXPECT_EQ(demo::DumpRegistryKey(*registry_, platform::RootKey::LocalMachine, L"SOFTWARE\\TALVERON\\other"),
              "[HKEY_LOCAL_MACHINE\\SOFTWARE\\TALVERON\\other]\nx = 1\n");
}

TEST_F(RegistryToolTest, SeedingOnceLeavesAConfigurationAlone) {
    EXPECT_TRUE(SeedRegistryOnce(profile, *registry_));
    EXPECT_FALSE(SeedRegistryOnce(bareService, *registry_));
    EXPECT_EQ(DumpRegistry(*registry_), profile);
}

TEST_F(RegistryToolTest, SeedingOnceReplacesAServiceWithoutProfiles) {
    SeedRegistry(bareService, *registry_);
    EXPECT_TRUE(SeedRegistryOnce(profile, *registry_));
    EXPECT_EQ(DumpRegistry(*registry_), profile);
}

TEST_F(RegistryToolTest, BrokenTextIsRefused) {
    EXPECT_THROW(SeedRegistry("nonsense", *registry_), std::runtime_error);
}

}  // namespace
