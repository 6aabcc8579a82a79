// Where the controls of the rule editor stand, and in what order the keyboard reaches them.
#include <gtest/gtest.h>

#include "editors/AddMask.h"
#include "tests/editors/Places.h"
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

    static void CheckPlaces(const ui::Dialog& dialog) {
        std::vector<const ui::Control*> shown;
        for (const ui::Control* control : dialog.Controls())
            if (control->IsVisible()) shown.push_back(control);
        for (const ui::Control* control : shown) {
            const ui::Place& place = control->Placement();
            EXPECT_GE(place.x, 7) << control->Id();
            EXPECT_GE(place.y, 7) << control->Id();
            EXPECT_LE(place.x + place.width, 394 - 7) << control->Id();
            EXPECT_LE(place.y + place.height, 224 - 7) << control->Id();
            for (const ui::Control* other : shown)
                EXPECT_FALSE(control != other && Overlap(place, other->Placement()))
                    << control->Id() << " and " << other->Id();
        }
    }
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

TEST_F(RuleEditorLayout, EveryControlLiesWithinTheMarginsAndNoneOnAnother) {
    Edit({}, [this](ui::Dialog& dialog) {
        for (const std::wstring& code : OperationCodes()) {
            SCOPED_TRACE(std::string(code.begin(), code.end()));
            ChooseOperation(code);
            CheckPlaces(dialog);
        }
        Leave();
    });
}

TEST_F(RuleEditorLayout, TheInputsOfARowShareOnePlace) {
    Edit({}, [this](ui::Dialog& dialog) {
        const auto bounds = [&dialog](int id) {
            const ui::Place& place = dialog.Find(id).Placement();
            return ui::Rect{place.x, place.y, place.width, place.height};
        };
        EXPECT_EQ(bounds(ruleid::ListA), bounds(ruleid::TextA));
        EXPECT_EQ(bounds(ruleid::ListA), bounds(ruleid::NumberA));
        EXPECT_EQ(bounds(ruleid::ListB), bounds(ruleid::TextB));
        EXPECT_EQ(bounds(ruleid::ListB), bounds(ruleid::NumberB));
        EXPECT_EQ(bounds(ruleid::ListC), bounds(ruleid::TextC));
        EXPECT_EQ(bounds(ruleid::ListC), bounds(ruleid::NumberC));
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
