// Follows a change of the monitor's resolution: fonts. Bounds and column widths are the dialog's own state.
#pragma once

#include <windows.h>

#include <cstdint>
#include <memory>
#include <type_traits>

#include "ui/Dialog.h"

namespace ui::win32 {

class Rescaling {
  public:
    // Remembers the font that the dialog opened with.
    void Attach(HWND dialog, uint32_t dpi);
    // Gives all controls the same font for another resolution.
    void ShowFont(HWND dialog, uint32_t dpi);

  private:
    struct FontDeleter {
        void operator()(HFONT font) const { DeleteObject(font); }
    };
    using FontHandle = std::unique_ptr<std::remove_pointer_t<HFONT>, FontDeleter>;

    LOGFONTW openingFont_{};
    uint32_t openingDpi_ = 96;
    FontHandle font_;
};

// Widens or narrows the columns of the dialog's lists with the resolution.
void RescaleColumns(const Dialog& dialog, uint32_t fromDpi, uint32_t toDpi);

}  // namespace ui::win32
