#include "tests/support/World.h"

#include "platform/memory/MemoryMachine.h"
#include "tests/support/memory/MemoryRobot.h"
#include "ui/memory/MemoryScreen.h"

namespace tests {
namespace {

class MemoryWorld final : public World {
  public:
    platform::Machine& Machine() override { return machine_.Machine; }
    platform::memory::FaultyRegistry& Registry() override { return machine_.Registry; }
    platform::memory::MemoryCryptoLibrary& CryptoLibrary() override { return machine_.CryptoLibrary; }
    RecordingScreen& Screen() override { return screen_; }
    Robot& User() override { return robot_; }

  private:
    platform::memory::MemoryMachine machine_;
    ui::memory::MemoryScreen memoryScreen_{machine_.ScreenMetrics};
    RecordingScreen screen_{memoryScreen_};
    MemoryRobot robot_{memoryScreen_};
};

}  // namespace

std::unique_ptr<World> World::Make() {
    return std::make_unique<MemoryWorld>();
}

}  // namespace tests
