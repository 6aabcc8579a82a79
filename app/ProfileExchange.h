// The commands that carry the rules of a profile to another machine and back.
#pragma once

#include "config/Records.h"
#include "config/Services.h"
#include "ui/Dialog.h"

namespace app {

// Writes the profile's rules to a file that the user names. Failures have been reported.
void ExportRules(const config::Services& services, const ui::Dialog* owner,
                 const config::ServiceProfile& profile);

// Adds the rules of a file that the user chooses to the end of the profile's. Returns whether this counts as
// a change: the file held records, even where none of them was long enough for a rule. Otherwise the user
// gave up, a failure has been reported, or there was no record, and the profile is as it was.
[[nodiscard]] bool ImportRules(const config::Services& services, const ui::Dialog* owner,
                               config::ServiceProfile& profile);

}  // namespace app
