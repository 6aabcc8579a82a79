// How the keyboard goes through the profile editor.
#include <gtest/gtest.h>

#include "tests/editors/ProfileEditor.h"

namespace tests {
namespace {

using namespace profileid;

class AddProfileLayout : public ProfileEditorTest {
  protected:
    void TabTo(int id) {
        for (int i = 0; i < 40 && user_.Top().Focus()->Id() != id; ++i) user_.Press(Key::Tab);
        ExpectFocus(id);
    }
};

TEST_F(AddProfileLayout, TabVisitsEveryUsableControlInReadingOrder) {
    Edit({}, [this](ui::Dialog&) {
        EXPECT_EQ(user_.TabOrder(), (std::vector<int>{1037, 1001, 1098, 1099, 1054, 1055, 1056, 1057, 1064, 1058,
                                                      1060, 1062, 1076, 1077, 1078, 1080, 1079, 1093, 1,    2}));
        Leave();
    });
    Edit(Alpha(), [this](ui::Dialog&) {
        user_.Click(VerifyTsp);
        user_.Click(Name);
        EXPECT_EQ(user_.TabOrder(), (std::vector<int>{1037, 1001, 1098, 1099, 1054, 1055, 1056, 1057, 1064, 1058, 1059,
                                                      1060, 1061, 1062, 1076, 1077, 1078, 1080, 1079, 1093, 1,    2}));
        Leave();
    });
}

TEST_F(AddProfileLayout, AWholeProfileCanBeMadeByTheKeyboard) {
    const auto profile = Edit({}, [this](ui::Dialog&) {
        ExpectFocus(Name);
        user_.Type(Name, L"Keys");
        TabTo(Add);
        user_.Expect<editors::CAddCSProfDlg>([this](editors::CAddCSProfDlg&) {
            user_.Press(Key::Down);
            user_.Press(Key::Enter);
        });
        user_.Press(Key::Space);
        TabTo(NotLoadCrl);
        user_.Press(Key::Space);
        TabTo(Period);
        user_.Press(Key::Tab);
        ExpectFocus(UseTsp);
        user_.Press(Key::Space);
        TabTo(Tsp);
        user_.Type(Tsp, L"http://tsp");
        TabTo(profileid::CsProfiles);
        user_.Press(Key::Up);
        EXPECT_EQ(SelectedCsProfile(), L"Office");
        TabTo(VerifyFile);
        user_.Press(Key::Space);
        TabTo(ui::IdOk);
        user_.Press(Key::Enter);
    });
    config::ServiceProfile expected = With({L"Office", L"Bank"});
    expected.Name = L"Keys";
    expected.NotLoadCrl[1] = 1;
    expected.AutoUseTSP[1] = 1;
    expected.ServerTSP[1] = L"http://tsp";
    expected.VerifyFile = 1;
    EXPECT_EQ(profile, expected);
}

TEST_F(AddProfileLayout, TheKeyboardCannotLeaveAStoreProfileWithoutItsServer) {
    Edit(Alpha(), [this](ui::Dialog&) {
        user_.Type(Tsp, L"");
        user_.Click(profileid::CsProfiles);
        ExpectHint(L"Please, type TSP data.");
        user_.Press(Key::Down);
        EXPECT_EQ(SelectedCsProfile(), L"Office");
        ExpectFocus(Tsp);
        user_.Press(Key::Escape);
    });
}

TEST_F(AddProfileLayout, EnterInAFieldIsOk) {
    const auto profile = Edit(Alpha(), [this](ui::Dialog&) {
        user_.Type(Timeout, L"8");
        user_.Press(Key::Enter);
    });
    ASSERT_TRUE(profile);
    EXPECT_EQ(profile->HandlerTimeout, 8);
}

TEST_F(AddProfileLayout, ALongListShowsEveryStoreProfile) {
    Texts names;
    for (int i = 0; i < 300; ++i) names.push_back(L"Store profile " + std::to_wstring(i));
    config::ServiceProfile expected = With(names);
    const auto profile = Edit(expected, [this](ui::Dialog&) {
        user_.Choose(profileid::CsProfiles, 299);
        user_.Click(UseAia);
        user_.Choose(profileid::CsProfiles, 150);
        DeleteSelected();
        EXPECT_EQ(SelectedCsProfile(), L"Store profile 0");
        user_.Click(ui::IdOk);
    });
    config::DetachCsProfile(expected, 150);
    expected.UseAIA.back() = 1;
    EXPECT_EQ(profile, expected);
}

}  // namespace
}  // namespace tests
