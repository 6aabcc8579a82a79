#include "app/CertificateForms.h"

#include "certs/SignerList.h"
#include "tests/certs/CertsTest.h"

namespace tests {
namespace {

using certs::CPreEncryptDlg;
using certs::SignerList;

class CertificateFormsTest : public CertsTest {
  protected:
    CertificateFormsTest() { profile_.Name = L"Alpha"; }

    ScriptedOpener opener_{search_};
    app::CertificateForms certificates_{forms_, opener_};
    config::ServiceProfile profile_;
    ui::Dialog owner_{notes_, nullptr, {.size = {100, 50}}};
};

TEST_F(CertificateFormsTest, RecipientsAreChosenWithAnOpenContext) {
    user_.Expect<CPreEncryptDlg>([this](CPreEncryptDlg& picker) {
        EXPECT_EQ(opener_.open, 1);
        EXPECT_EQ(picker.Parent(), &owner_);
        EXPECT_EQ(picker.Caption(), L"Add recipients");
        EXPECT_TRUE(user_.CanUse(pickid::FromLdap));
        EXPECT_EQ(Shown(pickid::Chosen), Names{L"CN=A"});
        AddLocal({L"CN=B"});
        user_.Click(pickid::SelectAll);
        user_.Click(pickid::Choose);
        user_.Click(ui::IdOk);
    });
    EXPECT_EQ(certificates_.ChooseRecipients(owner_, profile_, 1, {L"CN=A"}), (Names{L"CN=A", L"CN=B"}));
    EXPECT_EQ(opener_.open, 0);
    EXPECT_EQ(opener_.openedFor, Names{L"Alpha 1"});
    EXPECT_EQ(opener_.lastParent, &owner_);
}

TEST_F(CertificateFormsTest, ThePickerWorksWithTheSettingsOfTheContext) {
    opener_.ldapUsable = false;
    opener_.settings.GroupFilesFolder = L"C:\\groups";
    user_.Expect<CPreEncryptDlg>([this](CPreEncryptDlg&) {
        EXPECT_FALSE(user_.CanUse(pickid::FromLdap));
        user_.ExpectFilePicker(ui::FilePickerKind::Open, std::nullopt);
        user_.Click(pickid::FromGroup);
        EXPECT_EQ(notes_.pickers.back().initialFolder, L"C:\\groups");
        Leave();
    });
    EXPECT_EQ(certificates_.ChooseRecipients(owner_, profile_, 0, {L"CN=A"}), std::nullopt);
}

TEST_F(CertificateFormsTest, WithoutAContextNothingIsChosen) {
    opener_.opens = false;
    EXPECT_EQ(certificates_.ChooseRecipients(owner_, profile_, 0, {L"CN=A"}), std::nullopt);
}

TEST_F(CertificateFormsTest, SignerListsAreEditedInTheirForm) {
    const std::vector<config::SignerListEntry> lists{{L"chiefs", {L"CN=A"}}, {L"clerks", {L"CN=B"}}};
    user_.Expect<SignerList>([this](SignerList& form) {
        EXPECT_EQ(form.Parent(), &owner_);
        user_.ClickRow(1230, 0);
        ExpectQuestion(L"Delete 1 list(s)?", ui::IdYes);
        user_.Click(1233);
        user_.Expect<CPreEncryptDlg>([this](CPreEncryptDlg&) { Leave(); });
        user_.Click(1231);
        user_.Click(ui::IdOk);
    });
    EXPECT_EQ(certificates_.EditSignerLists(owner_, profile_, 2, lists), (std::vector{lists[1]}));
    EXPECT_EQ(opener_.openedFor, Names{L"Alpha 2"});
    user_.Expect<SignerList>([this](SignerList&) { Leave(); });
    EXPECT_EQ(certificates_.EditSignerLists(owner_, profile_, 2, lists), std::nullopt);
}

}  // namespace
}  // namespace tests
