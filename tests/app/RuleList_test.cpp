// The rule list by itself: what it shows while rows and rules do not fit together.
#include "app/RuleList.h"

#include <gtest/gtest.h>

#include "tests/support/Fixture.h"

namespace tests {
namespace {

class DialogWithRules : public ui::Dialog {
  public:
    explicit DialogWithRules(const config::Services& services)
        : Dialog(services.Screen, nullptr, {.size = {100, 100}}),
          list(view, *this, services, [this] { return std::span<const config::Rule>(rules); }) {}

    std::vector<config::Rule> rules;
    ui::ListView view{*this, 20, {0, 0, 100, 100}, {.checkBoxes = true}};
    app::RuleList list;
};

class RuleListTest : public WorldTest {
  protected:
    // A list of two rules; the user does what the script says.
    void Run(const std::function<void()>& script) {
        for (const wchar_t* description : {L"first", L"second"}) {
            config::Rule& rule = dialog_.rules.emplace_back();
            rule.Operation = L"HASH";
            rule.Descryption = description;
        }
        dialog_.list.CreateColumns();
        dialog_.list.Fill({});
        user_.Expect<DialogWithRules>([&](DialogWithRules&) {
            script();
            user_.PressCloseBox();
        });
        dialog_.DoModal();
    }
    std::wstring Description(size_t row) { return dialog_.view.CellText(row, 1); }

    DialogWithRules dialog_{services_};
};

TEST_F(RuleListTest, ARowWhoseRuleIsGoneIsBlankAndTellsNothing) {
    Run([this] {
        EXPECT_EQ(Description(1), L"second");
        dialog_.rules.pop_back();
        EXPECT_EQ(Description(0), L"first");
        EXPECT_EQ(Description(1), L"");
        dialog_.view.UserRightClicked({1, 1});
        user_.ExpectBox(L"first", ui::box::Ok | ui::box::InformationIcon, ui::IdOk);
        dialog_.view.UserRightClicked({0, 1});
    });
}

TEST_F(RuleListTest, ARowThatIsNotThereIsBlank) {
    Run([this] {
        dialog_.rules.emplace_back(dialog_.rules.back());  // not listed yet
        EXPECT_EQ(Description(2), L"");
        dialog_.list.Empty();
        EXPECT_EQ(Description(0), L"");
        EXPECT_FALSE(dialog_.list.IsFilled());
    });
}

TEST_F(RuleListTest, ARightClickBesideTheCellsTellsNothing) {
    Run([this] {
        const size_t columns = app::RuleColumnHeaders().size();
        dialog_.view.UserRightClicked({0, columns});
        dialog_.view.UserRightClicked({std::nullopt, 1});
    });
}

}  // namespace
}  // namespace tests
