#include "ui/win32/MenuBar.h"

#include <algorithm>

namespace ui::win32 {
namespace {

UINT StateOf(const MenuItem& item) {
    return item.enabled ? MF_ENABLED : MF_GRAYED;
}

HMENU MakeMenu(const Menu& menu) {
    const HMENU popup = CreatePopupMenu();
    for (const MenuItem& item : menu.items)
        AppendMenuW(popup, MF_STRING | StateOf(item), static_cast<UINT_PTR>(item.command), item.text.c_str());
    return popup;
}

HMENU MakeBar(const std::vector<Menu>& menus) {
    if (menus.empty()) return nullptr;
    const HMENU bar = CreateMenu();
    for (const Menu& menu : menus)
        AppendMenuW(bar, MF_POPUP, reinterpret_cast<UINT_PTR>(MakeMenu(menu)), menu.title.c_str());
    return bar;
}

bool SameButForState(const Menu& a, const Menu& b) {
    return a.title == b.title && std::equal(a.items.begin(), a.items.end(), b.items.begin(), b.items.end(),
                                            [](const MenuItem& left, const MenuItem& right) {
                                                return left.command == right.command &&
                                                       left.text == right.text;
                                            });
}

}  // namespace

bool MenuBar::CanKeepItems(const std::vector<Menu>& menus) const {
    return std::equal(shown_.begin(), shown_.end(), menus.begin(), menus.end(), SameButForState);
}

bool MenuBar::Show(HWND window, const std::vector<Menu>& menus) {
    const bool hadBar = !shown_.empty();
    if (CanKeepItems(menus)) {
        const HMENU bar = GetMenu(window);
        for (const Menu& menu : menus)
            for (const MenuItem& item : menu.items)
                EnableMenuItem(bar, static_cast<UINT>(item.command), MF_BYCOMMAND | StateOf(item));
    } else {
        const HMENU old = GetMenu(window);
        SetMenu(window, MakeBar(menus));
        if (old != nullptr) DestroyMenu(old);
    }
    shown_ = menus;
    if (!menus.empty()) DrawMenuBar(window);
    return hadBar == menus.empty();
}

void AppendToSystemMenu(HWND window, const MenuItem& entry) {
    const HMENU menu = GetSystemMenu(window, FALSE);
    if (menu == nullptr) return;
    AppendMenuW(menu, MF_SEPARATOR, 0, nullptr);
    AppendMenuW(menu, MF_STRING | StateOf(entry), static_cast<UINT_PTR>(entry.command), entry.text.c_str());
}

}  // namespace ui::win32
