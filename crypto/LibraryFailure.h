// How failures of the library while a context is opened are told: in a box with all details, and where the
// user may go on without what failed, with a question behind it.
#pragma once

#include <cstdint>
#include <string>

#include "config/Services.h"

namespace crypto {

struct LibraryFailure {
    uint32_t code = 0;       // of the library, or of the system when there is no library
    std::wstring operation;  // what was being done
    std::wstring detail;     // what else is known, in lines of its own
};

// Shows the failure with everything known about it. owner: none, or the dialog in front of which it appears.
void ShowLibraryFailure(const config::Services& services, ui::Dialog* owner, const LibraryFailure& failure);

// Shows the failure in a box without an owner, then asks the question behind the failure's description. True:
// the user wants to go on.
bool GoesOnAfter(const config::Services& services, const ui::Dialog& parent, const LibraryFailure& failure,
                 const std::wstring& question);

}  // namespace crypto
