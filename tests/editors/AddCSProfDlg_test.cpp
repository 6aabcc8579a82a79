#include "editors/AddCSProfDlg.h"

#include "tests/support/Fixture.h"

namespace tests {
namespace {

using editors::CAddCSProfDlg;

class AddCSProfDlgTest : public WorldTest {
  protected:
    int Run(CAddCSProfDlg& dialog, const std::function<void()>& script) {
        user_.Expect<CAddCSProfDlg>([&script](CAddCSProfDlg&) { script(); });
        return dialog.DoModal();
    }
    CAddCSProfDlg dialog_{world_->Screen(), nullptr, {L"Office", L"Bank", L"Office"}};
};

TEST_F(AddCSProfDlgTest, OffersEveryNameAndSelectsTheFirst) {
    const int result = Run(dialog_, [this] {
        EXPECT_EQ(dialog_.Caption(), L"Add CS profile");
        EXPECT_EQ(user_.Text(1101), L"Choose CS profile");
        EXPECT_EQ(user_.Get<ui::ComboBox>(1102).Items(),
                  (std::vector<std::wstring>{L"Office", L"Bank", L"Office"}));
        EXPECT_EQ(user_.Get<ui::ComboBox>(1102).Selected(), 0);
        EXPECT_EQ(user_.Text(ui::IdOk), L"OK");
        EXPECT_EQ(user_.Text(ui::IdCancel), L"Exit");
        EXPECT_EQ(dialog_.Focus(), &dialog_.Find(1102));
        user_.Press(Key::Down);
        user_.Press(Key::Enter);
    });
    EXPECT_EQ(result, ui::IdOk);
    EXPECT_EQ(dialog_.ProfileName(), L"Bank");
}

TEST_F(AddCSProfDlgTest, WithoutNamesItYieldsAnEmptyOne) {
    CAddCSProfDlg dialog(world_->Screen(), nullptr, {});
    EXPECT_EQ(Run(dialog, [this] { user_.Click(ui::IdOk); }), ui::IdOk);
    EXPECT_EQ(dialog.ProfileName(), L"");
}

TEST_F(AddCSProfDlgTest, LeavingYieldsNone) {
    EXPECT_EQ(Run(dialog_, [this] { user_.Click(ui::IdCancel); }), ui::IdCancel);
    EXPECT_EQ(dialog_.ProfileName(), L"");
}

}  // namespace
}  // namespace tests
