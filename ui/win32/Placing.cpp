#include "ui/win32/Placing.h"

#include <algorithm>

namespace ui::win32 {
namespace {

int Middle(LONG low, LONG high, LONG size) {
    return static_cast<int>(low + (high - low - size) / 2);
}

// The low edge stays on the screen even if the window is larger than that.
int Within(int position, LONG low, LONG high, LONG size) {
    return std::max(static_cast<int>(low), std::min(position, static_cast<int>(high - size)));
}

WINDOWPLACEMENT PlacementOf(HWND window) {
    WINDOWPLACEMENT placement{};
    placement.length = sizeof placement;
    GetWindowPlacement(window, &placement);
    return placement;
}

Size SizeOf(HWND window) {
    RECT outer{};
    GetWindowRect(window, &outer);
    return {outer.right - outer.left, outer.bottom - outer.top};
}

void MoveOverOwner(HWND window) {
    const HWND owner = GetWindow(window, GW_OWNER);
    MONITORINFO monitor{};
    monitor.cbSize = sizeof monitor;
    GetMonitorInfoW(MonitorFromWindow(owner != nullptr ? owner : window, MONITOR_DEFAULTTOPRIMARY), &monitor);
    const RECT& screen = monitor.rcWork;
    RECT around = screen;
    if (owner != nullptr && IsWindowVisible(owner) != FALSE && IsIconic(owner) == FALSE)
        GetWindowRect(owner, &around);
    const auto [width, height] = SizeOf(window);
    const int x = Within(Middle(around.left, around.right, width), screen.left, screen.right, width);
    const int y = Within(Middle(around.top, around.bottom, height), screen.top, screen.bottom, height);
    SetWindowPos(window, nullptr, x, y, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

}  // namespace

void CenterOnOwner(HWND window) {
    const Size before = SizeOf(window);
    MoveOverOwner(window);
    // The monitor of the owner has another resolution, and the window the size that goes with it.
    if (SizeOf(window) != before) MoveOverOwner(window);
}

void ResizeClient(HWND window, Size client) {
    RECT outer{};
    RECT inner{};
    GetWindowRect(window, &outer);
    GetClientRect(window, &inner);
    SetWindowPos(window, nullptr, 0, 0, outer.right - outer.left + client.width - inner.right,
                 outer.bottom - outer.top + client.height - inner.bottom,
                 SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
}

Rect BoundsIn(HWND parent, HWND control) {
    RECT bounds{};
    GetWindowRect(control, &bounds);
    MapWindowPoints(nullptr, parent, reinterpret_cast<POINT*>(&bounds), 2);
    return {bounds.left, bounds.top, bounds.right - bounds.left, bounds.bottom - bounds.top};
}

Rect NormalRectOf(HWND window) {
    const RECT normal = PlacementOf(window).rcNormalPosition;
    return {normal.left, normal.top, normal.right - normal.left, normal.bottom - normal.top};
}

void MoveNormalRect(HWND window, const Rect& rect) {
    WINDOWPLACEMENT placement = PlacementOf(window);
    placement.rcNormalPosition = {rect.x, rect.y, rect.x + rect.width, rect.y + rect.height};
    if (IsWindowVisible(window) == FALSE) placement.showCmd = SW_HIDE;
    SetWindowPlacement(window, &placement);
}

}  // namespace ui::win32
