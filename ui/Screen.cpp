#include "ui/Screen.h"

#include <new>

namespace ui {

ScreenError::ScreenError(uint32_t code, std::wstring operation)
    : std::runtime_error(std::string(operation.begin(), operation.end()) + ", error " + std::to_string(code)),
      code_(code),
      operation_(std::move(operation)) {}

// While one failure is being reported, further ones are the same to the user: one box is enough.
bool Screen::ReportFailure(const Dialog& dialog, const ScreenError* failure) {
    if (!failureHandler_) return false;
    if (std::exchange(isReporting_, true)) return true;
    bool reported = true;
    try {
        failureHandler_(dialog, failure);
    } catch (const std::bad_alloc&) {
        reported = false;
    }
    isReporting_ = false;
    return reported;
}

}  // namespace ui
