// Recipients and signers of a rule: from the library, from files, into the registry and back again.
#include "tests/app/CertificateJourney.h"

namespace tests {
namespace {

constexpr wchar_t anna[] = L"CN=Anna Keller,O=Kontor,C=DE";
constexpr wchar_t boris[] = L"CN=Boris Petrov,O=Bank,C=RU";
constexpr wchar_t clara[] = L"CN=Clara Weiss,O=Atelier,C=FR";
constexpr wchar_t ivan[] = L"CN=Ivan Orlov,O=Bank,C=RU";
constexpr wchar_t ivana[] = L"CN=Ivana Horvat,O=Jadran,C=HR";
constexpr wchar_t guest[] = L"CN=Guest,O=Elsewhere";

class RecipientsJourney : public CertificateJourney {
  protected:
    RecipientsJourney() {
        SeedProfile();
        files_->Put(Path(L"guests.grx"), "CN=Guest,O=Elsewhere\r\nCN=Anna Keller,O=Kontor,C=DE\r\n");
    }

    void ExpectOpenedContext() {
        EXPECT_EQ(library_.Calls(),
                  (Calls{"Initialize \"Office\" 0x80000040", "FindCert 0xE04 scope 0 \"CN=QQQ,C=RU\" fields 4",
                         "FreeFindResult", "Ctrl 4"}));
        EXPECT_EQ(screen_.modeless.size(), 1U);
        EXPECT_TRUE(screen_.owners.empty());
    }
    // Anna and Clara from the local store, kept in a file; then only Clara's file, the network and the
    // guests.
    void GatherCandidates() {
        AddFromLocalStore();
        EXPECT_EQ(Candidates(), (Names{clara, anna, boris}));
        Check({clara, boris});
        SaveGroup(Path(L"kept.grx"));
        ExpectQuestion(L"Delete all list items?", ui::IdYes);
        user_.Click(pickid::DeleteAll);
        EXPECT_EQ(Candidates(), Names{});
        SearchLdap(0, L"ivan*");
        EXPECT_EQ(Candidates(), (Names{ivan, ivana}));  // not Peter, in whose name another Ivan stands
        OpenGroup(Path(L"kept.grx"));
        OpenGroup(Path(L"guests.grx"));
        EXPECT_EQ(Candidates(), (Names{ivan, ivana, clara, boris, guest, anna}));
    }
    void ChooseAmongThem() {
        user_.ClickHeader(pickid::Candidates, 0);
        EXPECT_EQ(Candidates(), (Names{anna, boris, clara, guest, ivan, ivana}));
        user_.ClickHeader(pickid::Candidates, 0);
        EXPECT_EQ(Candidates().front(), ivana);
        user_.Choose(pickid::SortField, 7);  // the organisation, still downwards
        EXPECT_EQ(Candidates(), (Names{anna, ivana, guest, ivan, boris, clara}));
        user_.Type(pickid::Filter, L"bank");
        EXPECT_EQ(Candidates(), (Names{ivan, boris}));
        user_.Click(pickid::SelectAll);
        user_.Click(pickid::Choose);
        user_.Type(pickid::Filter, L"");
        Choose({ivana, guest, clara, boris});
        EXPECT_EQ(Chosen(), (Names{ivan, boris, ivana, clara, guest}));
        user_.ClickCheckBox(pickid::Chosen, 3);
        user_.Click(pickid::Remove);
        EXPECT_EQ(Chosen(), (Names{ivan, boris, ivana, guest}));
    }
    void ExpectQuestionForTheGuest(int answer) {
        ExpectQuestion(
            std::wstring(L"No certificates found for user ") + guest + L".\r\nContinue to check other users?", answer);
    }
};

TEST_F(RecipientsJourney, FromEverySourceIntoTheRegistryAndBack) {
    RunProgram([this] {
        AddRule(L"ENCR", [this] {
            OpenPicker([this] {
                ExpectOpenedContext();
                GatherCandidates();
                ChooseAmongThem();
                ExpectQuestionForTheGuest(ui::IdNo);
                user_.Click(ui::IdOk);
                EXPECT_EQ(Chosen().size(), 4U);
                ExpectQuestionForTheGuest(ui::IdYes);
                user_.Click(ui::IdOk);
            });
            EXPECT_EQ(ActionField(), L"3");
            EXPECT_EQ(library_.Calls().back(), "Uninitialize");
        });
        SaveAndLeave();
    });
    EXPECT_EQ(files_->Content(Path(L"kept.grx")), "CN=Clara Weiss,O=Atelier,C=FR\r\nCN=Boris Petrov,O=Bank,C=RU\r\n");
    const std::string saved = Dump();
    for (const char* line :
         {"Ext num = 3\n", "C0 = \"CN=Ivan Orlov,O=Bank,C=RU\"\n", "C1 = \"CN=Boris Petrov,O=Bank,C=RU\"\n",
          "C2 = \"CN=Ivana Horvat,O=Jadran,C=HR\"\n", "LastCrlUpdate = { \"Office;;1700000000\" }\n"})
        EXPECT_NE(saved.find(line), std::string::npos) << line << saved;

    library_.ForgetCalls();
    WithTheRule([this] {
        EXPECT_EQ(ActionField(), L"3");
        OpenPicker([this] {
            EXPECT_EQ(Chosen(), (Names{ivan, boris, ivana}));
            EXPECT_EQ(Candidates(), Names{});
            EXPECT_EQ(library_.Calls().back(), "FreeFindResult");  // the revocation lists are not due yet
            user_.Click(ui::IdCancel);
        });
        EXPECT_EQ(ActionField(), L"3");
    });
    EXPECT_EQ(Dump(), saved);
}

TEST_F(RecipientsJourney, EveryoneMayBeTakenOut) {
    Seed(
        "[HKEY_LOCAL_MACHINE\\SOFTWARE\\TALVERON\\morcelservice\\Alpha\\rules\\Rule 0]\n"
        "Operation = \"ENCR\"\nExt num = 1\nC0 = \"CN=Anna Keller,O=Kontor,C=DE\"\n");
    WithTheRule([this] {
        OpenPicker([this] {
            user_.ClickCheckBox(pickid::Chosen, 0);
            user_.Click(pickid::Remove);
            user_.Click(ui::IdOk);
        });
        EXPECT_EQ(ActionField(), L"0");
    });
}

class SignersJourney : public CertificateJourney {
  protected:
    SignersJourney() { SeedProfile(); }

