// Configurations of any size to measure with, and the two runs that are measured.
#pragma once

#include "config/Records.h"
#include "platform/Machine.h"
#include "ui/Screen.h"

namespace bench {

// One profile with so many rules, as an administrator would have them.
config::Configuration SampleConfiguration(size_t rules);
// As many profiles of one rule each.
config::Configuration SampleOfProfiles(size_t profiles);

// Each throws std::runtime_error when it does not succeed.
// Creates the empty trees of the library and the service.
void CreateTrees(platform::RegistryBackend& registry);

config::Configuration Load(const platform::Machine& machine, ui::Screen& screen);
void Save(const platform::Machine& machine, ui::Screen& screen, const config::Configuration& configuration);

// How long a save takes to work out what its record holds.
double PlanMilliseconds(const platform::Machine& machine, ui::Screen& screen,
                        const config::Configuration& configuration);

}  // namespace bench
