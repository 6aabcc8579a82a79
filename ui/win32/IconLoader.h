// The pictures of the program as the system's icons, alone and in lists.
#pragma once

#include <windows.h>

#include <commctrl.h>

#include <cstdint>
#include <memory>
#include <span>
#include <type_traits>

#include "ui/Geometry.h"
#include "ui/Icons.h"

namespace ui::win32 {

struct IconDeleter {
    void operator()(HICON icon) const { DestroyIcon(icon); }
};
using IconHandle = std::unique_ptr<std::remove_pointer_t<HICON>, IconDeleter>;

// The icon in a square of so many pixels; none when the program carries no such picture.
IconHandle LoadPicture(Icon icon, int pixels);

// The same in the system's colour of texts that cannot be used, as it is now.
IconHandle FadedPicture(HICON icon);

// One through which everything is seen: it keeps a button that draws its own picture from showing its text.
IconHandle EmptyPicture();

// The largest size in which icons are drawn that fits into a control of this size.
int PictureSizeFor(Size control);
// The same for a button on a monitor of this resolution: what the button shows at the normal one, and the air
// around it, grow with the resolution.
int ButtonPictureSizeFor(Size control, uint32_t dpi);

struct ImageListDeleter {
    void operator()(HIMAGELIST list) const;
};
using ImageListHandle = std::unique_ptr<std::remove_pointer_t<HIMAGELIST>, ImageListDeleter>;

// Pictures in a list, from which a control draws them by number: in this order, as squares of so many pixels;
// none when one of them cannot be had.
ImageListHandle MakeImageList(std::span<const Icon> icons, int pixels);

}  // namespace ui::win32
