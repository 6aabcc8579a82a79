// Pictures of the program in a list, from which a control draws them by number.
#pragma once

#include <windows.h>

#include <commctrl.h>

#include <memory>
#include <span>
#include <type_traits>

#include "ui/Icons.h"

namespace ui::win32 {

struct ImageListDeleter {
    void operator()(HIMAGELIST list) const;
};
using ImageListHandle = std::unique_ptr<std::remove_pointer_t<HIMAGELIST>, ImageListDeleter>;

// In this order, as squares of so many pixels; none when one of them cannot be had.
ImageListHandle MakeImageList(std::span<const Icon> icons, int pixels);

}  // namespace ui::win32
