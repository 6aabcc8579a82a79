// Places and sizes. Dialogs are laid out in dialog units; what a window measures is in pixels of its monitor.
#pragma once

#include <cstdint>

namespace ui {

// Halves are rounded away from zero, as the system does where it scales.
constexpr int Scaled(int number, int64_t numerator, int64_t denominator) {
    const int64_t product = number * numerator;
    const int64_t half = product < 0 ? -(denominator / 2) : denominator / 2;
    return static_cast<int>((product + half) / denominator);
}

struct Size {
    int width = 0;
    int height = 0;
    bool operator==(const Size&) const = default;
};

struct Rect {
    int x = 0;
    int y = 0;
    int width = 0;
    int height = 0;
    bool operator==(const Rect&) const = default;
};

// How a control follows the lower right corner of its dialog: per cent of the dialog's growth.
struct Follow {
    int moveX = 0;
    int moveY = 0;
    int growX = 0;
    int growY = 0;
    bool operator==(const Follow&) const = default;
};

inline constexpr Follow StayPut{};
inline constexpr Follow MoveBoth{100, 100, 0, 0};
inline constexpr Follow GrowX{0, 0, 100, 0};
inline constexpr Follow GrowY{0, 0, 0, 100};
inline constexpr Follow GrowBoth{0, 0, 100, 100};

// Where a control stands, in dialog units, and what it does when the dialog is resized.
struct Place {
    int x = 0;
    int y = 0;
    int width = 0;
    int height = 0;
    Follow follow = StayPut;
};

}  // namespace ui
