// How the keyboard goes through the rule editor.
#include <gtest/gtest.h>

#include "editors/MaskList.h"
#include "tests/editors/RuleEditor.h"

namespace tests {
namespace {

using RuleEditorLayout = RuleEditorTest;

TEST_F(RuleEditorLayout, TabVisitsEveryUsableControlInReadingOrder) {
    Edit(FullRule(L"PACK"), [this](ui::Dialog&) {
        EXPECT_EQ(user_.TabOrder(), (std::vector<int>{1042, 1079, 1000, 1045, 1043, 1046, 1044, 1047, 1049, 1001, 1124,
                                                      1125, 1126, 1139, 1140, 1141, 1137, 1, 2}));
        Leave();
    });
    Edit(FullRule(L"RESG"), [this](ui::Dialog&) {
        EXPECT_EQ(user_.TabOrder(), (std::vector<int>{1042, 1051, 1079, 1000, 1045, 1043, 1046, 1044, 1047, 1050,
                                                      1049, 1001, 1124, 1125, 1126, 1105, 1106, 1107, 1,    2}));
        Leave();
    });
}

TEST_F(RuleEditorLayout, AWholeRuleCanBeMadeByTheKeyboard) {
    const auto rule = Edit({}, [this](ui::Dialog& dialog) {
        const auto tabTo = [&](int id) {
            for (int i = 0; i < 40 && dialog.Focus()->Id() != id; ++i) user_.Press(Key::Tab);
            EXPECT_EQ(dialog.Focus()->Id(), id);
        };
        EXPECT_EQ(dialog.Focus(), &dialog.Find(ruleid::Operation));
        user_.Press(Key::Down);
        user_.Press(Key::Down);  // "Hash file"
        tabTo(ruleid::CsProfile);
        user_.Press(Key::Down);
        tabTo(ruleid::Description);
        user_.Press(Key::Enter);  // a new line, not OK
        tabTo(ruleid::PathIn);
        user_.Type(ruleid::PathIn, L"C:\\In");
        tabTo(ruleid::PathOut);
        user_.Type(ruleid::PathOut, L"C:\\Out");
        tabTo(ruleid::PathError);
        user_.Type(ruleid::PathError, L"C:\\Error");
        tabTo(ruleid::AddMask);
        user_.Expect<editors::AddMask>([this](editors::AddMask&) {
            user_.Press(Key::Down);
            user_.Press(Key::Enter);
        });
        user_.Press(Key::Space);
        tabTo(ui::IdOk);
        user_.Press(Key::Enter);
    });
    config::Rule expected = PlainRule(L"HASH");
    expected.Descryption = L"\r\n";
    expected.Masks = {L"*.xml"};
    expected.IsOn = 1;
    EXPECT_EQ(rule, expected);
}

}  // namespace
}  // namespace tests
