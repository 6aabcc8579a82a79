#include "tests/support/World.h"

#include <gtest/gtest.h>

#include <optional>

#include "platform/win32/Win32Machine.h"
#include "tests/support/MachineWith.h"
#include "tests/support/RecordingScreen.h"
#include "tests/support/TestRegistry.h"
#include "tests/support/win32/Win32Robot.h"
#include "ui/win32/Pickers.h"
#include "ui/win32/Win32Screen.h"

namespace tests {
namespace {

// The real machine, with the registry of tests in place of the one that the machine's own programs use, and
// with the library that a test chooses.
class RealWorld final : public World {
  public:
    platform::Machine& Machine() override { return machine_; }
    platform::memory::FaultyRegistry& Registry() override { return registry_; }
    platform::memory::MemoryCryptoLibrary& CryptoLibrary() override { return library_; }
    RecordingScreen& Screen() override { return screen_; }
    Robot& User() override { return robot_; }

  private:
    platform::win32::Win32Machine parts_;
    const std::unique_ptr<platform::RegistryBackend> storedRegistry_ = MakeTestRegistry();
    platform::memory::MemoryCryptoLibrary library_;
    platform::memory::FaultyRegistry registry_{*storedRegistry_};
    platform::Machine machine_ = MachineWith(parts_.Machine, {.Registry = &registry_, .CryptoLibrary = &library_});
    ui::win32::Win32Screen realScreen_{parts_.ScreenMetrics};
    RecordingScreen screen_{realScreen_};
    Win32Robot robot_{screen_};
};

// As in the program, before anything that could ask for another one.
class Apartment : public testing::Environment {
  public:
    void SetUp() override { apartment_.emplace(); }
    void TearDown() override { apartment_.reset(); }

  private:
    std::optional<ui::win32::ComponentApartment> apartment_;
};
const testing::Environment* const apartment = testing::AddGlobalTestEnvironment(new Apartment);

}  // namespace

std::unique_ptr<World> World::Make() {
    return std::make_unique<RealWorld>();
}

}  // namespace tests
