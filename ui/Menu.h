// A menu bar as plain data.
#pragma once

#include <string>
#include <vector>

namespace ui {

struct MenuItem {
    int command = 0;
    std::wstring text;
    bool enabled = true;
    bool operator==(const MenuItem&) const = default;
};

struct Menu {
    std::wstring title;
    std::vector<MenuItem> items;
    bool operator==(const Menu&) const = default;
};

}  // namespace ui
