// Windows as a whole: sizes, menus, boxes, pickers, dialogs above dialogs, and handlers that throw.
#include <new>
#include <stdexcept>

#include "tests/ui/Gallery.h"

namespace tests {
namespace {

using namespace gallery;

class WindowGalleryTest : public GalleryTest {
  protected:
    static ui::Rect Moved(const ui::Rect& r, int x, int y, int width, int height) {
        return {r.x + x, r.y + y, r.width + width, r.height + height};
    }
};

TEST_F(WindowGalleryTest, ControlsFollowTheLowerRightCorner) {
    Run([this] {
        const ui::Rect name = gallery_.name.Bounds();
        const ui::Rect names = gallery_.names.Bounds();
        const ui::Rect sign = gallery_.sign.Bounds();
        const ui::Rect save = gallery_.save.Bounds();
        const ui::Rect rows = gallery_.rows.Bounds();
        const ui::Rect fixed = gallery_.fixed.Bounds();
        const ui::Rect ok = gallery_.ok.Bounds();
        const ui::Size client = gallery_.ClientSize();
        user_.Resize({100, 60});
        EXPECT_EQ((ui::Size{client.width + 100, client.height + 60}), gallery_.ClientSize());
        EXPECT_EQ(name, gallery_.name.Bounds());
        EXPECT_EQ(Moved(names, 0, 0, 50, 0), gallery_.names.Bounds());
        EXPECT_EQ(Moved(sign, 50, 0, 0, 0), gallery_.sign.Bounds());
        EXPECT_EQ(Moved(save, 100, 0, 0, 0), gallery_.save.Bounds());
        EXPECT_EQ(Moved(rows, 0, 0, 100, 60), gallery_.rows.Bounds());
        EXPECT_EQ(Moved(fixed, 0, 60, 0, 0), gallery_.fixed.Bounds());
        EXPECT_EQ(Moved(ok, 100, 60, 0, 0), gallery_.ok.Bounds());
        EXPECT_EQ(1, gallery_.resized);
        user_.Resize({-100, -60});
        EXPECT_EQ(rows, gallery_.rows.Bounds());
        EXPECT_EQ(ok, gallery_.ok.Bounds());
    });
}

TEST_F(WindowGalleryTest, IsNeverSmallerThanItsMinimum) {
    gallery_.smallest = {540, 434};
    Run([this] {
        user_.Resize({-1000, -1000});
        EXPECT_EQ((ui::Size{540, 434}), user_.OuterSize());
    });
}

TEST_F(WindowGalleryTest, MinimisingChangesNothing) {
    Run([this] {
        const ui::Size outer = user_.OuterSize();
        const ui::Rect rows = gallery_.rows.Bounds();
        const ui::Size client = gallery_.ClientSize();
        user_.Minimize();
        EXPECT_EQ(rows, gallery_.rows.Bounds());
        EXPECT_EQ(client, gallery_.ClientSize());
        user_.Restore();
        EXPECT_EQ(rows, gallery_.rows.Bounds());
        EXPECT_EQ(client, gallery_.ClientSize());
        EXPECT_EQ(outer, user_.OuterSize());
    });
}

TEST_F(WindowGalleryTest, OpensWhereTheProgramPutsIt) {
    constexpr ui::Rect Wanted{60, 70, 700, 560};
    gallery_.onInit = [this, Wanted] { gallery_.SetNormalRect(Wanted); };
    Run([this, Wanted] {
        EXPECT_EQ(Wanted, gallery_.NormalRect());
        EXPECT_EQ((ui::Size{Wanted.width, Wanted.height}), user_.OuterSize());
        EXPECT_EQ(1, gallery_.resized);
    });
}

TEST_F(WindowGalleryTest, MenusAreHeard) {
    gallery_.onInit = [this] {
        gallery_.SetMenuBar({{L"File", {{Open, L"Open", true}, {Print, L"Print", false}}}, {L"Help", {}}});
        gallery_.AppendToSystemMenu(About, L"About...");
        EXPECT_EQ(0, gallery_.resized);
    };
    Run([this] {
        EXPECT_EQ(0, gallery_.resized);
        user_.ChooseMenu(Open);
        EXPECT_EQ((Heard{L"menu 2001"}), gallery_.TakeHeard());
        gallery_.EnableMenuItems({Open, Print}, true);
        user_.ChooseMenu(Print);
        EXPECT_EQ((Heard{L"menu 2002"}), gallery_.TakeHeard());
        gallery_.SetMenuBar({{L"Other", {{Open, L"Open it", true}}}});
        user_.ChooseMenu(Open);
        user_.ChooseSystemMenu(About);
        EXPECT_EQ((Heard{L"menu 2001", L"system menu 16"}), gallery_.TakeHeard());
    });
}

TEST_F(WindowGalleryTest, BoxesAreAnswered) {
    gallery_.onHear = [this](const std::wstring& what) {
        if (what != L"apply") return;
        const int answer =
            world_->Screen().ShowMessageBox(&gallery_, L"Go on?\r\nReally?", L"Question",
                                            ui::box::YesNo | ui::box::QuestionIcon | ui::box::SecondIsDefault);
        gallery_.name.SetText(std::to_wstring(answer));
    };
    Run([this] {
        user_.ExpectBox(L"Go on?\r\nReally?", 0x124, ui::IdYes, L"Question");
        user_.Click(Apply);
        EXPECT_EQ(L"6", user_.Text(Name));
        user_.ExpectBoxBeginning(L"Go on", 0x124, ui::IdNo);
        user_.Click(Apply);
        EXPECT_EQ(L"7", user_.Text(Name));
        EXPECT_TRUE(gallery_.apply.HasFocus());
    });
}

TEST_F(WindowGalleryTest, ABoxTakesTheFocusAndGivesItBack) {
    gallery_.onHear = [this](const std::wstring& what) {
        if (what == L"key 46") world_->Screen().ShowMessageBox(&gallery_, L"Stop", L"Stop", ui::box::ExclamationIcon);
    };
    Run([this] {
        user_.ClickRow(Rows, 1);
        gallery_.TakeHeard();
        user_.ExpectBox(L"Stop", 0x30, ui::IdOk);
        user_.Press(Key::Delete);
        EXPECT_EQ((Heard{L"key 46", L"rows left"}), gallery_.TakeHeard());
        EXPECT_TRUE(gallery_.rows.HasFocus());
    });
}

TEST_F(WindowGalleryTest, BoxesNeedNoOwner) {
    user_.ExpectBox(L"Alone", ui::box::OkCancel, ui::IdCancel);
    EXPECT_EQ(ui::IdCancel, world_->Screen().ShowMessageBox(&gallery_, L"Alone", L"Box", ui::box::OkCancel));
    user_.ExpectBox(L"Alone", ui::box::Ok, ui::IdOk);
    EXPECT_EQ(ui::IdOk, world_->Screen().ShowMessageBox(nullptr, L"Alone", L"Box", ui::box::Ok));
}

TEST_F(WindowGalleryTest, PickersAreAnswered) {
    ui::Screen& screen = world_->Screen();
    Run([this, &screen] {
        user_.ExpectFolderPicker(L"C:\\windows");
        EXPECT_EQ(L"C:\\windows", screen.PickFolder(&gallery_, L""));
        user_.ExpectFolderPicker(std::nullopt);
        EXPECT_EQ(std::nullopt, screen.PickFolder(&gallery_, L""));
        user_.ExpectFilePicker(ui::FilePickerKind::Open, L"C:\\windows\\notepad.exe");
        EXPECT_EQ(L"C:\\windows\\notepad.exe",
                  screen.PickFile(&gallery_, {ui::FilePickerKind::Open, L"All files (*.*)", L"*.*", L"*.*", L""}));
        user_.ExpectFilePicker(ui::FilePickerKind::Save, L"C:\\windows\\gallery-test.prx");
        EXPECT_EQ(L"C:\\windows\\gallery-test.prx",
                  screen.PickFile(&gallery_, {ui::FilePickerKind::Save, L"Rules", L"*.prx", L"prx", L"old.prx"}));
        user_.ExpectFilePicker(ui::FilePickerKind::Save, std::nullopt);
        EXPECT_EQ(std::nullopt,
                  screen.PickFile(&gallery_, {ui::FilePickerKind::Save, L"Rules", L"*.prx", L"prx", L""}));
    });
}

TEST_F(WindowGalleryTest, WhatAHandlerThrowsReachesTheCaller) {
    gallery_.onHear = [](const std::wstring& what) {
        if (what == L"apply") throw std::runtime_error("thrown");
    };
    EXPECT_THROW(Run([this] {
                     user_.Click(Apply);
                     EXPECT_TRUE(gallery_.HasEnded());
                 }),
                 std::runtime_error);
    EXPECT_FALSE(gallery_.IsOpen());
    EXPECT_EQ(Heard{L"apply"}, gallery_.TakeHeard());

    gallery_.onHear = nullptr;
    gallery_.onInit = [] { throw std::bad_alloc(); };
    EXPECT_THROW(gallery_.DoModal(), std::bad_alloc);
    EXPECT_FALSE(gallery_.IsOpen());
}

class WithoutMemory : public WindowGalleryTest {
  protected:
    void SetUp() override {
        ui::Screen& screen = world_->Screen();
        screen.SetFailureHandler([&screen](const ui::Dialog& dialog, const ui::ScreenError* failure) {
            screen.ShowMessageBox(&dialog, failure == nullptr ? L"No memory" : failure->Operation(), L"Gallery",
                                  ui::box::Ok | ui::box::ErrorIcon);
        });
    }
    void ExpectTold() { user_.ExpectBox(L"No memory", ui::box::Ok | ui::box::ErrorIcon, ui::IdOk, L"Gallery"); }
};

TEST_F(WithoutMemory, ACommandEndsAndItsDialogGoesOn) {
    gallery_.onHear = [](const std::wstring& what) {
        if (what == L"apply") throw std::bad_alloc();
    };
    Run([this] {
        for (int time = 0; time < 2; ++time) {
            ExpectTold();
            user_.Click(Apply);
            EXPECT_FALSE(gallery_.HasEnded());
        }
        gallery_.TakeHeard();
        user_.Click(Save);
        EXPECT_EQ(Heard{L"save"}, gallery_.TakeHeard());
    });
}

TEST_F(WithoutMemory, ADialogThatCannotOpenEndsTheCommandBelow) {
    gallery_.onHear = [this](const std::wstring& what) {
        if (what != L"apply") return;
        Gallery above(world_->Screen(), &gallery_);
        above.onInit = [] { throw std::bad_alloc(); };
        above.DoModal();
        ADD_FAILURE() << "the command went on";
    };
    Run([this] {
        ExpectTold();
        user_.Click(Apply);
        EXPECT_FALSE(gallery_.HasEnded());
    });
}

TEST_F(WithoutMemory, AWindowThatDoesNotComeUpEndsTheCommandToo) {
    gallery_.onHear = [](const std::wstring& what) {
        if (what == L"apply") throw ui::ScreenError(8, L"Opening a window");
    };
    Run([this] {
        user_.ExpectBox(L"Opening a window", ui::box::Ok | ui::box::ErrorIcon, ui::IdOk, L"Gallery");
        user_.Click(Apply);
        EXPECT_FALSE(gallery_.HasEnded());
    });
}

TEST_F(WithoutMemory, OtherFailuresEndTheDialogAllTheSame) {
    gallery_.onHear = [](const std::wstring& what) {
        if (what == L"apply") throw std::out_of_range("apply");
    };
    EXPECT_THROW(Run([this] { user_.Click(Apply); }), std::out_of_range);
}

TEST_F(WithoutMemory, WhoCannotEvenBeToldIsSentBack) {
    world_->Screen().SetFailureHandler([](const ui::Dialog&, const ui::ScreenError*) { throw std::bad_alloc(); });
    gallery_.onHear = [](const std::wstring& what) {
        if (what == L"apply") throw std::bad_alloc();
    };
    EXPECT_THROW(Run([this] { user_.Click(Apply); }), std::bad_alloc);
}

TEST_F(WindowGalleryTest, MayEndWhileItOpens) {
    gallery_.onInit = [this] { gallery_.EndDialog(7); };
    EXPECT_EQ(7, gallery_.DoModal());
    EXPECT_FALSE(gallery_.IsOpen());
    EXPECT_EQ(Heard{}, gallery_.TakeHeard());
}

class Upper : public Gallery {
  public:
    using Gallery::Gallery;
};

TEST_F(WindowGalleryTest, DialogsOpenAboveDialogs) {
    gallery_.onHear = [this](const std::wstring& what) {
        if (what != L"apply") return;
        Upper upper(world_->Screen(), &gallery_);
        gallery_.name.SetText(std::to_wstring(upper.DoModal()));
    };
    Run([this] {
        user_.Expect<Upper>([this](Upper& upper) {
            EXPECT_EQ(&upper, &user_.Top());
            user_.Type(Name, L"above");
            EXPECT_EQ(L"above", upper.name.Text());
            user_.Click(ui::IdOk);
        });
        user_.Click(Apply);
        EXPECT_EQ(L"1", user_.Text(Name));
        EXPECT_TRUE(gallery_.apply.HasFocus());
    });
}

TEST_F(WindowGalleryTest, WhatIsThrownAboveGoesThroughBelow) {
    gallery_.onHear = [this](const std::wstring& what) {
        if (what != L"apply") return;
        Upper upper(world_->Screen(), &gallery_);
        upper.onOk = [] { throw std::out_of_range("above"); };
        upper.DoModal();
    };
    EXPECT_THROW(Run([this] {
                     user_.Expect<Upper>([this](Upper&) { user_.Click(ui::IdOk); });
                     user_.Click(Apply);
                 }),
                 std::out_of_range);
}

class Waiting : public ui::Dialog {
  public:
    explicit Waiting(ui::Screen& screen, ui::Dialog* owner)
        : Dialog(screen, owner, {.size = {160, 40}, .systemMenu = false}, L"Wait") {}
    ui::Label text{*this, 10, {7, 7, 146, 20}, L"Please, wait."};
};

TEST_F(WindowGalleryTest, ModelessDialogsComeAndGo) {
    gallery_.onHear = [this](const std::wstring& what) {
        if (what != L"apply") return;
        const ui::WaitCursor cursor(world_->Screen());
        Waiting waiting(world_->Screen(), &gallery_);
        waiting.OpenModeless();
        EXPECT_TRUE(waiting.IsOpen());
        waiting.text.SetText(L"Still waiting");
        waiting.Close();
        EXPECT_FALSE(waiting.IsOpen());
        waiting.OpenModeless();  // closed by its end
    };
    Run([this] {
        user_.Click(Apply);
        EXPECT_EQ(Heard{L"apply"}, gallery_.TakeHeard());
        user_.Click(Save);
        EXPECT_EQ(Heard{L"save"}, gallery_.TakeHeard());
    });
}

}  // namespace
}  // namespace tests
