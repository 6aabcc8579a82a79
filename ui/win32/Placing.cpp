#include "ui/win32/Placing.h"

#include <algorithm>
#include <string_view>

#include "platform/win32/Resolution.h"
#include "ui/win32/DialogTemplate.h"

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
    if (IsWindowVisible(owner) != FALSE && IsIconic(owner) == FALSE) GetWindowRect(owner, &around);
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
    const int width = outer.right - outer.left + client.width - inner.right;
    const int height = outer.bottom - outer.top + client.height - inner.bottom;
    SetWindowPos(window, nullptr, 0, 0, width, height, SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
}

Rect BoundsIn(HWND parent, HWND control) {
    RECT bounds{};
    GetWindowRect(control, &bounds);
    POINT corner{bounds.left, bounds.top};
    ScreenToClient(parent, &corner);
    return {corner.x, corner.y, bounds.right - bounds.left, bounds.bottom - bounds.top};
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

namespace {

BOOL CALLBACK GiveFont(HWND control, LPARAM font) {
    SendMessageW(control, WM_SETFONT, static_cast<WPARAM>(font), FALSE);
    return TRUE;
}

struct CanvasDeleter {
    void operator()(HDC canvas) const { DeleteDC(canvas); }
};
using CanvasHandle = std::unique_ptr<std::remove_pointer_t<HDC>, CanvasDeleter>;

// As wide as letters are on the average.
Size AverageLetter(HFONT font) {
    constexpr std::wstring_view letters = L"ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz";
    const CanvasHandle canvas(CreateCompatibleDC(nullptr));
    SelectObject(canvas.get(), font);
    TEXTMETRICW metrics{};
    SIZE extent{};
    GetTextMetricsW(canvas.get(), &metrics);
    GetTextExtentPoint32W(canvas.get(), letters.data(), static_cast<int>(letters.size()), &extent);
    return {(extent.cx / 26 + 1) / 2, metrics.tmHeight};
}

}  // namespace

void Rescaling::Attach(HWND dialog) {
    const auto font = reinterpret_cast<HFONT>(SendMessageW(dialog, WM_GETFONT, 0, 0));
    GetObjectW(font, sizeof openingFont_, &openingFont_);
}

Rescaling::FontHandle Rescaling::FontFor(uint32_t dpi) const {
    LOGFONTW font = openingFont_;
    font.lfHeight = -Scaled(DialogFontPoints, dpi, 72);
    font.lfWidth = 0;
    return FontHandle(CreateFontIndirectW(&font));
}

void Rescaling::ShowFont(HWND dialog, uint32_t dpi) {
    FontHandle font = FontFor(dpi);
    if (font == nullptr) return;
    EnumChildWindows(dialog, GiveFont, reinterpret_cast<LPARAM>(font.get()));
    font_.swap(font);  // the old one goes once nothing draws with it any more
}

Size Rescaling::LetterAt(uint32_t dpi) const {
    return AverageLetter(FontFor(dpi).get());
}

Rect ToPixels(const Place& units, Size letter) {
    return {Scaled(units.x, letter.width, 4), Scaled(units.y, letter.height, 8), Scaled(units.width, letter.width, 4),
            Scaled(units.height, letter.height, 8)};
}

Size OuterSizeFor(HWND window, Size client, uint32_t dpi) {
    const RECT outer = platform::win32::OuterRect(window, {0, 0, client.width, client.height}, dpi);
    return {outer.right - outer.left, outer.bottom - outer.top};
}

}  // namespace ui::win32
