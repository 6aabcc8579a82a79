// What has to be right before the certificate picker accepts the chosen names.
#include "tests/certs/CertsTest.h"

namespace tests {
namespace {

using certs::CPreEncryptDlg;

class PickerAccept : public CertsTest {
  protected:
    static std::wstring Missing(const std::wstring& name) {
        return L"No certificates found for user " + name + L".\r\nContinue to check other users?";
    }
};

TEST_F(PickerAccept, EveryNameIsLookedUpInItsOrder) {
    EXPECT_EQ(PickRecipients({L"CN=B", L"", L"CN=A"},
                             [this](CPreEncryptDlg& picker) {
                                 user_.Press(Key::Enter);
                                 EXPECT_EQ(search_.lastParent, &picker);
                             }),
              (Names{L"CN=B", L"CN=A"}));
    EXPECT_EQ(search_.asked, (Names{L"CN=B", L"CN=A"}));
}

TEST_F(PickerAccept, TheOrderIsThatOfTheRows) {
    EXPECT_EQ(PickRecipients({L"CN=B", L"CN=A"},
                             [this](CPreEncryptDlg&) {
                                 user_.ClickHeader(pickid::Chosen, 0);
                                 user_.Click(ui::IdOk);
                             }),
              (Names{L"CN=A", L"CN=B"}));
}

TEST_F(PickerAccept, NoRecipientsAreAllowed) {
    EXPECT_EQ(PickRecipients({}, [this](CPreEncryptDlg&) { user_.Click(ui::IdOk); }), Names{});
    search_.withoutCertificate = {L"CN=A"};
    EXPECT_EQ(PickRecipients({L"CN=A"},
                             [this](CPreEncryptDlg&) {
                                 ExpectQuestion(Missing(L"CN=A"), ui::IdYes);
                                 user_.Click(ui::IdOk);
                             }),
              Names{});
}

TEST_F(PickerAccept, NamesWithoutCertificatesAreDroppedOneByOne) {
    search_.withoutCertificate = {L"CN=A", L"CN=100%s"};
    EXPECT_EQ(PickRecipients({L"CN=A", L"CN=B", L"CN=100%s", L"CN=C"},
                             [this](CPreEncryptDlg& picker) {
                                 ExpectQuestion(Missing(L"CN=A"), ui::IdYes);
                                 ExpectQuestion(Missing(L"CN=100%s"), ui::IdYes);
                                 user_.Click(ui::IdOk);
                                 EXPECT_EQ(notes_.owners.back(), &picker);
                             }),
              (Names{L"CN=B", L"CN=C"}));
}

TEST_F(PickerAccept, NoToTheQuestionLeavesTheFormAsItWas) {
    search_.withoutCertificate = {L"CN=A", L"CN=C"};
    EXPECT_EQ(PickRecipients({L"CN=A", L"CN=B", L"CN=C", L"CN=D"},
                             [this](CPreEncryptDlg& picker) {
                                 Check(pickid::Chosen, {1});
                                 ExpectQuestion(Missing(L"CN=A"), ui::IdYes);
                                 ExpectQuestion(Missing(L"CN=C"), ui::IdNo);
                                 user_.Click(ui::IdOk);
                                 EXPECT_FALSE(picker.HasEnded());
                                 EXPECT_EQ(Shown(pickid::Chosen), (Names{L"CN=A", L"CN=B", L"CN=C", L"CN=D"}));
                                 EXPECT_EQ(Checks(pickid::Chosen), (std::vector{false, true, false, false}));
                                 EXPECT_EQ(search_.asked, (Names{L"CN=A", L"CN=B", L"CN=C"}));
                                 Leave();
                             }),
              std::nullopt);
}

TEST_F(PickerAccept, AFailedSearchStops) {
    search_.failsFor = L"CN=B";
    EXPECT_EQ(PickRecipients({L"CN=A", L"CN=B", L"CN=C"},
                             [this](CPreEncryptDlg& picker) {
                                 user_.Click(ui::IdOk);
                                 EXPECT_FALSE(picker.HasEnded());
                                 EXPECT_EQ(search_.asked, (Names{L"CN=A", L"CN=B"}));
                                 Leave();
                             }),
              std::nullopt);
}

TEST_F(PickerAccept, ASignerListNeedsAName) {
    const auto result = PickSigners(L"", {L"CN=A"}, [this](CPreEncryptDlg& picker) {
        ExpectHint(L"No list name");
        user_.Click(ui::IdOk);
        EXPECT_FALSE(picker.HasEnded());
        EXPECT_EQ(picker.Focus()->Id(), pickid::Name);
        EXPECT_TRUE(search_.asked.empty());
        user_.Type(pickid::Name, L" ");  // blanks are a name
        user_.Press(Key::Enter);
    });
    EXPECT_EQ(result, Names{L"CN=A"});
    EXPECT_EQ(listName_, L" ");
}

TEST_F(PickerAccept, ASignerListNeedsANameOfItsOwn) {
    lists_ = {{L"chiefs", {}}, {L"own", {L"CN=A"}}};
    const auto result = PickSigners(L"own", {L"CN=A"}, [this](CPreEncryptDlg& picker) {
        user_.Type(pickid::Name, L"chiefs");
        ExpectHint(L"List with this name already exists");
        user_.Click(ui::IdOk);
        EXPECT_FALSE(picker.HasEnded());
        EXPECT_TRUE(search_.asked.empty());
        user_.Type(pickid::Name, L"Chiefs");
        user_.Click(ui::IdOk);
    });
    EXPECT_EQ(result, Names{L"CN=A"});
    EXPECT_EQ(listName_, L"Chiefs");
}

// It is the name of a key.
TEST_F(PickerAccept, TheNameOfASignerListTakesWhatTheRegistryTakes) {
    const auto result = PickSigners(L"", {L"CN=A"}, [this](CPreEncryptDlg&) {
        user_.Type(pickid::Name, L"a\\b");
        EXPECT_EQ(user_.Text(pickid::Name), L"ab");
        user_.Paste(pickid::Name, std::wstring(300, L'n'));
        EXPECT_EQ(user_.Text(pickid::Name), std::wstring(255, L'n'));
        user_.Paste(pickid::Name, L"a\\b");
        user_.Click(ui::IdOk);
    });
    EXPECT_EQ(result, Names{L"CN=A"});
    EXPECT_EQ(listName_, L"ab");
}

TEST_F(PickerAccept, ASignerListMayKeepItsName) {
    lists_ = {{L"own", {L"CN=A"}}};
    EXPECT_EQ(PickSigners(L"own", {L"CN=A"}, [this](CPreEncryptDlg&) { user_.Click(ui::IdOk); }), Names{L"CN=A"});
    EXPECT_EQ(listName_, L"own");
}

TEST_F(PickerAccept, ASignerListNeedsAMember) {
    search_.withoutCertificate = {L"CN=A"};
    PickSigners(L"own", {L"CN=A"}, [this](CPreEncryptDlg& picker) {
        ExpectQuestion(Missing(L"CN=A"), ui::IdYes);
        ExpectHint(L"No users selected.");
        user_.Click(ui::IdOk);
        EXPECT_FALSE(picker.HasEnded());
        EXPECT_EQ(Shown(pickid::Chosen), Names{L"CN=A"});
        Check(pickid::Chosen, {0});
        user_.Click(pickid::Remove);
        ExpectHint(L"No users selected.");
        user_.Click(ui::IdOk);
        EXPECT_FALSE(picker.HasEnded());
        Leave();
    });
    EXPECT_EQ(listName_, L"");
}

}  // namespace
}  // namespace tests
