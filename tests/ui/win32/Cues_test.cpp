// What an empty edit says of itself, in grey.
#include <algorithm>

#include "tests/support/win32/Pictures.h"
#include "tests/support/win32/Win32Robot.h"
#include "tests/ui/Gallery.h"

namespace tests {
namespace {

class CuesOnWindows : public GalleryTest {
  protected:
    HWND Name() const { return GetDlgItem(WindowOf(gallery_), gallery::Name); }
    static uint32_t DarkestOf(const Points& points) {
        const auto green = [](uint32_t color) { return color >> 8 & 0xFF; };
        return green(*std::min_element(points.colors.begin(), points.colors.end(),
                                       [green](uint32_t a, uint32_t b) { return green(a) < green(b); }));
    }
};

TEST_F(CuesOnWindows, ArePaintedInGreyWhileNothingIsTypedWithAndWithoutTheFocus) {
    Run([this] {
        gallery_.apply.SetFocus();
        const Points empty = PaintingOf(Name());
        gallery_.name.SetCue(L"Whom?");
        const Points cue = PaintingOf(Name());
        EXPECT_FALSE(cue == empty);
        gallery_.name.SetFocus();
        EXPECT_TRUE(PaintingOf(Name()) == cue);

        gallery_.apply.SetFocus();
        gallery_.name.SetText(L"Whom?");
        EXPECT_LT(DarkestOf(PaintingOf(Name())) + 0x40, DarkestOf(cue));
        gallery_.name.SetText(L"");
        gallery_.name.SetCue(L"");
        EXPECT_TRUE(PaintingOf(Name()) == empty);
    });
}

TEST_F(CuesOnWindows, ShowAtOnceWhenTheyChange) {
    Run([this] {
        for (const wchar_t* cue : {L"Whom?", L"What?", L""}) {
            UpdateWindow(Name());
            EXPECT_FALSE(GetUpdateRect(Name(), nullptr, FALSE));
            gallery_.name.SetCue(cue);
            EXPECT_TRUE(GetUpdateRect(Name(), nullptr, FALSE)) << testing::PrintToString(cue);
        }
    });
}

TEST_F(CuesOnWindows, SetBeforeTheWindowOpensShowInIt) {
    gallery_.name.SetCue(L"Whom?");
    Run([this] {
        const Points cue = PaintingOf(Name());
        gallery_.name.SetCue(L"");
        EXPECT_FALSE(PaintingOf(Name()) == cue);
    });
}

}  // namespace
}  // namespace tests
