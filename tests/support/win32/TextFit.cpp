#include "tests/support/win32/TextFit.h"

#include <gtest/gtest.h>

#include <string>

#include "ui/Controls.h"
#include "ui/win32/ControlMirror.h"

namespace tests {
namespace {

// What a control needs beside its text, in pixels at 96 dpi, with a little more than the system's own drawing
// takes: the borders of a button, the box of a check box and the gap after it, both ends of a frame's line.
constexpr int aroundButtonText = 4;
constexpr int beforeCheckBoxText = 19;
constexpr int aroundFrameText = 18;

ui::Size ClientOf(HWND window) {
    RECT client{};
    GetClientRect(window, &client);
    return {client.right, client.bottom};
}

// As the window draws it, in its font. width: where lines break, if the format has them break.
ui::Size TextSizeOf(HWND window, int width, UINT format) {
    std::wstring text = ui::win32::TextOf(window);
    const HDC canvas = GetDC(window);
    const HGDIOBJ before = SelectObject(canvas, reinterpret_cast<HFONT>(SendMessageW(window, WM_GETFONT, 0, 0)));
    RECT area{0, 0, width, 0};
    DrawTextW(canvas, text.data(), static_cast<int>(text.size()), &area, DT_CALCRECT | format);
    SelectObject(canvas, before);
    ReleaseDC(window, canvas);
    return {area.right, area.bottom};
}

class FitChecker : public ui::ControlVisitor {
  public:
    FitChecker(HWND window, uint32_t dpi) : window_(window), dpi_(dpi), room_(ClientOf(window)) {}

    void Visit(ui::Label&) override { Expect(TextSizeOf(window_, room_.width, DT_WORDBREAK | DT_EXPANDTABS)); }
    void Visit(ui::GroupBox&) override { ExpectLine(aroundFrameText); }
    void Visit(ui::Button&) override { ExpectLine(aroundButtonText); }
    void Visit(ui::CheckBox&) override { ExpectLine(beforeCheckBoxText); }
    void Visit(ui::Picture&) override {}
    void Visit(ui::Edit&) override {}
    void Visit(ui::IconButton&) override {}
    void Visit(ui::ComboBox&) override {}
    void Visit(ui::EditableCombo&) override {}
    void Visit(ui::ListBox&) override {}
    void Visit(ui::UpDown&) override {}
    void Visit(ui::ListView&) override {}

  private:
    void ExpectLine(int beside) const {
        ui::Size needed = TextSizeOf(window_, 0, DT_SINGLELINE);
        needed.width += MulDiv(beside, static_cast<int>(dpi_), USER_DEFAULT_SCREEN_DPI);
        Expect(needed);
    }
    void Expect(const ui::Size& needed) const {
        EXPECT_LE(needed.width, room_.width);
        EXPECT_LE(needed.height, room_.height);
    }

    const HWND window_;
    const uint32_t dpi_;
    const ui::Size room_;
};

}  // namespace

void CheckTextsFit(HWND dialog, const ui::Dialog& mirrored) {
    for (ui::Control* control : mirrored.Controls()) {
        if (!control->IsVisible()) continue;
        SCOPED_TRACE(testing::PrintToString(mirrored.Caption()) + ", control " + std::to_string(control->Id()) + ": " +
                     testing::PrintToString(control->Text()));
        FitChecker checker(GetDlgItem(dialog, control->Id()), mirrored.Dpi());
        control->Accept(checker);
    }
}

}  // namespace tests
