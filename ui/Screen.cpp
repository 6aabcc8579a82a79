#include "ui/Screen.h"

#include <new>

namespace ui {

// While the user is being told, further failures are the same one to him: one box is enough.
bool Screen::TellOfShortMemory(const Dialog& dialog) {
    if (!memoryTeller_) return false;
    if (std::exchange(isTelling_, true)) return true;
    bool told = true;
    try {
        memoryTeller_(dialog);
    } catch (const std::bad_alloc&) {
        told = false;
    }
    isTelling_ = false;
    return told;
}

}  // namespace ui
