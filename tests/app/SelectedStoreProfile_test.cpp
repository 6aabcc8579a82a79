// Of the settings that a profile keeps for each of its CS profiles, those of the one that is selected in
// the rule editor reach the library and the picker.
#include "tests/app/CertificateJourney.h"

namespace tests {
namespace {

class SelectedStoreProfile : public CertificateJourney {
  protected:
    // Three CS profiles; no list has the same value for the second as for another.
    static constexpr char onlyTheSecondIsQuiet[] =
        "ServerTSP = { \"first\", \"second\", \"third\" }\nAutoUseTSP = { \"11\", \"12\", \"13\" }\n"
        "NotAddCert = { \"21\", \"22\", \"23\" }\nAutoVerifyTSP = { \"31\", \"32\", \"33\" }\n"
        "NoTSPisError = { \"41\", \"42\", \"43\" }\nNotUseLDAP = { \"0\", \"52\", \"0\" }\n"
        "NotLoadCrl = { \"0\", \"62\", \"0\" }\nNotCopyToLocal = { \"71\", \"0\", \"73\" }\n"
        "UseAIA = { \"81\", \"0\", \"83\" }\nCrlUpdatePeriod = { \"1\", \"2\", \"3\" }\n";
    static constexpr char onlyTheSecondIsLoud[] =
        "ServerTSP = { \"0\", \"second\", \"0\" }\nAutoUseTSP = { \"1\", \"0\", \"1\" }\n"
        "NotAddCert = { \"1\", \"0\", \"1\" }\nAutoVerifyTSP = { \"1\", \"0\", \"1\" }\n"
        "NoTSPisError = { \"1\", \"0\", \"1\" }\nNotUseLDAP = { \"1\", \"0\", \"1\" }\n"
        "NotLoadCrl = { \"1\", \"0\", \"1\" }\nNotCopyToLocal = { \"0\", \"72\", \"0\" }\n"
        "UseAIA = { \"0\", \"82\", \"0\" }\nCrlUpdatePeriod = { \"1\", \"6\", \"24\" }\n";

    void SeedThree(const std::string& settings, const std::string& operation) {
        Seed(
            "[HKEY_CURRENT_USER\\SOFTWARE\\TALVERON\\morcel\\Profiles\\1]\nProfileName = \"Office\"\n"
            "[HKEY_CURRENT_USER\\SOFTWARE\\TALVERON\\morcel\\Profiles\\2]\nProfileName = \"Bank\"\n"
            "[HKEY_CURRENT_USER\\SOFTWARE\\TALVERON\\morcel\\Profiles\\3]\nProfileName = \"Court\"\n"
            "[HKEY_LOCAL_MACHINE\\SOFTWARE\\TALVERON\\morcelservice\\Alpha]\n"
            "ZCSProfile = { \"Office\", \"Bank\", \"Court\" }\n" +
            settings +
            "[HKEY_LOCAL_MACHINE\\SOFTWARE\\TALVERON\\morcelservice\\Alpha\\rules\\Rule 0]\n"
            "Operation = \"" +
            operation + "\"\nZCSProfile = \"Bank\"\n");
    }
    // The user works in the rule editor, opened on the only rule.
    void InTheEditor(const Script& script) {
        user_.Expect<app::CBrisgateDlg>([&](app::CBrisgateDlg&) {
            user_.Expect<editors::CAddRule>([&](editors::CAddRule&) {
                script();
                user_.Click(ui::IdCancel);
            });
            user_.DoubleClickRow(id::Rules, 0);
            user_.PressCloseBox();
        });
        app::CBrisgateDlg(services_).DoModal();
    }
};

TEST_F(SelectedStoreProfile, OpensTheContextAndFillsThePicker) {
    SeedThree(onlyTheSecondIsQuiet, "ENCR");
    InTheEditor([this] {
        OpenPicker([this] {
            EXPECT_FALSE(user_.CanUse(pickid::FromLdap));
            user_.Click(ui::IdCancel);
        });
    });
    EXPECT_EQ(library_.Calls(), (Calls{"Initialize \"Bank\" 0x80000045", "Uninitialize"}));
}

TEST_F(SelectedStoreProfile, IsProbedAndRefreshedInItsOwnTime) {
    SeedThree(onlyTheSecondIsLoud, "ENCR");
    const Calls opened{"Initialize \"Bank\" 0x80000460", "FindCert 0xE04 scope 0 \"CN=QQQ,C=RU\" fields 4",
                       "FreeFindResult"};
    Calls refreshed = opened;
    refreshed.push_back("Ctrl 4");
    InTheEditor([&] {
        // The first has its revocation lists refreshed every hour, the third once a day.
        for (const auto& [seconds, calls] :
             {std::pair{0, refreshed}, std::pair{6 * 3600 - 60, opened}, std::pair{60, refreshed}}) {
            clock_.Advance(seconds);
            library_.ForgetCalls();
            OpenPicker([&] {
                EXPECT_TRUE(user_.CanUse(pickid::FromLdap));
                EXPECT_EQ(library_.Calls(), calls);
                user_.Click(ui::IdCancel);
            });
        }
    });
}

TEST_F(SelectedStoreProfile, IsTheOneChosenInTheEditor) {
    SeedThree(onlyTheSecondIsQuiet, "CHCK");
    InTheEditor([this] {
        user_.Choose(ruleid::CsProfile, 2);
        OpenSignerLists([this] {
            user_.Expect<certs::CPreEncryptDlg>([this](certs::CPreEncryptDlg&) { user_.Click(ui::IdCancel); });
            user_.Click(signersid::Add);
            user_.Click(ui::IdCancel);
        });
        user_.Choose(ruleid::CsProfile, 1);
        OpenSignerLists([this] {
            user_.Expect<certs::CPreEncryptDlg>([this](certs::CPreEncryptDlg&) { user_.Click(ui::IdCancel); });
            user_.Click(signersid::Add);
            user_.Click(ui::IdCancel);
        });
    });
    EXPECT_EQ(library_.Calls().front(), "Initialize \"Court\" 0x80000460");
    EXPECT_EQ(library_.Calls().at(library_.Calls().size() - 2), "Initialize \"Bank\" 0x80000045");
}

}  // namespace
}  // namespace tests
