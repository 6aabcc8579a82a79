// How much edits and editable combos take, and which characters they leave out.
#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "tests/support/World.h"
#include "ui/Choices.h"
#include "ui/Controls.h"
#include "ui/Dialog.h"

namespace tests {
namespace {

constexpr int Short = 100, KeyName = 101, Mask = 102, Lines = 103, Free = 104;

class LimitedForm : public ui::Dialog {
  public:
    explicit LimitedForm(ui::Screen& screen) : Dialog(screen, nullptr, {.size = {200, 120}}, L"Limits") {
        mask.SetItems({L"*.longer"});
        for (ui::Control* control : Controls()) control->SetName(L"limited");
    }
    std::vector<std::wstring> heard;

    ui::Edit shortText{*this, Short, {7, 7, 90, 14}, {.takesPaths = true, .longest = 5}, [this] { Hear(shortText); }};
    ui::Edit key{*this, KeyName, {7, 25, 90, 14}, {.refused = L"\\/"}, [this] { Hear(key); }};
    ui::EditableCombo mask{*this, Mask, {7, 43, 90, 14}, [this] { Hear(mask); }, 5};
    ui::Edit lines{*this, Lines, {7, 61, 90, 30}, {.multiLine = true, .longest = 6}};
    ui::Edit free{*this, Free, {100, 7, 90, 14}};
    ui::Button exit{*this, ui::IdCancel, {100, 100, 50, 14}, L"Exit"};

  private:
    void Hear(const ui::Control& control) { heard.push_back(control.Text()); }
};

class TextLimits : public ::testing::Test {
  protected:
    void Run(const std::function<void()>& script) {
        user_.Expect<LimitedForm>([this, script](LimitedForm&) {
            script();
            user_.PressCloseBox();
        });
        form_.DoModal();
    }
    using Texts = std::vector<std::wstring>;
    // Without what was heard again: a system may tell of keys that change nothing.
    Texts TakeHeard() {
        Texts heard = std::exchange(form_.heard, {});
        heard.erase(std::unique(heard.begin(), heard.end()), heard.end());
        return heard;
    }

    const std::unique_ptr<World> world_ = World::Make();
    Robot& user_ = world_->User();
    LimitedForm form_{world_->Screen()};
};

TEST_F(TextLimits, TypingAndPastingEndAtTheLimit) {
    Run([this] {
        user_.Type(Short, L"abcdefg");
        EXPECT_EQ(user_.Text(Short), L"abcde");
        EXPECT_EQ(TakeHeard(), (Texts{L"a", L"ab", L"abc", L"abcd", L"abcde"}));
        user_.Type(Short, L"12345\b6\b7");
        EXPECT_EQ(user_.Text(Short), L"12347");
        user_.Paste(Short, L"1234567");
        EXPECT_EQ(user_.Text(Short), L"12345");
        user_.Paste(Lines, L"a\r\nbcdefg");
        EXPECT_EQ(user_.Text(Lines), L"a\r\nbcd");
        user_.Type(Lines, L"abcdefg");
        EXPECT_EQ(user_.Text(Lines), L"abcdef");
    });
}

TEST_F(TextLimits, ThoseOfACombo) {
    Run([this] {
        user_.Type(Mask, L"*.abcdef");
        EXPECT_EQ(user_.Text(Mask), L"*.abc");
        user_.Paste(Mask, L"1234567");
        EXPECT_EQ(user_.Text(Mask), L"12345");
        user_.Choose(Mask, 0);
        EXPECT_EQ(user_.Text(Mask), L"*.longer");
    });
}

TEST_F(TextLimits, WhatTheProgramPutsInAndWhatIsDroppedStaysWhole) {
    Run([this] {
        form_.shortText.SetText(L"0123456789");
        EXPECT_EQ(user_.Text(Short), L"0123456789");
        user_.Drop(Short, L"C:\\Some folder");
        EXPECT_EQ(user_.Text(Short), L"C:\\Some folder");
        form_.mask.SetText(L"0123456789");
        EXPECT_EQ(user_.Text(Mask), L"0123456789");
    });
}

TEST_F(TextLimits, WithoutOneALongTextIsTaken) {
    Run([this] {
        const std::wstring text(40'000, L'x');
        user_.Paste(Free, text);
        EXPECT_EQ(user_.Text(Free), text);
    });
}

TEST_F(TextLimits, RefusedCharactersAreLeftOutWhereverTheyStand) {
    Run([this] {
        user_.Type(KeyName, L"a\\b/\\c");
        EXPECT_EQ(user_.Text(KeyName), L"abc");
        EXPECT_EQ(form_.heard, (Texts{L"a", L"ab", L"abc"}));
        user_.Paste(KeyName, L"\\x\\y/z\\");
        EXPECT_EQ(user_.Text(KeyName), L"xyz");
        user_.Paste(KeyName, L"\\");
        EXPECT_EQ(user_.Text(KeyName), L"");
        user_.Type(KeyName, L"\\\\d\be");
        EXPECT_EQ(user_.Text(KeyName), L"e");
    });
}

TEST_F(TextLimits, TheProgramMayPutRefusedCharactersIn) {
    Run([this] {
        form_.key.SetText(L"a\\b");
        EXPECT_EQ(user_.Text(KeyName), L"a\\b");
        EXPECT_EQ(form_.key.CountRefused(L"a\\b//"), 3U);
    });
}

}  // namespace
}  // namespace tests
