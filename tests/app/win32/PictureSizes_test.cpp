// Every picture is drawn in each size in which a form shows it: none is enlarged or reduced.
#include <set>
#include <tuple>

#include "tests/app/AllForms.h"
#include "tests/support/win32/Pictures.h"
#include "ui/Controls.h"

namespace tests {
namespace {

using PictureSizes = AllForms;

enum class Ground { Button, Form };

class Sights : public ui::ControlVisitor {
  public:
    void Visit(ui::Label&) override {}
    void Visit(ui::Picture& control) override { Note(control.Icon(), Ground::Form, control.Placement()); }
    void Visit(ui::GroupBox&) override {}
    void Visit(ui::Edit&) override {}
    void Visit(ui::Button&) override {}
    void Visit(ui::IconButton& control) override { Note(control.Icon(), Ground::Button, control.Placement()); }
    void Visit(ui::CheckBox&) override {}
    void Visit(ui::ComboBox&) override {}
    void Visit(ui::EditableCombo&) override {}
    void Visit(ui::ListBox&) override {}
    void Visit(ui::UpDown&) override {}
    void Visit(ui::ListView&) override {}

    std::set<std::tuple<ui::Icon, Ground, int, int>> seen;  // with width and height in dialog units

  private:
    void Note(ui::Icon icon, Ground ground, const ui::Place& place) {
        if (icon != ui::Icon::None) seen.emplace(icon, ground, place.width, place.height);
    }
};

// A dialog unit is a quarter of 6 or an eighth of 13 pixels wide or high at 96 dots per inch.
ui::Size InPixels(int width, int height, int dpi) {
    return {width * 6 * dpi / 4 / 96, height * 13 * dpi / 8 / 96};
}

TEST_F(PictureSizes, AreDrawnForEveryResolutionUpToThreeAndAHalfTimesTheNormalOne) {
    Sights sights;
    Tour([&](const ui::Dialog& form, const std::wstring&) {
        for (ui::Control* control : form.Controls()) control->Accept(sights);
    });
    std::set<ui::Icon> shown;
    for (const auto& [icon, ground, width, height] : sights.seen) {
        shown.insert(icon);
        for (const int dpi : {96, 120, 144, 168, 192, 216, 240, 288, 336}) {
            const ui::Size size = InPixels(width, height, dpi);
            const int pixels = ground == Ground::Form
                                   ? ui::win32::PictureSizeFor(size)
                                   : ui::win32::ButtonPictureSizeFor(size, static_cast<uint32_t>(dpi));
            EXPECT_TRUE(DrawnSizes(icon).contains(pixels))
                << "picture " << static_cast<int>(icon) << ", " << pixels << " pixels, " << dpi << " dpi";
        }
    }
    EXPECT_GE(shown.size(), 29U);
}

}  // namespace
}  // namespace tests