    // Presses a button of the form of signer lists that opens the picker.
    void PickSigners(int button, const Script& script) {
        user_.Expect<certs::CPreEncryptDlg>([&script](certs::CPreEncryptDlg&) { script(); });
        user_.Click(button);
    }
    std::vector<Names> Lists() const {
        std::vector<Names> rows;
        for (size_t row = 0; row < user_.RowCount(signersid::List); ++row)
            rows.push_back(user_.Row(signersid::List, row));
        return rows;
    }
    void Refused(const std::wstring& warning) {
        ExpectHint(warning);
        user_.Click(ui::IdOk);
    }

    void AddChiefs() {
        PickSigners(signersid::Add, [this] {
            EXPECT_EQ(user_.Top().Caption(), L"Add list");
            AddFromLocalStore();
            Choose({anna, clara});
            Refused(L"No list name");
            user_.Type(pickid::Name, L"chiefs");
            user_.Click(ui::IdOk);
        });
    }
    void AddClerks() {
        PickSigners(signersid::Add, [this] {
            AddFromLocalStore();
            ExpectWarningBox(
                L"Following signers are used in other lists and had been excluded:\r\n\r\n"
                L"Signer\r\n\"CN=Clara Weiss,O=Atelier,C=FR\"\r\nis used in list\r\n\"chiefs\"\r\n\r\n"
                L"Signer\r\n\"CN=Anna Keller,O=Kontor,C=DE\"\r\nis used in list\r\n\"chiefs\"\r\n\r\n",
                ui::Icon::Warning);
            Choose({anna, boris, clara});
            EXPECT_EQ(Chosen(), Names{boris});
            SearchLdap(16, L"*");
            EXPECT_EQ(Candidates().size(), 6U);
            Choose({ivan});
            user_.Type(pickid::Name, L"chiefs");
            Refused(L"List with this name already exists");
            user_.Type(pickid::Name, L"clerks");
            user_.Click(ui::IdOk);
        });
    }
    void RenameChiefs() {
        user_.ClickRow(signersid::List, 0);
        PickSigners(signersid::Edit, [this] {
            EXPECT_EQ(user_.Top().Caption(), L"Edit list");
            EXPECT_EQ(user_.Text(pickid::Name), L"chiefs");
            EXPECT_EQ(Chosen(), (Names{clara, anna}));
            AddFromLocalStore();
            Choose({anna});  // may stay where it is
            user_.Type(pickid::Name, L"clerks");
            Refused(L"List with this name already exists");
            user_.Type(pickid::Name, L"bosses");
            user_.Click(ui::IdOk);
        });
    }
};

TEST_F(SignersJourney, TwoListsThatShareNobodyIntoTheRegistryAndBack) {
    RunProgram([this] {
        AddRule(L"CHCK", [this] {
            OpenSignerLists([this] {
                EXPECT_EQ(Lists(), std::vector<Names>{});
                EXPECT_EQ(library_.Calls(), Calls{});
                AddChiefs();
                AddClerks();
                EXPECT_EQ(Lists(), (std::vector<Names>{{L"chiefs", L"2"}, {L"clerks", L"2"}}));
                RenameChiefs();
                EXPECT_EQ(Lists(), (std::vector<Names>{{L"bosses", L"2"}, {L"clerks", L"2"}}));
                user_.Click(ui::IdOk);
            });
            EXPECT_EQ(ActionField(), L"2");
        });
        SaveAndLeave();
    });
    EXPECT_EQ(screen_.modeless.size(), 3U);  // one context for each picker
    const std::string saved = Dump();
    WithTheRule([this] {
        EXPECT_EQ(ActionField(), L"2");
        OpenSignerLists([this] {
            EXPECT_EQ(Lists(), (std::vector<Names>{{L"bosses", L"2"}, {L"clerks", L"2"}}));
            ExpectWarningBox(
                L"List name: clerks\r\n\r\nSigner 1:\r\nCN=Boris Petrov,O=Bank,C=RU\r\n\r\nSigner 2:\r\n"
                L"CN=Ivan Orlov,O=Bank,C=RU",
                ui::Icon::Information, L"Signer list");
            user_.DoubleClickRow(signersid::List, 1);
            ExpectQuestion(L"Delete 1 list(s)?", ui::IdYes);
            user_.Click(signersid::Delete);
            EXPECT_EQ(Lists(), (std::vector<Names>{{L"bosses", L"2"}}));
            user_.Click(ui::IdCancel);
        });
        EXPECT_EQ(ActionField(), L"2");
    });
    EXPECT_EQ(Dump(), saved);
}

TEST_F(SignersJourney, ExitAfterAddingLeavesTheListsOfTheRule) {
    RunProgram([this] {
        AddRule(L"CHCK", [this] {
            OpenSignerLists([this] {
                AddChiefs();
                user_.Click(ui::IdOk);
            });
            OpenSignerLists([this] {
                AddClerks();
                EXPECT_EQ(Lists(), (std::vector<Names>{{L"chiefs", L"2"}, {L"clerks", L"2"}}));
                user_.Click(ui::IdCancel);
            });
            EXPECT_EQ(ActionField(), L"1");
            OpenSignerLists([this] {
                EXPECT_EQ(Lists(), (std::vector<Names>{{L"chiefs", L"2"}}));
                user_.Click(ui::IdCancel);
            });
        });
        SaveAndLeave();
    });
    const std::string saved = Dump();
    EXPECT_NE(saved.find("\\Rule 0\\chiefs]\nS0 = \"CN=Clara Weiss"), std::string::npos) << saved;
    EXPECT_EQ(saved.find("clerks"), std::string::npos) << saved;
}

TEST_F(SignersJourney, AnEditedListReplacesTheOldOneInTheRegistry) {
    RunProgram([this] {
        AddRule(L"DCHK", [this] {
            OpenSignerLists([this] {
                AddChiefs();
                user_.Click(ui::IdOk);
            });
        });
        EditFirstRule([this] {
            OpenSignerLists([this] {
                user_.ClickRow(signersid::List, 0);
                PickSigners(signersid::Edit, [this] {
                    user_.ClickCheckBox(pickid::Chosen, 0);
                    user_.Click(pickid::Remove);
                    user_.Click(ui::IdOk);
                });
                user_.Click(ui::IdOk);
            });
            EXPECT_EQ(ActionField(), L"1");
        });
        SaveAndLeave();
    });
    EXPECT_NE(Dump().find("S0 = \"CN=Anna Keller,O=Kontor,C=DE\"\n"), std::string::npos);
    EXPECT_EQ(Dump().find("Clara"), std::string::npos);
}

}  // namespace
}  // namespace tests
