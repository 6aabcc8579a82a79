#include "ui/win32/Rescaling.h"

#include <vector>

#include "ui/ListView.h"

namespace ui::win32 {
namespace {

BOOL CALLBACK GiveFont(HWND control, LPARAM font) {
    SendMessageW(control, WM_SETFONT, static_cast<WPARAM>(font), FALSE);
    return TRUE;
}

}  // namespace

void Rescaling::Attach(HWND dialog, uint32_t dpi) {
    openingDpi_ = dpi;
    const auto font = reinterpret_cast<HFONT>(SendMessageW(dialog, WM_GETFONT, 0, 0));
    GetObjectW(font, sizeof openingFont_, &openingFont_);
}

void Rescaling::ShowFont(HWND dialog, uint32_t dpi) {
    LOGFONTW scaled = openingFont_;
    scaled.lfHeight = MulDiv(scaled.lfHeight, static_cast<int>(dpi), static_cast<int>(openingDpi_));
    scaled.lfWidth = 0;
    FontHandle font(CreateFontIndirectW(&scaled));
    if (font == nullptr) return;
    EnumChildWindows(dialog, GiveFont, reinterpret_cast<LPARAM>(font.get()));
    font_.swap(font);  // the old one goes once nothing draws with it any more
}

void RescaleColumns(const Dialog& dialog, uint32_t fromDpi, uint32_t toDpi) {
    for (Control* control : dialog.Controls()) {
        auto* const list = dynamic_cast<ListView*>(control);
        if (list == nullptr) continue;
        std::vector<int> widths;
        for (const Column& column : list->Columns())
            widths.push_back(MulDiv(column.width, static_cast<int>(toDpi), static_cast<int>(fromDpi)));
        list->SetColumnWidths(widths);
    }
}

}  // namespace ui::win32
