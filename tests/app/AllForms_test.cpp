// What holds for every form of the program: it stands as its sheet says, whatever can be used says what it is
// called, also to those who do not see it, the Tab key goes through it in the order in which it is read, and
// nothing lies on anything else.
#include "tests/app/AllForms.h"

#include <cstdlib>
#include <fstream>
#include <sstream>

#include "tests/app/FormSheet.h"
#include "tests/support/Overlap.h"
#include "ui/Controls.h"
#include "ui/Dialog.h"

namespace tests {
namespace {

constexpr char sheetFile[] = "tests/app/forms.txt";

std::string WrittenSheet() {
    std::stringstream text;
    text << std::ifstream(sheetFile, std::ios::binary).rdbuf();
    return text.str();
}

// The first line in which they differ, as it is in both; empty where they are equal.
std::string Difference(const std::string& found, const std::string& written) {
    if (found == written) return {};
    std::istringstream foundLines(found);
    std::istringstream writtenLines(written);
    for (int number = 1;; ++number) {
        std::string foundLine;
        std::string writtenLine;
        std::getline(foundLines, foundLine);
        std::getline(writtenLines, writtenLine);
        if (foundLine != writtenLine || !foundLines || !writtenLines)
            return std::to_string(number) + ": " + foundLine + "\ninstead of " + writtenLine;
    }
}

ui::Rect PlaceOf(const ui::Control& control) {
    const ui::Place& place = control.Placement();
    return {place.x, place.y, place.width, place.height};
}

bool IsWithin(const ui::Rect& inner, const ui::Rect& outer, int margin) {
    return inner.x >= outer.x + margin && inner.y >= outer.y + margin &&
           inner.x + inner.width <= outer.x + outer.width - margin &&
           inner.y + inner.height <= outer.y + outer.height - margin;
}

// Arrows stand in their field, and a frame around what belongs to it.
bool MayLieOnAnother(const ui::Control& control) {
    return dynamic_cast<const ui::UpDown*>(&control) != nullptr ||
           dynamic_cast<const ui::GroupBox*>(&control) != nullptr;
}

std::vector<const ui::Control*> ShownOn(const ui::Dialog& form) {
    std::vector<const ui::Control*> shown;
    for (const ui::Control* control : form.Controls())
        if (control->IsVisible()) shown.push_back(control);
    return shown;
}

void CheckNames(const ui::Dialog& form) {
    for (const ui::Control* control : ShownOn(form)) {
        EXPECT_TRUE(!control->TakesFocus() || !ui::AccessibleName(form, *control).empty())
            << "control " << control->Id();
    }
}

// Of two neighbours the second lies further down or further to the right.
void CheckReadingOrder(const ui::Dialog& form) {
    const ui::Control* before = nullptr;
    for (const ui::Control* control : ShownOn(form)) {
        if (!control->TakesFocus()) continue;
        const bool follows = before == nullptr || control->Placement().y > before->Placement().y ||
                             control->Placement().x > before->Placement().x;
        EXPECT_TRUE(follows) << "control " << control->Id();
        before = control;
    }
}

// A text's own room is not seen: it may reach to the edge.
void CheckRoom(const ui::Dialog& form) {
    const ui::Rect whole{0, 0, form.Style().size.width, form.Style().size.height};
    const auto shown = ShownOn(form);
    for (const ui::Control* control : shown) {
        const bool isText = dynamic_cast<const ui::Label*>(control) != nullptr;
        EXPECT_TRUE(IsWithin(PlaceOf(*control), whole, isText ? 0 : 7)) << "control " << control->Id();
        for (const ui::Control* other : shown) {
            EXPECT_TRUE(control == other || MayLieOnAnother(*control) || MayLieOnAnother(*other) ||
                        !Overlap(PlaceOf(*control), PlaceOf(*other)))
                << "controls " << control->Id() << " and " << other->Id();
        }
    }
}

// Whatever a frame touches is wholly inside it.
void CheckFrames(const ui::Dialog& form) {
    for (const ui::Control* frame : form.Controls()) {
        if (dynamic_cast<const ui::GroupBox*>(frame) == nullptr) continue;
        for (const ui::Control* control : form.Controls()) {
            EXPECT_TRUE(control == frame || !Overlap(PlaceOf(*control), PlaceOf(*frame)) ||
                        IsWithin(PlaceOf(*control), PlaceOf(*frame), 4))
                << "control " << control->Id();
        }
    }
}

TEST_F(AllForms, StandAsInTheirSheet) {
    FormSheet sheet;
    Tour([&sheet](const ui::Dialog& form, const std::wstring& shape) { sheet.Add(form, shape); });
    if (std::getenv("BRISGATE_WRITE_FORMS") != nullptr) std::ofstream(sheetFile, std::ios::binary) << sheet.Text();
    EXPECT_EQ(Difference(sheet.Text(), WrittenSheet()), "");
}

TEST_F(AllForms, CanBeReadInOrderAndHaveRoomForEverything) {
    Tour([](const ui::Dialog& form, const std::wstring& shape) {
        SCOPED_TRACE(testing::PrintToString(form.Caption()) + ", " + testing::PrintToString(shape));
        CheckNames(form);
        CheckReadingOrder(form);
        CheckRoom(form);
        CheckFrames(form);
    });
}

}  // namespace
}  // namespace tests
