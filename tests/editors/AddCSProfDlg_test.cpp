#include "editors/AddProfile.h"

#include "tests/support/Fixture.h"
#include "tests/support/Ids.h"

namespace tests {
namespace {

using editors::CAddCSProfDlg;

class AddCSProfDlgTest : public WorldTest {
  protected:
    CAddCSProfDlg dialog_{world_->Screen(), nullptr, {L"Office", L"Bank", L"Office"}};
};

TEST_F(AddCSProfDlgTest, OffersEveryNameAndSelectsTheFirst) {
    const int result = Show(dialog_, [this] {
        EXPECT_EQ(user_.Get<ui::ComboBox>(profileid::Choice).Items(),
                  (std::vector<std::wstring>{L"Office", L"Bank", L"Office"}));
        EXPECT_EQ(user_.Get<ui::ComboBox>(profileid::Choice).Selected(), 0);
        EXPECT_EQ(dialog_.Focus(), &dialog_.Find(profileid::Choice));
        user_.Press(Key::Down);
        user_.Press(Key::Enter);
    });
    EXPECT_EQ(result, ui::IdOk);
    EXPECT_EQ(dialog_.ProfileName(), L"Bank");
}

TEST_F(AddCSProfDlgTest, WithoutNamesItYieldsAnEmptyOne) {
    CAddCSProfDlg dialog(world_->Screen(), nullptr, {});
    EXPECT_EQ(Show(dialog, [this] { user_.Click(ui::IdOk); }), ui::IdOk);
    EXPECT_EQ(dialog.ProfileName(), L"");
}

TEST_F(AddCSProfDlgTest, LeavingYieldsNone) {
    EXPECT_EQ(Show(dialog_, [this] { user_.Click(ui::IdCancel); }), ui::IdCancel);
    EXPECT_EQ(dialog_.ProfileName(), L"");
}

}  // namespace
}  // namespace tests
