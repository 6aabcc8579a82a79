// How the keyboard goes through the rule editor, and what its empty fields say.
#include <gtest/gtest.h>

#include "editors/AddMask.h"
#include "tests/editors/RuleEditor.h"

namespace tests {
namespace {

class RuleEditorLayout : public RuleEditorTest {
  protected:
    // The controls that Tab stops at, from the first, once round.
    std::vector<int> TabOrder() {
        std::vector<int> order{user_.Top().Focus()->Id()};
        for (user_.Press(Key::Tab); user_.Top().Focus()->Id() != order.front(); user_.Press(Key::Tab))
            order.push_back(user_.Top().Focus()->Id());
        return order;
    }
    std::wstring Cue(int id) const { return user_.Get<ui::Edit>(id).Cue(); }
};

TEST_F(RuleEditorLayout, TabVisitsEveryUsableControlInReadingOrder) {
    Edit(FullRule(L"PACK"), [this](ui::Dialog&) {
        EXPECT_EQ(TabOrder(), (std::vector<int>{1042, 1079, 1000, 1045, 1043, 1046, 1044, 1047, 1049, 1001,
                                                1124, 1125, 1126, 1139, 1140, 1141, 1137, 1, 2}));
        Leave();
    });
    Edit(FullRule(L"RESG"), [this](ui::Dialog&) {
        EXPECT_EQ(TabOrder(), (std::vector<int>{1042, 1051, 1079, 1000, 1045, 1043, 1046, 1044, 1047, 1050,
                                                1049, 1001, 1124, 1125, 1126, 1105, 1106, 1107, 1,    2}));
        Leave();
    });
}

TEST_F(RuleEditorLayout, EmptyFieldsOfPathsSayWhatBelongsThere) {
    Edit({}, [this](ui::Dialog& dialog) {
        for (const std::wstring& code : OperationCodes()) {
            SCOPED_TRACE(testing::PrintToString(code));
            ChooseOperation(code);
            EXPECT_EQ(Cue(ruleid::PathIn), L"Input folder");
            EXPECT_EQ(Cue(ruleid::PathOut), L"Output folder");
            EXPECT_EQ(Cue(ruleid::PathError), L"Error folder");
            EXPECT_EQ(Cue(ruleid::ActionField), code == L"MOVE"   ? L"Second Output folder"
                                                : code == L"EXEC" ? L"Executable file"
                                                                  : L"");
        }
        for (const int other : {ruleid::Description, ruleid::TextA, ruleid::NumberA, ruleid::TextD})
            EXPECT_EQ(Cue(other), L"") << other;
        EXPECT_EQ(dialog.Find(ruleid::PathIn).Name(), L"Input folder");
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
        tabTo(ruleid::StoreProfile);
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
