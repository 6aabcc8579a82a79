// A window in memory names every part that changed without its being told, and nothing else.
#include "ui/memory/ShownState.h"

#include "platform/memory/MemoryParts.h"
#include "tests/ui/Gallery.h"
#include "ui/memory/MemoryScreen.h"

namespace tests {
namespace {

using Words = std::vector<std::string>;

// The gallery is not open, so that nobody but the test tells the state of a change.
class ShownStateTest : public testing::Test {
  protected:
    ShownStateTest() {
        gallery_.rows.SetColumns({{L"", 90}, {L"First", 100}});
        gallery_.SetMenuBar({{L"File", {{gallery::Open, L"Open", true}}}});
        gallery_.AppendToSystemMenu(gallery::About, L"About...");
        shown_.ShowAll(gallery_);
    }

    void ExpectStale(const std::string& words, const std::function<void()>& change, const std::function<void()>& show) {
        SCOPED_TRACE(words);
        EXPECT_EQ(Words{}, shown_.Stale(gallery_));
        change();
        EXPECT_EQ(Words{words}, shown_.Stale(gallery_));
        show();
        EXPECT_EQ(Words{}, shown_.Stale(gallery_));
    }
    void ExpectStale(const std::string& part, const ui::Control& control, ui::Aspect aspect,
                     const std::function<void()>& change) {
        ExpectStale(part + " of control " + std::to_string(control.Id()), change,
                    [&] { shown_.Show(control, aspect); });
    }
    void ExpectStale(const std::string& part, ui::DialogAspect aspect, const std::function<void()>& change) {
        ExpectStale(part + " of the dialog", change, [&] { shown_.Show(gallery_, aspect); });
    }

    platform::memory::MemoryScreenMetrics metrics_;
    ui::memory::MemoryScreen screen_{metrics_};
    Gallery gallery_{screen_};
    ui::memory::ShownState shown_;
};

TEST_F(ShownStateTest, NoticesWhatEveryControlHas) {
    ExpectStale("text", gallery_.hint, ui::Aspect::Text, [this] { gallery_.hint.SetText(L"Other"); });
    ExpectStale("text", gallery_.rows, ui::Aspect::Text, [this] { gallery_.rows.SetText(L"Other"); });
    ExpectStale("name", gallery_.rows, ui::Aspect::Name, [this] { gallery_.rows.SetName(L"Rows"); });
    ExpectStale("enabled", gallery_.tick, ui::Aspect::Enabled, [this] { gallery_.tick.Enable(false); });
    ExpectStale("enabled", gallery_.tick, ui::Aspect::Enabled, [this] { gallery_.tick.Enable(true); });
    ExpectStale("visible", gallery_.frame, ui::Aspect::Visible, [this] { gallery_.frame.Show(false); });
    ExpectStale("tooltip", gallery_.apply, ui::Aspect::Tooltip, [this] { gallery_.apply.SetTooltip(L"Applies"); });
}

TEST_F(ShownStateTest, NoticesWhatSomeControlsHave) {
    ExpectStale("icon", gallery_.save, ui::Aspect::Icon, [this] { gallery_.save.SetIcon(ui::Icon::RuleAdd); });
    ExpectStale("icon", gallery_.sign, ui::Aspect::Icon, [this] { gallery_.sign.SetIcon(ui::Icon::Error); });
    ExpectStale("readonly", gallery_.name, ui::Aspect::ReadOnly, [this] { gallery_.name.SetReadOnly(true); });
    ExpectStale("cue", gallery_.name, ui::Aspect::Cue, [this] { gallery_.name.SetCue(L"Whom?"); });
    ExpectStale("items", gallery_.kinds, ui::Aspect::Items, [this] { gallery_.kinds.SetItems({L"One"}); });
    ExpectStale("items", gallery_.mask, ui::Aspect::Items, [this] { gallery_.mask.SetItems({L"*.xml"}); });
    ExpectStale("items", gallery_.names, ui::Aspect::Items, [this] { gallery_.names.Add(L"doc"); });
}

TEST_F(ShownStateTest, NoticesColumns) {
    const auto expectStale = [this](const std::function<void()>& change) {
        ExpectStale("columns", gallery_.rows, ui::Aspect::Columns, change);
    };
    expectStale([this] { gallery_.rows.SetColumnWidths({91, 100}); });
    expectStale([this] { gallery_.rows.SetSortArrow(1, ui::SortArrow::Down); });
    expectStale([this] { gallery_.rows.SetColumns({{L"", 91}, {L"Other", 100}}); });
}

// Which no list turns over by itself.
TEST_F(ShownStateTest, NoticesTheBoxesOfRows) {
    ExpectStale("checks", gallery_.rows, ui::Aspect::Rows, [this] { gallery_.FillRows(3); });
    const auto expectStale = [this](const std::function<void()>& change) {
        ExpectStale("checks", gallery_.rows, ui::Aspect::RowChecks, change);
    };
    expectStale([this] { gallery_.rows.UserToggledCheck(2); });
    expectStale([this] { gallery_.rows.Reorder(std::vector<uint32_t>{2, 0, 1}); });
}

TEST_F(ShownStateTest, NoticesWhatTheDialogHas) {
    ExpectStale("caption", ui::DialogAspect::Caption, [this] { gallery_.SetCaption(L"Other"); });
    ExpectStale("icon", ui::DialogAspect::Icon, [this] { gallery_.SetIcon(ui::Icon::App); });
    const auto expectStaleMenu = [this](const std::function<void()>& change) {
        ExpectStale("menu bar", ui::DialogAspect::MenuBar, change);
    };
    expectStaleMenu([this] { gallery_.EnableMenuItems({gallery::Open}, false); });
    expectStaleMenu([this] { gallery_.SetMenuBar({{L"File", {{gallery::Open, L"Open it", false}}}}); });
    expectStaleMenu([this] { gallery_.SetMenuBar({{L"Other", {{gallery::Open, L"Open it", false}}}}); });
    expectStaleMenu([this] { gallery_.SetMenuBar({{L"Other", {{gallery::Print, L"Open it", false}}}}); });
    ExpectStale("system menu", ui::DialogAspect::SystemMenu,
                [this] { gallery_.AppendToSystemMenu(gallery::Print, L"Print"); });
}

TEST_F(ShownStateTest, LeavesToTheUserWhatTheUserChanges) {
    gallery_.name.UserTyped(L"typed");
    gallery_.mask.UserTyped(L"*.doc");
    gallery_.tick.UserClicked();
    EXPECT_EQ(Words{}, shown_.Stale(gallery_));
}

TEST_F(ShownStateTest, NamesEveryStalePart) {
    gallery_.hint.SetText(L"Other");
    gallery_.hint.Show(false);
    gallery_.SetCaption(L"Other");
    EXPECT_EQ((Words{"text of control 111", "visible of control 111", "caption of the dialog"}),
              shown_.Stale(gallery_));
}

TEST_F(ShownStateTest, KnowsNothingOfAWindowThatIsNotShownYet) {
    const ui::memory::ShownState nothing;
    EXPECT_EQ(Words{}, nothing.Stale(gallery_));
}

}  // namespace
}  // namespace tests
