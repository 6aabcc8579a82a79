// What happens between the user's wish to choose certificates and the picker.
#include "crypto/OpenCryptoContext.h"

#include "tests/crypto/CryptoTest.h"
#include "text/Numbers.h"

namespace tests {
namespace {

using crypto::ContextFlags;
using Calls = std::vector<std::string>;
using demo::StandInCall;
const std::string probe = "FindCert 0xE04 scope 0 \"CN=QQQ,C=RU\" fields 4";

class OpenCryptoContextTest : public CryptoTest {
  protected:
    OpenCryptoContextTest() {
        Seed("[HKEY_LOCAL_MACHINE\\SOFTWARE\\TALVERON\\morcelservice]\nLogPath = \"\"\n");
        settings_.NotUseLDAP = 0;
    }
    // Opens, notes the outcome and what was called before the context goes.
    void Open(const std::function<void()>& expectations = [] {}) {
        InDialog(
            [this] {
                const auto context = crypto::OpenCryptoContext(services_, opener_, csProfile_, settings_);
                isOpen_ = context.has_value();
                ldapUsable_ = context && context->LdapUsable;
                callsBefore_ = library_.Calls();
                EXPECT_EQ(library_.OpenContexts(), isOpen_ ? 1U : 0U);
            },
            expectations);
    }
    void NeitherLdapNorCrl() {
        settings_.NotUseLDAP = 1;
        settings_.NotLoadCrl = 1;
    }
    void FailInitialize(uint32_t code) {
        NeitherLdapNorCrl();
        library_.SetAnswer(StandInCall::Initialize, code);
    }

