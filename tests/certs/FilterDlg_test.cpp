#include "certs/FilterDlg.h"

#include "certs/NameFields.h"
#include "tests/certs/CertsTest.h"

namespace tests {
namespace {

using certs::CFilterDlg;

class FilterDlgTest : public CertsTest {
  protected:
    CFilterDlg dialog_{notes_, nullptr, L"", std::nullopt};
};

TEST_F(FilterDlgTest, OffersTheFieldsAndTheEntireName) {
    Show(dialog_, [this] {
        Names offered = certs::OfferedFieldLabels();
        offered.push_back(L"<Search by entire name>");
        EXPECT_EQ(user_.Get<ui::ComboBox>(pickid::FilterField).Items(), offered);
        EXPECT_EQ(user_.Get<ui::ComboBox>(pickid::FilterField).Selected(), std::nullopt);
        EXPECT_EQ(user_.Text(pickid::FilterSample), L"");
        EXPECT_FALSE(user_.CanUse(ui::IdOk));
        user_.Press(Key::Enter);  // nothing to accept yet
        EXPECT_FALSE(dialog_.HasEnded());
        user_.Press(Key::Escape);
    });
}

TEST_F(FilterDlgTest, OkNeedsAUsableSampleOnEveryEdit) {
    Show(dialog_, [this] {
        const std::pair<const wchar_t*, bool> samples[] = {{L"*", true}, {L"**", false}, {L" ", false},
                                                           {L"a", true}, {L"* ", false}, {L"*a*", true},
                                                           {L"", false}, {L"=", true},   {L" *", false}};
        for (const auto& [sample, usable] : samples) {
            user_.Type(pickid::FilterSample, sample);
            EXPECT_EQ(user_.CanUse(ui::IdOk), usable) << testing::PrintToString(sample);
        }
        user_.Paste(pickid::FilterSample, L"\t*\t");
        EXPECT_FALSE(user_.CanUse(ui::IdOk));
        Leave();
    });
}

TEST_F(FilterDlgTest, WithoutAFieldTheListDropsOpen) {
    EXPECT_EQ(Show(dialog_,
                   [this] {
                       user_.Type(pickid::FilterSample, L"a");
                       ExpectHint(L"Select field for filter");
                       user_.Press(Key::Enter);
                       EXPECT_FALSE(dialog_.HasEnded());
                       EXPECT_TRUE(user_.Get<ui::ComboBox>(pickid::FilterField).IsDroppedDown());
                       EXPECT_EQ(notes_.owners.back(), &dialog_);
                       user_.Choose(pickid::FilterField, 15);
                       user_.Click(ui::IdOk);
                   }),
              ui::IdOk);
    EXPECT_EQ(dialog_.Field(), 15U);
    EXPECT_EQ(dialog_.Row(), 15);
}

TEST_F(FilterDlgTest, TheSampleIsCutAtBlanksAtBothEnds) {
    EXPECT_EQ(Show(dialog_,
                   [this] {
                       user_.Choose(pickid::FilterField, 0);
                       user_.Type(pickid::FilterSample, L"  Ivan *  ");
                       user_.Press(Key::Enter);
                   }),
              ui::IdOk);
    EXPECT_EQ(dialog_.Sample(), L"Ivan *");
    EXPECT_EQ(dialog_.Field(), 0U);
}

TEST_F(FilterDlgTest, TheLastChoiceIsTheEntireName) {
    EXPECT_EQ(Show(dialog_,
                   [this] {
                       user_.Choose(pickid::FilterField, 16);
                       user_.Type(pickid::FilterSample, L"*");
                       user_.Press(Key::Enter);
                   }),
              ui::IdOk);
    EXPECT_EQ(dialog_.Field(), std::nullopt);
    EXPECT_EQ(dialog_.Row(), 16);
    EXPECT_EQ(dialog_.Sample(), L"*");
}

TEST_F(FilterDlgTest, BeginsWithTheFieldAndTheSampleGiven) {
    for (const int row : {0, 15, 16}) {
        CFilterDlg dialog(notes_, nullptr, L"Iv*", row);
        const auto script = [this, row] {
            EXPECT_EQ(user_.Get<ui::ComboBox>(pickid::FilterField).Selected(), row);
            EXPECT_EQ(user_.Text(pickid::FilterSample), L"Iv*");
            user_.Click(ui::IdOk);
        };
        EXPECT_EQ(Show(dialog, script), ui::IdOk);
        EXPECT_EQ(dialog.Field(), row == 16 ? std::nullopt : std::optional<size_t>(row));
        EXPECT_EQ(dialog.Row(), row);
        EXPECT_EQ(dialog.Sample(), L"Iv*");
    }
}

TEST_F(FilterDlgTest, TabGoesFromTheFieldToTheSampleAndTheButtons) {
    Show(dialog_, [this] {
        EXPECT_EQ(dialog_.Focus()->Id(), pickid::FilterField);
        user_.Press(Key::Tab);
        EXPECT_EQ(dialog_.Focus()->Id(), pickid::FilterSample);
        user_.Type(pickid::FilterSample, L"x");
        user_.Press(Key::Tab);
        EXPECT_EQ(dialog_.Focus()->Id(), ui::IdOk);
        user_.Press(Key::Tab);
        EXPECT_EQ(dialog_.Focus()->Id(), ui::IdCancel);
        user_.Press(Key::Enter);
    });
    EXPECT_EQ(dialog_.Sample(), L"");
}

}  // namespace
}  // namespace tests
