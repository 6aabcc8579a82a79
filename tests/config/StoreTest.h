// The base of tests of the registry store: one key of the service is current, and memory can run out.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "tests/config/ConfigTest.h"
#include "tests/support/MachineWith.h"

namespace tests {

// Gives what the machine gives until it is told to refuse; remembers the sizes asked for.
class CountingMemory final : public platform::Memory {
  public:
    explicit CountingMemory(platform::Memory& real) : real_(real) {}
    std::vector<size_t> sizes;
    bool refuses = false;

    std::unique_ptr<std::byte[]> Allocate(size_t bytes, platform::Win32Code& error) override {
        sizes.push_back(bytes);
        if (!refuses) return real_.Allocate(bytes, error);
        error = code::NotEnoughMemory;
        return nullptr;
    }

  private:
    platform::Memory& real_;
};

class StoreTest : public ConfigTest {
  protected:
    // Below the service's own key, whose place in the test is known to be empty.
    static constexpr wchar_t KeyPath[] = L"SOFTWARE\\TALVERON\\morcelservice\\key";
    static constexpr char KeyLine[] = "[HKEY_LOCAL_MACHINE\\SOFTWARE\\TALVERON\\morcelservice\\key]\n";

    void SetUp() override {
        SeedTrees(KeyLine);
        Make();
    }
    void TearDown() override {
        Registry().NoFaults();
        keys_.reset();
        ConfigTest::TearDown();
    }

    // Puts the values, one a line, into the current key, which holds nothing else then.
    void SeedValues(const std::string& values) {
        keys_.reset();
        SeedTrees(KeyLine + values);
        Make();
    }
    std::string DumpKey() { return DumpMachine(KeyPath); }
    // What the key holds when these lines are its values.
    static std::string KeyWith(const std::string& values) { return KeyLine + values; }

    config::RegistryStore& Store() { return *keys_; }
    CountingMemory memory_{world_->Machine().Memory};

  private:
    void Make() {
        keys_ = std::make_unique<config::RegistryStore>(machine_, reporter_);
        ASSERT_TRUE(keys_->Open(platform::RootKey::LocalMachine, KeyPath, {}));
        Registry().ForgetCalls();
    }

    const platform::Machine machine_ = MachineWith(world_->Machine(), {.Memory = &memory_});
    std::unique_ptr<config::RegistryStore> keys_;
};

}  // namespace tests
