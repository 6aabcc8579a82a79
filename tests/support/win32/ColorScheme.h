// Other colours of the system for the time of a test.
#pragma once

#include <windows.h>

#include <array>

namespace tests {

// Of buttons and dialogs, and of the texts upon them that cannot be used.
struct ButtonColors {
    COLORREF ground;
    COLORREF ink;
};

class ColorScheme {
  public:
    explicit ColorScheme(const ButtonColors& colors)
        : before_{GetSysColor(COLOR_BTNFACE), GetSysColor(COLOR_GRAYTEXT)} {
        Set({colors.ground, colors.ink});
    }
    ~ColorScheme() { Set(before_); }
    ColorScheme(const ColorScheme&) = delete;
    ColorScheme& operator=(const ColorScheme&) = delete;

  private:
    // All windows of the desktop hear of it.
    static void Set(const std::array<COLORREF, 2>& colors) {
        constexpr std::array<INT, 2> Elements{COLOR_BTNFACE, COLOR_GRAYTEXT};
        SetSysColors(2, Elements.data(), colors.data());
    }

    const std::array<COLORREF, 2> before_;
};

}  // namespace tests
