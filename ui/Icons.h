// The pictures that the program carries.
#pragma once

#include <array>
#include <cstddef>

namespace ui {

#define PICTURE(name, file) name,
enum class Icon {
    None,
#include "ui/Icons.inc"
};
#undef PICTURE

// Their names, None included, in the order of their numbers; the resources have the same names.
#define PICTURE(name, file) L"" #name,
inline constexpr std::array IconNames{
    L"None",
#include "ui/Icons.inc"
};
#undef PICTURE

constexpr const wchar_t* NameOf(Icon icon) {
    return IconNames[static_cast<size_t>(icon)];
}

}  // namespace ui
