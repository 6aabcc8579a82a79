// Where controls stand to each other, in dialog units or in pixels.
#pragma once

#include "ui/Geometry.h"

namespace tests {

inline bool Overlap(const ui::Rect& a, const ui::Rect& b) {
    return a.x < b.x + b.width && b.x < a.x + a.width && a.y < b.y + b.height && b.y < a.y + a.height;
}

}  // namespace tests