    std::wstring csProfile_ = L"Office";
    crypto::PickerSettings settings_;
    bool isOpen_ = false;
    bool ldapUsable_ = false;
    Calls callsBefore_;
};

TEST_F(OpenCryptoContextTest, EverythingHappensInItsOrderAndTheContextIsClosedAtTheEnd) {
    Open();
    EXPECT_TRUE(isOpen_);
    EXPECT_TRUE(ldapUsable_);
    const Calls expected{"Initialize \"Office\" 0x80000040", probe, "FreeFindResult", "Ctrl 4"};
    EXPECT_EQ(callsBefore_, expected);
    EXPECT_EQ(library_.Calls().size(), 5U);
    EXPECT_EQ(library_.Calls().back(), "Uninitialize");
}

TEST_F(OpenCryptoContextTest, TheFlagsFollowTheSettings) {
    struct Case {
        int32_t crypto::PickerSettings::*setting;
        uint32_t flags;
    };
    using Picker = crypto::PickerSettings;
    const Case cases[] = {{&Picker::NotCopyToLocal, 0x80000060}, {&Picker::UseAIA, 0x80000440},
                          {&Picker::NotUseLDAP, 0x80000044},     {&Picker::NotLoadCrl, 0x80000041},
                          {&Picker::NotAddCert, 0x80000040},     {&Picker::AutoUseTSP, 0x80000040},
                          {&Picker::AutoVerifyTSP, 0x80000040},  {&Picker::NoTSPisError, 0x80000040}};
    for (const Case& c : cases) {
        Picker settings;
        settings.NotUseLDAP = 0;
        EXPECT_EQ(ContextFlags(settings), 0x80000040U);
        for (const int32_t on : {1, -1, 2}) {
            settings.*c.setting = on;
            EXPECT_EQ(ContextFlags(settings), c.flags);
        }
    }
    Picker all;
    all.NotCopyToLocal = all.NotUseLDAP = all.NotLoadCrl = all.UseAIA = 1;
    EXPECT_EQ(ContextFlags(all), 0x80000465U);
}

TEST_F(OpenCryptoContextTest, TheNameIsGivenInTheAnsiCodePage) {
    NeitherLdapNorCrl();
    codePage_.Choose(platform::memory::AnsiCodePage::Cyrillic1251);
    csProfile_ = L"\x041A\x043B\x044E\x0447";
    Open();
    EXPECT_EQ(callsBefore_, Calls{"Initialize \"\xCA\xEB\xFE\xF7\" 0x80000045"});
}

TEST_F(OpenCryptoContextTest, AMissingStoreProfileIsOpenedByNoName) {
    csProfile_.clear();
    settings_ = {};
    Open();
    EXPECT_TRUE(isOpen_);
    EXPECT_FALSE(ldapUsable_);
    EXPECT_EQ(callsBefore_, (Calls{"Initialize \"\" 0x80000044", "Ctrl 4"}));
}

TEST_F(OpenCryptoContextTest, TheUserIsAskedToWaitInTheMiddleOfTheParent) {
    NeitherLdapNorCrl();
    bool looked = false;
    library_.OnCall([&](const std::string& call) {
        if (!call.starts_with("Initialize")) return;
        looked = true;
        ASSERT_FALSE(screen_.modeless.empty());
        const ui::Dialog& wait = *screen_.modeless.back();
        EXPECT_TRUE(wait.IsOpen());
        EXPECT_EQ(wait.Parent(), &opener_);
        ASSERT_EQ(wait.Controls().size(), 1U);
        EXPECT_EQ(wait.Controls()[0]->Text(), L"Please, wait, cryptocontext initialization can take up to 30 seconds.");
        EXPECT_FALSE(wait.Style().systemMenu);
        const ui::Rect own = wait.NormalRect();
        const ui::Rect parent = opener_.NormalRect();
        EXPECT_GT(own.width, 0);
        EXPECT_LT(own.height, parent.height);
        EXPECT_EQ(own.x, parent.x + parent.width / 2 - own.width / 2);
        EXPECT_EQ(own.y, parent.y + parent.height / 2 - own.height / 2);
    });
    Open();
    EXPECT_TRUE(looked);
    EXPECT_EQ(screen_.modeless.size(), 1U);
}

TEST_F(OpenCryptoContextTest, AFailureIsShownWithTheErrorStackAndEndsTheCommand) {
    FailInitialize(failed);
    library_.AddError(nullptr, {"no key", "init.c", 7, "drive A:"});
    library_.AddError(nullptr, {"no drive", "io.c", 8, ""});
    Open([this] {
        ExpectFailureBox(
            L"Cryptocontext initialization.\r\nKSEAL error 0x20000010 - It failed.\r\n\r\n"
            L"KSEAL stek, error number 1\r\nError: no key\r\nFile: init.c\r\nData: drive A:\r\n"
            L"KSEAL stek, error number 2\r\nError: no drive\r\nFile: io.c\r\nData: \r\n",
            &opener_);
    });
    EXPECT_FALSE(isOpen_);
    EXPECT_EQ(library_.Calls(), Calls{"Initialize \"Office\" 0x80000045"});
}

TEST_F(OpenCryptoContextTest, FailureCodesAreDescribedAsInReports) {
    struct Case {
        uint32_t code;
        const wchar_t* text;
    };
    const Case cases[] = {
        {5, L"Error 0x5 - Access is denied"},
        {0xFFFFFFFF, L"Error 0xFFFFFFFF - Bad parameter"},
        {0xFFFFFFF7, L"KSEAL error 0xFFFFFFF7 - Bad parameter"},
        {0xE0700001, L"KSEAL error 0xE0700001 - Error description not found"},
    };
    for (const Case& c : cases) {
        FailInitialize(c.code);
        Open([&] {
            ExpectFailureBox(std::wstring(L"Cryptocontext initialization.\r\n") + c.text + L".\r\n\r\n", &opener_);
        });
        EXPECT_FALSE(isOpen_);
    }
}

TEST_F(OpenCryptoContextTest, AMissingLibraryIsAFailureToInitialise) {
    for (const uint32_t code : {126U, 127U, 193U}) {
        systemMessages_.SetSystemText(code, L"Told by the system.\r\n");
        world_->CryptoLibrary().Remove(code);
        Open([&] {
            ExpectFailureBox(L"Cryptocontext initialization.\r\nError 0x" + text::Hexadecimal(code) +
                                 L" - Told by the system.\r\n\r\nThere is no library.",
                             &opener_);
        });
        EXPECT_FALSE(isOpen_);
    }
    EXPECT_TRUE(library_.Calls().empty());
    EXPECT_EQ(screen_.modeless.size(), 3U);
}

TEST_F(OpenCryptoContextTest, WithoutLdapThereIsNoProbeAndNoUse) {
    settings_.NotUseLDAP = 1;
    Open();
    EXPECT_TRUE(isOpen_);
    EXPECT_FALSE(ldapUsable_);
    EXPECT_EQ(callsBefore_, (Calls{"Initialize \"Office\" 0x80000044", "Ctrl 4"}));
}

TEST_F(OpenCryptoContextTest, ANetworkStoreThatFindsNothingWorks) {
    library_.SetAnswer(StandInCall::FindCert, 0xE0700046);
    Open();
    EXPECT_TRUE(isOpen_);
    EXPECT_TRUE(ldapUsable_);
    EXPECT_EQ(callsBefore_.at(2), "FreeFindResult");
}

TEST_F(OpenCryptoContextTest, ANetworkStoreThatFindsSomethingWorksToo) {
    library_.Serve({.Certificates = {{.InNetwork = true, .OwnerName = "CN=QQQ,C=RU"}}});
    Open();
    EXPECT_TRUE(ldapUsable_);
}

class FailingProbe : public OpenCryptoContextTest {
  protected:
    FailingProbe() {
        library_.SetAnswer(StandInCall::FindCert, failed);
        library_.OnCall([this](const std::string& call) {
            if (call == probe) AddToOnlyContext({"no answer", "ldap.c", 1, "host"});
        });
        // Not of this context, and not to be shown.
        library_.AddError(nullptr, {"other", "", 0, ""});
    }
    void AddToOnlyContext(const errors::LibraryErrorEntry& entry) { library_.AddError(library_.OnlyContext(), entry); }
    void ExpectBoxes(int answer) {
        ExpectFailureBox(
            L"Conneting to network store (LDAP).\r\nKSEAL error 0x20000010 - It failed.\r\n\r\n"
            L"KSEAL stek, error number 1\r\nError: no answer\r\nFile: ldap.c\r\nData: host\r\n",
            nullptr);
        user_.ExpectBox(L"It failed (0x20000010).\r\nContinue without LDAP?", boxes::OkOrCancel, answer);
    }
};

TEST_F(FailingProbe, OkGoesOnWithoutLdap) {
    Open([this] { ExpectBoxes(ui::IdOk); });
    EXPECT_TRUE(isOpen_);
    EXPECT_FALSE(ldapUsable_);
    EXPECT_EQ(callsBefore_, (Calls{"Initialize \"Office\" 0x80000040", probe, "FreeFindResult", "Ctrl 4"}));
    EXPECT_EQ(screen_.owners, (std::vector<const ui::Dialog*>{&opener_}));
    EXPECT_EQ(library_.WaitingErrors(nullptr), 1U);
}

TEST_F(FailingProbe, CancelClosesTheContextAndEndsTheCommand) {
    Open([this] { ExpectBoxes(ui::IdCancel); });
    EXPECT_FALSE(isOpen_);
    EXPECT_EQ(library_.Calls(), (Calls{"Initialize \"Office\" 0x80000040", probe, "FreeFindResult", "Uninitialize"}));
}

TEST_F(OpenCryptoContextTest, RevocationListsAreLeftAloneWhereTheyAreNotWanted) {
    settings_.NotUseLDAP = 1;
    struct Case {
        int32_t notLoadCrl;
        int32_t period;
        bool refreshes;
    };
    for (const Case c : {Case{0, 1, true}, {0, 8760, true}, {0, 0, false}, {0, -5, false}, {1, 1, false}}) {
        settings_.NotLoadCrl = c.notLoadCrl;
        settings_.CrlUpdatePeriod = c.period;
        library_.ForgetCalls();
        world_->Registry().ForgetCalls();
        Open();
        EXPECT_TRUE(isOpen_);
        EXPECT_EQ(callsBefore_.size(), c.refreshes ? 2U : 1U) << c.period;
        EXPECT_EQ(world_->Registry().Calls().empty(), !c.refreshes) << c.period;
        clock_.Advance(8761 * 3600);
    }
}

TEST_F(OpenCryptoContextTest, GivingUpForTheRevocationListsClosesTheContext) {
    library_.Serve({.CrlDiagnostic = "no list"});
    Open([this] {
        ExpectFailureBox(
            L"Connetion to CRL distribution point.\r\nKSEAL error 0x20000004 - The stand-in "
            L"library has not loaded the revocation lists.\r\n\r\nno list",
            nullptr);
        user_.ExpectBox(
            L"The stand-in library has not loaded the revocation lists (0x20000004).\r\n"
            L"Continue without loading CRL?",
            boxes::OkOrCancel, ui::IdCancel);
    });
    EXPECT_FALSE(isOpen_);
    EXPECT_EQ(library_.Calls().back(), "Uninitialize");
}

TEST_F(OpenCryptoContextTest, AFailedCloseIsToldToNobody) {
    NeitherLdapNorCrl();
    library_.SetAnswer(StandInCall::Uninitialize, failed);
    Open();
    EXPECT_TRUE(isOpen_);
    EXPECT_TRUE(screen_.owners.empty());
    EXPECT_EQ(library_.TextsAsked(), std::vector<uint32_t>{failed});
}

TEST_F(OpenCryptoContextTest, AContextIsClosedOnce) {
    {
        crypto::CryptoContext first = OpenedContext();
        EXPECT_EQ(library_.OpenContexts(), 1U);
        EXPECT_NE(first.Handle(), nullptr);
        const platform::kseal::Context handle = first.Handle();
        crypto::CryptoContext second = std::move(first);
        EXPECT_EQ(second.Handle(), handle);
        second.Close();
        EXPECT_EQ(second.Handle(), nullptr);
        EXPECT_EQ(library_.OpenContexts(), 0U);
        second.Close();
    }
    EXPECT_EQ(library_.Calls(), Calls{"Uninitialize"});
    EXPECT_TRUE(library_.TextsAsked().empty());
}

TEST_F(OpenCryptoContextTest, ASuccessWithoutAContextIsAFailure) {
    NeitherLdapNorCrl();
    platform::kseal::Exports exports = demo::StandInLibrary::Exports();
    exports.Initialize = [](const char*, uint32_t, platform::kseal::Context*) { return uint32_t{0}; };
    world_->CryptoLibrary().Install(exports);
    Open([this] {
        ExpectFailureBox(L"Cryptocontext initialization.\r\nError 0x0 - Error description not found.\r\n\r\n",
                         &opener_);
    });
    EXPECT_FALSE(isOpen_);
    EXPECT_TRUE(library_.Calls().empty());
}

TEST_F(OpenCryptoContextTest, AFailureThatLeavesSomethingBehindOpensNothing) {
    NeitherLdapNorCrl();
    platform::kseal::Exports exports = demo::StandInLibrary::Exports();
    exports.Initialize = [](const char*, uint32_t, platform::kseal::Context* context) {
        *context = context;
        return failed;
    };
    world_->CryptoLibrary().Install(exports);
    Open([this] {
        ExpectFailureBox(L"Cryptocontext initialization.\r\nKSEAL error 0x20000010 - It failed.\r\n\r\n", &opener_);
    });
    EXPECT_FALSE(isOpen_);
    EXPECT_TRUE(library_.Calls().empty());
}

}  // namespace
}  // namespace tests
