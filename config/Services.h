// What every dialog may ask for, handed down by constructor.
#pragma once

#include "config/RegistryStore.h"
#include "errors/ErrorReport.h"
#include "platform/Machine.h"
#include "ui/Screen.h"

namespace config {

struct Services {
    const platform::Machine& Machine;
    ui::Screen& Screen;
    const errors::ErrorReporter& Errors;
    RegistryStore& Registry;
};

}  // namespace config
