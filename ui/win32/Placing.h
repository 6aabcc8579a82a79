// Where windows are, how large they are, and what a dialog measures at other resolutions than the one that it
// opened with: its font, its dialog units and its frame.
#pragma once

#include <windows.h>

#include <cstdint>
#include <memory>
#include <type_traits>

#include "ui/Geometry.h"

namespace ui::win32 {

// Over the middle of its owner, or of the screen where there is none to be seen, and wholly on the screen.
void CenterOnOwner(HWND window);

// Gives the window the outer size that leaves this much room for its controls.
void ResizeClient(HWND window, Size client);

// Within the client area of the window that it stands in.
Rect BoundsIn(HWND parent, HWND control);

// The place of a window that is neither minimised nor maximised. Moving leaves it hidden, minimised or
// maximised if it is.
Rect NormalRectOf(HWND window);
void MoveNormalRect(HWND window, const Rect& rect);

class Rescaling {
  public:
    // Remembers the font that the dialog opened with.
    void Attach(HWND dialog);
    // Gives all controls the font that they would have if the dialog opened at this resolution.
    void ShowFont(HWND dialog, uint32_t dpi);

    // Four dialog units across and eight down, in pixels: a letter of that font as the system reckons it. It
    // does not grow evenly.
    Size LetterAt(uint32_t dpi) const;

  private:
    struct FontDeleter {
        void operator()(HFONT font) const { DeleteObject(font); }
    };
    using FontHandle = std::unique_ptr<std::remove_pointer_t<HFONT>, FontDeleter>;
    FontHandle FontFor(uint32_t dpi) const;

    LOGFONTW openingFont_{};
    FontHandle font_;
};

// What the dialog units are in pixels where a letter has this size.
Rect ToPixels(const Place& units, Size letter);

// Of the window around so much room for its controls, at a resolution. Captions, borders and menus do not
// grow evenly, either.
Size OuterSizeFor(HWND window, Size client, uint32_t dpi);

}  // namespace ui::win32
