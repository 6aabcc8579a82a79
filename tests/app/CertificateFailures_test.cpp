// What can go wrong between the rule editor's button and the picker, seen from the main window: the user is
// told, decides, and the rule stays as it was.
#include <algorithm>

#include "tests/app/CertificateJourney.h"

namespace tests {
namespace {

using demo::StandInCall;
constexpr char probe[] = "FindCert 0xE04 scope 0 \"CN=QQQ,C=RU\" fields 4";

class CertificateFailures : public CertificateJourney {
  protected:
    // The user presses the action button; there is no picker, and the recipients are those of before.
    void PickerStaysAway() {
        user_.Click(ruleid::ActionButton);
        EXPECT_EQ(ActionField(), L"2");
    }
    size_t CountOf(const std::string& call) const {
        return static_cast<size_t>(std::count(library_.Calls().begin(), library_.Calls().end(), call));
    }
    std::string Stamps() {
        const std::string text = Dump();
        const size_t begin = text.find("LastCrlUpdate");
        return begin == std::string::npos ? std::string() : text.substr(begin, text.find('\n', begin) - begin);
    }
};

TEST_F(CertificateFailures, WithoutTheLibraryThereIsNoPicker) {
    SeedEncryptingRule();
    world_->CryptoLibrary().Remove(126);
    WithTheRule([this] {
        ExpectFailureBox(L"Cryptocontext initialization.\r\nError 0x7E - Module not found.\r\n\r\nThere is no library.",
                         &user_.Top());
        PickerStaysAway();
        world_->CryptoLibrary().Install(demo::StandInLibrary::Exports());
        OpenPicker([this] { user_.Click(ui::IdCancel); });
    });
    EXPECT_EQ(screen_.modeless.size(), 2U);
}

TEST_F(CertificateFailures, ALibraryThatDoesNotOpenAContextTellsItsErrors) {
    SeedEncryptingRule();
    library_.SetAnswer(StandInCall::Initialize, failed);
    library_.AddError(nullptr, {"no key", "init.c", 7, "drive A:"});
    WithTheRule([this] {
        ExpectFailureBox(
            L"Cryptocontext initialization.\r\nKSEAL error 0x20000010 - It failed.\r\n\r\n"
            L"KSEAL stek, error number 1\r\nError: no key\r\nFile: init.c\r\nData: drive A:\r\n",
            &user_.Top());
        PickerStaysAway();
    });
    EXPECT_EQ(library_.Calls(), Calls{"Initialize \"Office\" 0x80000040"});
    EXPECT_EQ(Stamps(), "");
}

TEST_F(CertificateFailures, SignerListsStayAsTheyWereWithoutAContext) {
    SeedEncryptingRule();
    world_->CryptoLibrary().Remove(127);
    systemMessages_.SetSystemText(127, L"Procedure not found.\r\n");
    RunProgram([this] {
        user_.Expect<editors::CAddRule>([this](editors::CAddRule&) {
            user_.Choose(ruleid::Operation, 6);
            OpenSignerLists([this] {
                ExpectFailureBox(
                    L"Cryptocontext initialization.\r\nError 0x7F - Procedure not found.\r\n\r\nThere is no "
                    L"library.",
                    &user_.Top());
                user_.Click(signersid::Add);
                EXPECT_EQ(user_.RowCount(signersid::List), 0U);
                user_.Click(ui::IdOk);
            });
            EXPECT_EQ(ActionField(), L"0");
            user_.Click(ui::IdCancel);
        });
        user_.DoubleClickRow(id::Rules, 0);
        user_.PressCloseBox();
    });
}

class SilentNetwork : public CertificateFailures {
  protected:
    SilentNetwork() {
        SeedEncryptingRule();
        library_.Serve({.Certificates = {{.OwnerName = "CN=Anna Keller,O=Kontor,C=DE"},
                                         {.OwnerName = "CN=Boris Petrov,O=Bank,C=RU"}},
                        .NetworkAnswers = false});
    }
    void ExpectBoxes(int answer) {
        ExpectFailureBox(
            L"Conneting to network store (LDAP).\r\n"
            L"KSEAL error 0x20000003 - The network store of the stand-in library does not answer.\r\n\r\n"
            L"KSEAL stek, error number 1\r\nError: no answer\r\nFile: stand-in\r\nData: network = off\r\n",
            nullptr);
        user_.ExpectBox(
            L"The network store of the stand-in library does not answer (0x20000003).\r\n"
            L"Continue without LDAP?",
            boxes::OkOrCancel, answer);
    }
};

TEST_F(SilentNetwork, TheUserGoesOnWithoutIt) {
    WithTheRule([this] {
        const ui::Dialog* const editor = &user_.Top();
        ExpectBoxes(ui::IdOk);
        OpenPicker([this] {
            EXPECT_FALSE(user_.CanUse(pickid::FromLdap));
            EXPECT_TRUE(user_.CanUse(pickid::FromGroup));
            AddFromLocalStore();
            EXPECT_EQ(Candidates().size(), 2U);
            user_.Click(ui::IdOk);
        });
        EXPECT_EQ(ActionField(), L"2");
        EXPECT_EQ(screen_.owners, std::vector<const ui::Dialog*>{editor});
    });
    // The recipients are looked for where the profile says, in the network too: 0x4.
    EXPECT_EQ(library_.Calls(),
              (Calls{"Initialize \"Office\" 0x80000040", probe, "FreeFindResult", "Ctrl 4",
                     "FindCert 0x100 scope 0 null fields 132", "FreeFindResult",
                     "FindCert 0x104 scope 4 \"CN=Anna Keller,O=Kontor,C=DE\" fields 163972", "FreeFindResult",
                     "FindCert 0x104 scope 4 \"CN=Boris Petrov,O=Bank,C=RU\" fields 163972", "FreeFindResult",
                     "Uninitialize"}));
}

TEST_F(SilentNetwork, TheUserGivesUp) {
    WithTheRule([this] {
        ExpectBoxes(ui::IdCancel);
        PickerStaysAway();
    });
    EXPECT_EQ(library_.Calls(), (Calls{"Initialize \"Office\" 0x80000040", probe, "FreeFindResult", "Uninitialize"}));
    EXPECT_EQ(Stamps(), "");
}

class FailingCrl : public CertificateFailures {
  protected:
    FailingCrl() {
        SeedEncryptingRule();
        library_.Serve({.CrlDiagnostic = "no list at all"});
    }
    void ExpectBoxes(int answer) {
        ExpectFailureBox(
            L"Connetion to CRL distribution point.\r\nKSEAL error 0x20000004 - The stand-in library has not "
            L"loaded the revocation lists.\r\n\r\nno list at all",
            nullptr);
        user_.ExpectBox(
            L"The stand-in library has not loaded the revocation lists (0x20000004).\r\n"
            L"Continue without loading CRL?",
            boxes::OkOrCancel, answer);
    }
};

TEST_F(FailingCrl, TheUserGoesOnAndIsNotAskedAgainBeforeThePeriodIsOver) {
    WithTheRule([this] {
        ExpectBoxes(ui::IdOk);
        OpenPicker([this] { user_.Click(ui::IdCancel); });
        EXPECT_EQ(Stamps(), "LastCrlUpdate = { \"Office;;1700000000\" }");
        clock_.Advance(6 * 3600 - 60);
        OpenPicker([this] { user_.Click(ui::IdCancel); });
        EXPECT_EQ(CountOf("Ctrl 4"), 1U);
        clock_.Advance(60);
        ExpectBoxes(ui::IdCancel);
        PickerStaysAway();
    });
    EXPECT_EQ(CountOf("Ctrl 4"), 2U);
}

TEST_F(FailingCrl, TheUserGivesUpAndTheTimeIsKeptAllTheSame) {
    WithTheRule([this] {
        ExpectBoxes(ui::IdCancel);
        PickerStaysAway();
        EXPECT_EQ(library_.Calls().back(), "Uninitialize");
    });
    EXPECT_EQ(Stamps(), "LastCrlUpdate = { \"Office;;1700000000\" }");
}

TEST_F(CertificateFailures, ASearchThatFailsKeepsThePickerOpen) {
    SeedEncryptingRule();
    WithTheRule([this] {
        OpenPicker([this] {
            library_.SetAnswer(StandInCall::FindCert, failed);
            user_.ExpectBox(
                L"Searching of all certificate in local store.\r\n"
                L"KSEAL error 0x20000010 - It failed.",
                boxes::Report, ui::IdOk);
            AddFromLocalStore();
            user_.ExpectBox(
                L"Searching for certificate CN=Anna Keller,O=Kontor,C=DE.\r\n"
                L"KSEAL error 0x20000010 - It failed.",
                boxes::Report, ui::IdOk);
            user_.Click(ui::IdOk);
            EXPECT_EQ(Chosen().size(), 2U);
            EXPECT_EQ(screen_.owners, (std::vector<const ui::Dialog*>(2, &user_.Top())));
            library_.SetAnswer(StandInCall::FindCert, 0);
            user_.Click(ui::IdOk);
        });
        EXPECT_EQ(ActionField(), L"2");
    });
}

TEST_F(CertificateFailures, AContextThatDoesNotCloseLosesNothing) {
    SeedEncryptingRule();
    library_.SetAnswer(StandInCall::Uninitialize, failed);
    WithTheRule([this] {
        OpenPicker([this] {
            user_.ClickCheckBox(pickid::Chosen, 0);
            user_.Click(pickid::Remove);
            user_.Click(ui::IdOk);
        });
        EXPECT_EQ(ActionField(), L"1");
    });
    EXPECT_TRUE(screen_.owners.empty());
}

TEST_F(CertificateFailures, AProfileWithoutLdapNeverAsksTheNetwork) {
    SeedEncryptingRule(
        "NotUseLDAP = { \"1\" }\nNotLoadCrl = { \"1\" }\nNotCopyToLocal = { \"1\" }\n"
        "UseAIA = { \"1\" }\n");
    WithTheRule([this] {
        OpenPicker([this] {
            EXPECT_FALSE(user_.CanUse(pickid::FromLdap));
            user_.Click(ui::IdOk);
        });
    });
    EXPECT_EQ(library_.Calls(),
              (Calls{"Initialize \"Office\" 0x80000465",
                     "FindCert 0x100 scope 4 \"CN=Anna Keller,O=Kontor,C=DE\" fields 163972", "FreeFindResult",
                     "FindCert 0x100 scope 4 \"CN=Boris Petrov,O=Bank,C=RU\" fields 163972", "FreeFindResult",
                     "Uninitialize"}));
    EXPECT_EQ(Stamps(), "");
}

}  // namespace
}  // namespace tests
