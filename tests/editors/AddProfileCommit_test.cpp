// What OK asks for in the profile editor, and what it hands over.
#include <gtest/gtest.h>

#include "tests/editors/ProfileEditor.h"

namespace tests {
namespace {

using namespace profileid;

class AddProfileCommit : public ProfileEditorTest {
  protected:
    // OK is refused with the hint, and the field concerned gets the focus.
    void ExpectRefusal(const std::wstring& hint, int field) {
        ExpectHint(hint);
        user_.Click(ui::IdOk);
        EXPECT_TRUE(user_.Top().IsOpen());
        ExpectFocus(field);
    }
    void ExpectRefusedName(const std::wstring& name, const std::wstring& hint) {
        user_.Type(Name, name);
        ExpectRefusal(hint, Name);
        EXPECT_EQ(user_.Text(Name), name);
    }
    std::optional<std::wstring> Rename(const std::wstring& name, bool isNew) {
        const auto profile = Edit(isNew ? config::ServiceProfile() : Alpha(), [&](ui::Dialog&) {
            user_.Type(Name, name);
            user_.Click(ui::IdOk);
        });
        if (!profile) return std::nullopt;
        return profile->Name;
    }
};

TEST_F(AddProfileCommit, RefusesNamesThatCannotBe) {
    for (const bool isNew : {true, false}) {
        Edit(isNew ? config::ServiceProfile() : Alpha(), [this](ui::Dialog&) {
            ExpectRefusedName(L"", L"Please, type a name for profile.");
            ExpectRefusedName(L"   ", L"Profile name cannot consist from spaces only.");
            ExpectRefusedName(L"sixteen letters!", L"Profile name cannot be longer than 15 symbols.");
            ExpectRefusedName(std::wstring(16, L' '), L"Profile name cannot be longer than 15 symbols.");
            ExpectRefusedName(L"Beta", L"Profile 'Beta' allready exists.");
            Leave();
        });
    }
}

TEST_F(AddProfileCommit, APastedNameOf260CharactersIsTooLong) {
    Edit({}, [this](ui::Dialog&) {
        user_.Paste(Name, std::wstring(260, L'x'));
        ExpectRefusal(L"Profile name cannot be longer than 15 symbols.", Name);
        EXPECT_EQ(user_.Text(Name), std::wstring(260, L'x'));
        Leave();
    });
}

TEST_F(AddProfileCommit, TakesEveryOtherNameAsTyped) {
    for (const wchar_t* name :
         {L"fifteen letters", L" a ", L"beta", L"ALPHA", L"A/B", L"\u0416\u4E2D", L"%s", L"default"})
        for (const bool isNew : {true, false}) EXPECT_EQ(Rename(name, isNew), name);
}

TEST_F(AddProfileCommit, AnUnchangedNameIsNotADuplicate) {
    EXPECT_EQ(Rename(L"Alpha", false), L"Alpha");
    Edit({}, [this](ui::Dialog&) {
        ExpectRefusedName(L"Alpha", L"Profile 'Alpha' allready exists.");
        Leave();
    });
}

TEST_F(AddProfileCommit, AskForTheHandlerTimeout) {
    for (const wchar_t* none : {L"", L"0", L"000"}) {
        Edit(Alpha(), [&](ui::Dialog&) {
            user_.Type(Timeout, none);
            ExpectRefusal(L"Please, choose handler timeout.", Timeout);
            EXPECT_EQ(user_.Text(Timeout), none);
            Leave();
        });
    }
}

TEST_F(AddProfileCommit, TakesAnyOtherTimeout) {
    const std::pair<const wchar_t*, int32_t> cases[] = {
        {L"1", 1}, {L"007", 7}, {L"2147483647", 2147483647}, {L"99999999999", 2147483647}};
    for (const auto& [text, seconds] : cases) {
        const auto profile = Edit(Alpha(), [&](ui::Dialog&) {
            user_.Paste(Timeout, text);
            user_.Click(ui::IdOk);
        });
        ASSERT_TRUE(profile);
        EXPECT_EQ(profile->HandlerTimeout, seconds);
    }
}

TEST_F(AddProfileCommit, AsksForTheServerThatIsUsed) {
    const auto profile = Edit(Alpha(), [this](ui::Dialog&) {
        for (const wchar_t* missing : {L"", L"0"}) {
            user_.Type(Tsp, missing);
            ExpectRefusal(L"Please, type TSP data.", Tsp);
        }
        user_.Type(Tsp, L"00");
        user_.Click(ui::IdOk);
    });
    ASSERT_TRUE(profile);
    EXPECT_EQ(profile->ServerTSP[0], L"00");
}

TEST_F(AddProfileCommit, TellsTheFirstOfSeveralFaults) {
    Edit(Alpha(), [this](ui::Dialog&) {
        user_.Type(Tsp, L"");
        user_.Type(Timeout, L"");
        user_.Type(Name, L"");
        ExpectRefusal(L"Please, type a name for profile.", Name);
        user_.Type(Name, L"Beta");
        ExpectRefusal(L"Please, choose handler timeout.", Timeout);
        user_.Type(Timeout, L"5");
        ExpectRefusal(L"Profile 'Beta' allready exists.", Name);
        user_.Type(Name, L"Gamma");
        ExpectRefusal(L"Please, type TSP data.", Tsp);
        Leave();
    });
}

TEST_F(AddProfileCommit, HandsOverTheNameAndTheOptions) {
    const auto profile = Edit(Alpha(), [this](ui::Dialog&) {
        user_.Type(Name, L"Gamma");
        user_.Type(Timeout, L"90");
        for (const int box : {VerifyFile, VerifyXFile, VerifyDetFile, VerifyResignFile, RenameConfFiles})
            user_.Click(box);
        user_.Press(Key::Enter);
    });
    config::ServiceProfile expected = Alpha();
    expected.Name = L"Gamma";
    expected.HandlerTimeout = 90;
    expected.VerifyFile = 1;
    expected.VerifyXFile = 0;
    expected.VerifyDetFile = 1;
    expected.VerifyResignFile = 0;
    expected.RenameConfFiles = 1;
    EXPECT_EQ(profile, expected);
}

TEST_F(AddProfileCommit, EachOptionHasItsOwnBox) {
    using Profile = config::ServiceProfile;
    const std::pair<int, config::Flag Profile::*> boxes[] = {{VerifyFile, &Profile::VerifyFile},
                                                             {VerifyXFile, &Profile::VerifyXFile},
                                                             {VerifyDetFile, &Profile::VerifyDetFile},
                                                             {VerifyResignFile, &Profile::VerifyResignFile},
                                                             {RenameConfFiles, &Profile::RenameConfFiles}};
    for (const auto& [box, flag] : boxes) {
        const auto profile = Edit(With({L"Office"}), [this, id = box](ui::Dialog&) {
            user_.Click(id);
            user_.Click(ui::IdOk);
        });
        Profile expected = With({L"Office"});
        expected.*flag = 1;
        EXPECT_EQ(profile, expected) << box;
    }
}

TEST_F(AddProfileCommit, EachSettingHasItsOwnBox) {
    using Profile = config::ServiceProfile;
    const std::pair<int, std::vector<config::Flag> Profile::*> boxes[] = {
        {NotUseLdap, &Profile::NotUseLDAP},         {NotAddCert, &Profile::NotAddCert},
        {NotCopyToLocal, &Profile::NotCopyToLocal}, {NotLoadCrl, &Profile::NotLoadCrl},
        {VerifyTsp, &Profile::AutoVerifyTSP},       {UseAia, &Profile::UseAIA}};
    for (const auto& [box, flags] : boxes) {
        const auto profile = Edit(With({L"Office", L"Bank"}), [this, id = box](ui::Dialog&) {
            user_.Choose(profileid::CsProfiles, 1);
            user_.Click(id);
            user_.Click(ui::IdOk);
        });
        Profile expected = With({L"Office", L"Bank"});
        (expected.*flags)[1] = box == NotUseLdap ? 0 : 1;
        EXPECT_EQ(profile, expected) << box;
    }
}

TEST_F(AddProfileCommit, KeepsNumbersThatNobodyTouched) {
    config::ServiceProfile odd = Alpha();
    odd.NotUseLDAP = {5, 7};
    odd.CrlUpdatePeriod = {90000, -3};
    odd.VerifyFile = -1;
    odd.RenameConfFiles = 2;
    odd.HandlerTimeout = -1;
    const auto profile = Edit(odd, [this](ui::Dialog&) {
        EXPECT_TRUE(IsChecked(VerifyFile));
        EXPECT_TRUE(IsChecked(RenameConfFiles));
        EXPECT_TRUE(IsChecked(NotUseLdap));
        user_.Choose(profileid::CsProfiles, 1);
        user_.Click(ui::IdOk);
    });
    EXPECT_EQ(profile, odd);
}

TEST_F(AddProfileCommit, LeavingHandsOverNothing) {
    for (const bool byEscape : {true, false}) {
        EXPECT_FALSE(Edit(Alpha(), [&](ui::Dialog&) {
            user_.Type(Name, L"Gamma");
            byEscape ? user_.Press(Key::Escape) : user_.PressCloseBox();
        }));
    }
}

}  // namespace
}  // namespace tests
