#include "ui/win32/Rescaling.h"

#include <string_view>

#include "ui/win32/DialogTemplate.h"
#include "ui/win32/SystemFunctions.h"

namespace ui::win32 {
namespace {

BOOL CALLBACK GiveFont(HWND control, LPARAM font) {
    SendMessageW(control, WM_SETFONT, static_cast<WPARAM>(font), FALSE);
    return TRUE;
}

// As wide as letters are on the average.
Size AverageLetter(HFONT font) {
    constexpr std::wstring_view letters = L"ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz";
    const HDC canvas = GetDC(nullptr);
    const HGDIOBJ before = SelectObject(canvas, font);
    TEXTMETRICW metrics{};
    SIZE extent{};
    GetTextMetricsW(canvas, &metrics);
    GetTextExtentPoint32W(canvas, letters.data(), static_cast<int>(letters.size()), &extent);
    SelectObject(canvas, before);
    ReleaseDC(nullptr, canvas);
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
    return {Scaled(units.x, letter.width, 4), Scaled(units.y, letter.height, 8),
            Scaled(units.width, letter.width, 4), Scaled(units.height, letter.height, 8)};
}

Size OuterSizeFor(HWND window, Size client, uint32_t dpi) {
    using Adjust = BOOL WINAPI(RECT*, DWORD style, BOOL menu, DWORD extendedStyle, UINT dpi);
    static const auto adjust = SystemFunction<Adjust>(L"user32.dll", "AdjustWindowRectExForDpi");
    const auto style = static_cast<DWORD>(GetWindowLongPtrW(window, GWL_STYLE));
    const auto extendedStyle = static_cast<DWORD>(GetWindowLongPtrW(window, GWL_EXSTYLE));
    const BOOL hasMenu = GetMenu(window) != nullptr;
    RECT area{0, 0, client.width, client.height};
    if (adjust == nullptr || adjust(&area, style, hasMenu, extendedStyle, dpi) == FALSE)
        AdjustWindowRectEx(&area, style, hasMenu, extendedStyle);
    return {area.right - area.left, area.bottom - area.top};
}

}  // namespace ui::win32
