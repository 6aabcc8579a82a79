// Dialogs and boxes that belong to no other: nothing else takes input while they are open.
#include <windows.h>

#include <stdexcept>
#include <string>
#include <vector>

#include "errors/MessageBoxes.h"
#include "tests/support/win32/ImportHook.h"
#include "tests/support/win32/Win32Robot.h"
#include "tests/ui/Gallery.h"

namespace tests {
namespace {

bool TakesInput(const ui::Dialog& dialog) {
    return IsWindowEnabled(WindowOf(dialog)) != FALSE;
}

class TaskModalityTest : public GalleryTest {
  protected:
    // What the "Apply" button does.
    void OnApply(std::function<void()> command) {
        gallery_.onHear = [command = std::move(command)](const std::wstring& what) {
            if (what == L"apply") command();
        };
    }
    void ShowOwnerless() { errors::ErrBox(world_->Screen(), nullptr, L"Text", ui::Icon::Error).DoModal(); }
    void ExpectOwnerless(const std::function<void()>& look) {
        user_.ExpectOwnerless<errors::ErrBox>([this, look](errors::ErrBox& box) {
            EXPECT_EQ(GetWindow(WindowOf(box), GW_OWNER), nullptr);
            EXPECT_TRUE(TakesInput(box));
            look();
            user_.Click(ui::IdOk);
        });
    }
};

TEST_F(TaskModalityTest, NoOtherWindowTakesInputAndTheOneBeforeComesBackWithItsFocus) {
    OnApply([this] { ShowOwnerless(); });
    Run([this] {
        ExpectOwnerless([this] { EXPECT_FALSE(TakesInput(gallery_)); });
        user_.Click(gallery::Apply);
        EXPECT_TRUE(TakesInput(gallery_));
        EXPECT_EQ(GetActiveWindow(), WindowOf(gallery_));
        EXPECT_TRUE(gallery_.apply.HasFocus());
    });
}

// It must be able to take over in the moment in which the other one disappears.
TEST_F(TaskModalityTest, TheWindowBeforeIsEnabledAndActiveWhenTheOtherGoes) {
    static HWND below;
    static bool wasBack;
    wasBack = false;
    struct Watch {
        static BOOL WINAPI EndAndLook(HWND dialog, INT_PTR result) {
            if (dialog != below) wasBack = IsWindowEnabled(below) != FALSE && GetActiveWindow() == below;
            const auto real = std::bit_cast<BOOL(WINAPI*)(HWND, INT_PTR)>(
                GetProcAddress(GetModuleHandleW(L"user32.dll"), "EndDialog"));
            return real(dialog, result);
        }
    };
    OnApply([this] { ShowOwnerless(); });
    Run([this] {
        below = WindowOf(gallery_);
        const ImportHook hook("EndDialog", &Watch::EndAndLook);
        ExpectOwnerless([] {});
        user_.Click(gallery::Apply);
        EXPECT_TRUE(wasBack);
    });
}

TEST_F(TaskModalityTest, WhatTookNoInputBeforeTakesNoneAfterwards) {
    class Upper : public Gallery {
      public:
        using Gallery::Gallery;
    };
    OnApply([this] {
        Upper upper(world_->Screen(), &gallery_);
        upper.onHear = [this, &upper](const std::wstring& what) {
            if (what != L"apply") return;
            ShowOwnerless();
            EXPECT_FALSE(TakesInput(gallery_));
            EXPECT_TRUE(TakesInput(upper));
        };
        upper.DoModal();
    });
    Run([this] {
        user_.Expect<Upper>([this](Upper& upper) {
            ExpectOwnerless([&] {
                EXPECT_FALSE(TakesInput(gallery_));
                EXPECT_FALSE(TakesInput(upper));
            });
            user_.Click(gallery::Apply);
            EXPECT_EQ(GetActiveWindow(), WindowOf(upper));
            user_.Click(ui::IdOk);
        });
        user_.Click(gallery::Apply);
        EXPECT_TRUE(TakesInput(gallery_));
    });
}

TEST_F(TaskModalityTest, EndsWithADialogWhoseHandlerThrows) {
    OnApply([this] {
        Gallery other(world_->Screen());
        other.onOk = [] { throw std::out_of_range("above"); };
        EXPECT_THROW(other.DoModal(), std::out_of_range);
        EXPECT_TRUE(TakesInput(gallery_));
        other.onInit = [] { throw std::out_of_range("at once"); };
        EXPECT_THROW(other.DoModal(), std::out_of_range);
        EXPECT_TRUE(TakesInput(gallery_));
    });
    Run([this] {
        user_.ExpectOwnerless<Gallery>([this](Gallery&) {
            EXPECT_FALSE(TakesInput(gallery_));
            user_.Click(ui::IdOk);
        });
        user_.Click(gallery::Apply);
        EXPECT_EQ(GetActiveWindow(), WindowOf(gallery_));
    });
}

INT_PTR WINAPI OpenNothing(HINSTANCE, const DLGTEMPLATE*, HWND, DLGPROC, LPARAM) {
    return -1;
}

TEST_F(TaskModalityTest, EndsWhereTheSystemOpensNoDialog) {
    bool isFree = false;
    OnApply([&] {
        const ImportHook open("DialogBoxIndirectParamW", OpenNothing);
        EXPECT_THROW(ShowOwnerless(), ui::ScreenError);
        isFree = TakesInput(gallery_);
    });
    Run([this] { user_.Click(gallery::Apply); });
    EXPECT_TRUE(isFree);
}

std::vector<UINT> boxFlags;

int WINAPI NoteFlags(HWND, LPCWSTR, LPCWSTR, UINT flags) {
    boxFlags.push_back(flags);
    return IDOK;
}

TEST_F(TaskModalityTest, MessageBoxesWithoutAnOwnerAreModalToTheWholeProgram) {
    boxFlags.clear();
    Run([this] {
        const ImportHook hook("MessageBoxW", NoteFlags);
        ui::Screen& screen = world_->Screen();
        const Gallery closed(screen);
        for (const ui::Dialog* owner : std::initializer_list<const ui::Dialog*>{nullptr, &closed, &gallery_})
            screen.ShowMessageBox(owner, L"Text", L"Caption", ui::box::Ok | ui::box::ErrorIcon);
    });
    EXPECT_EQ(boxFlags, (std::vector<UINT>{MB_TASKMODAL | MB_ICONERROR, MB_TASKMODAL | MB_ICONERROR, MB_ICONERROR}));
}

}  // namespace
}  // namespace tests
