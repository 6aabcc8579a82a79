// The base of scenarios that work with the whole program: a world, the services of the dialogs, and the
// registry as text.
#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "config/Services.h"
#include "demo/RegistryText.h"
#include "tests/support/Boxes.h"
#include "tests/support/World.h"

namespace tests {

class WorldTest : public ::testing::Test {
  protected:
    void Seed(const std::string& text) { demo::ApplyRegistryText(text, world_->Machine().Registry); }
    // The service's tree.
    std::string Dump() {
        return demo::DumpRegistryKey(world_->Machine().Registry, platform::RootKey::LocalMachine,
                                     L"SOFTWARE\\TALVERON\\morcelservice");
    }

    const std::unique_ptr<World> world_ = World::Make();
    Robot& user_ = world_->User();
    const errors::ErrorReporter reporter_{world_->Machine(), world_->Screen()};
    config::RegistryStore store_{world_->Machine(), reporter_};
    const config::Services services_{world_->Machine(), world_->Screen(), reporter_, store_};
};

}  // namespace tests
