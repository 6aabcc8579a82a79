// The revocation lists and the note of their last refresh.
#include "crypto/RefreshCrl.h"

#include <algorithm>
#include <span>

#include "tests/crypto/CryptoTest.h"

namespace tests {
namespace {

using platform::memory::RecordedCall;
using platform::memory::RegistryCall;
using Calls = std::vector<std::string>;
using demo::StandInCall;
constexpr int64_t now = 1'700'000'000;
const std::wstring key = L"HKEY_LOCAL_MACHINE\\SOFTWARE\\TALVERON\\morcelservice";
const std::wstring value = key + L"\\LastCrlUpdate";
const std::string keyLine = "[HKEY_LOCAL_MACHINE\\SOFTWARE\\TALVERON\\morcelservice]\n";

class RefreshCrlTest : public CryptoTest {
  protected:
    RefreshCrlTest() { clock_.Set(now); }
    // list: as it stands in the registry text; empty: no value.
    void SeedStamps(const std::string& list) {
        Seed(keyLine + (list.empty() ? std::string() : "LastCrlUpdate = " + list + "\n"));
        world_->Registry().ForgetCalls();
    }
    std::string Stamps() {
        const std::string dump = Dump();
        const std::string name = "LastCrlUpdate = ";
        const size_t begin = dump.find(name);
        if (begin == std::string::npos) return {};
        return dump.substr(begin + name.size(), dump.find('\n', begin) - begin - name.size());
    }
    bool Refresh(const std::function<void()>& expectations = [] {}) {
        bool goesOn = false;
        const crypto::CryptoContext context = OpenedContext();
        InDialog(
            [&] { goesOn = crypto::RefreshCrl(services_, opener_, context, csProfile_, settings_.CrlUpdatePeriod); },
            expectations);
        return goesOn;
    }
    bool LibraryWasAsked() const {
        return std::find(library_.Calls().begin(), library_.Calls().end(), "Ctrl 4") != library_.Calls().end();
    }
    void ExpectQuestion(int answer) {
        ExpectFailureBox(
            L"Connetion to CRL distribution point.\r\nKSEAL error 0x20000010 - It failed.\r\n\r\nserver busy", nullptr);
        user_.ExpectBox(L"It failed (0x20000010).\r\nContinue without loading CRL?", boxes::OkOrCancel, answer);
    }
    void FailWithText() {
        library_.Serve({.CrlDiagnostic = "server busy"});
        library_.SetAnswer(StandInCall::Ctrl, failed);
    }

    std::wstring csProfile_ = L"Office";
    crypto::PickerSettings settings_;
};

TEST_F(RefreshCrlTest, WithoutAnyStampOneIsAppended) {
    SeedStamps("");
    EXPECT_TRUE(Refresh());
    EXPECT_TRUE(LibraryWasAsked());
    EXPECT_EQ(Stamps(), "{ \"Office;;1700000000\" }");
    SeedStamps("{ \"Bank;;5\", \"office;;1700000000\" }");
    EXPECT_TRUE(Refresh());
    EXPECT_EQ(Stamps(), "{ \"Bank;;5\", \"office;;1700000000\", \"Office;;1700000000\" }");
}

TEST_F(RefreshCrlTest, AnOldStampIsReplacedInItsPlace) {
    SeedStamps("{ \"Bank;;5\", \"Office;;1699990000\", \"House;;6\" }");
    EXPECT_TRUE(Refresh());
    EXPECT_EQ(Stamps(), "{ \"Bank;;5\", \"Office;;1700000000\", \"House;;6\" }");
}

TEST_F(RefreshCrlTest, OfTwoStampsTheLaterIsReplaced) {
    SeedStamps("{ \"Office;;1\", \"Office;;2\" }");
    EXPECT_TRUE(Refresh());
    EXPECT_EQ(Stamps(), "{ \"Office;;1\", \"Office;;1700000000\" }");
}

TEST_F(RefreshCrlTest, AYoungStampSparesTheLibraryAndTheRegistry) {
    SeedStamps("{ \"Office;;1699999000\", \"Office;;1\" }");
    const std::string before = Dump();
    world_->Registry().ForgetCalls();
    EXPECT_TRUE(Refresh());
    EXPECT_FALSE(LibraryWasAsked());
    EXPECT_EQ(world_->Registry().CountOf(RegistryCall::Set), 0U);
    EXPECT_EQ(Dump(), before);
}

TEST_F(RefreshCrlTest, ThePeriodIsInHours) {
    settings_.CrlUpdatePeriod = 24;
    SeedStamps("{ \"Office;;" + std::to_string(now - 24 * 3600 + 60) + "\" }");
    EXPECT_TRUE(Refresh());
    EXPECT_FALSE(LibraryWasAsked());
    clock_.Advance(60);
    EXPECT_TRUE(Refresh());
    EXPECT_TRUE(LibraryWasAsked());
}

TEST_F(RefreshCrlTest, TheRegistryIsAskedNoMoreThanNeeded) {
    SeedStamps("{ \"Bank;;5\" }");
    EXPECT_TRUE(Refresh());
    const std::vector<RecordedCall> expected{{RegistryCall::Open, key},
                                             {RegistryCall::Query, value},
                                             {RegistryCall::Query, value},
                                             {RegistryCall::Set, value},
                                             {RegistryCall::Close, key}};
    EXPECT_EQ(world_->Registry().Calls(), expected);
}

TEST_F(RefreshCrlTest, TheStampIsWrittenAfterTheAttempt) {
    SeedStamps("");
    size_t writtenBefore = 77;
    library_.OnCall([&](const std::string& call) {
        if (call == "Ctrl 4") writtenBefore = world_->Registry().CountOf(RegistryCall::Set);
    });
    EXPECT_TRUE(Refresh());
    EXPECT_EQ(writtenBefore, 0U);
    EXPECT_EQ(world_->Registry().CountOf(RegistryCall::Set), 1U);
}

TEST_F(RefreshCrlTest, AFailureWithATextIsShownAndTheUserDecides) {
    FailWithText();
    for (const int answer : {ui::IdOk, ui::IdCancel}) {
        SeedStamps("{ \"Office;;5\" }");
        library_.OnCall({});
        EXPECT_EQ(Refresh([&] { ExpectQuestion(answer); }), answer == ui::IdOk);
        EXPECT_EQ(Stamps(), "{ \"Office;;1700000000\" }");
        EXPECT_EQ(screen_.owners.back(), &opener_);
    }
}

TEST_F(RefreshCrlTest, TheDiagnosticTextIsInTheAnsiCodePage) {
    SeedStamps("");
    codePage_.Choose(platform::memory::AnsiCodePage::Cyrillic1251);
    library_.Serve({.CrlDiagnostic = "\xCA\xEB\xFE\xF7"});
    library_.SetAnswer(StandInCall::Ctrl, failed);
    EXPECT_TRUE(Refresh([this] {
        ExpectFailureBox(
            L"Connetion to CRL distribution point.\r\nKSEAL error 0x20000010 - It failed.\r\n\r\n"
            L"\x041A\x043B\x044E\x0447",
            nullptr);
        user_.ExpectBox(L"It failed (0x20000010).\r\nContinue without loading CRL?", boxes::OkOrCancel, ui::IdOk);
    }));
}

TEST_F(RefreshCrlTest, AFailureWithoutATextCountsAsSuccess) {
    SeedStamps("{ \"Office;;5\" }");
    library_.SetAnswer(StandInCall::Ctrl, failed);
    EXPECT_TRUE(Refresh());
    EXPECT_EQ(Stamps(), "{ \"Office;;1700000000\" }");
}

TEST_F(RefreshCrlTest, ASuccessWithATextIsASuccess) {
    SeedStamps("");
    library_.Serve({.CrlDiagnostic = "3 lists loaded"});
    library_.SetAnswer(StandInCall::Ctrl, 0);
    EXPECT_TRUE(Refresh());
}

TEST_F(RefreshCrlTest, ATextWithoutAnEndIsReadUpToTheEndOfTheBuffer) {
    SeedStamps("");
    library_.Serve({.CrlDiagnostic = std::string(5000, 'x')});
    library_.SetAnswer(StandInCall::Ctrl, failed);
    EXPECT_TRUE(Refresh([this] {
        ExpectFailureBox(L"Connetion to CRL distribution point.\r\nKSEAL error 0x20000010 - It failed.\r\n\r\n" +
                             std::wstring(1024, L'x'),
                         nullptr);
        user_.ExpectBox(L"It failed (0x20000010).\r\nContinue without loading CRL?", boxes::OkOrCancel, ui::IdOk);
    }));
}

TEST_F(RefreshCrlTest, TheLibraryGetsAnEmptyBuffer) {
    SeedStamps("");
    static std::vector<std::byte> seen;
    static platform::kseal::CrlControlBlock block;
    platform::kseal::Exports exports = demo::StandInLibrary::Exports();
    exports.Ctrl = [](platform::kseal::Context, uint32_t, void* given) {
        block = *static_cast<const platform::kseal::CrlControlBlock*>(given);
        const auto bytes = std::as_bytes(std::span(block.Buffer, block.BufferLength));
        seen.assign(bytes.begin(), bytes.end());
        return uint32_t{0};
    };
    crypto::CryptoContext owner = OpenedContext();
    platform::kseal::Context raw = owner.Handle();
    exports.Uninitialize = [](platform::kseal::Context) { return uint32_t{0}; };
    const crypto::CryptoContext watched(exports, raw, reporter_);
    InDialog(
        [&] { EXPECT_TRUE(crypto::RefreshCrl(services_, opener_, watched, csProfile_, settings_.CrlUpdatePeriod)); });
    EXPECT_EQ(block.BufferLength, 1024U);
    EXPECT_EQ(block.Zero4, (std::array<std::byte, 4>{}));
    EXPECT_EQ(seen, std::vector<std::byte>(1024));
}

TEST_F(RefreshCrlTest, WithoutTheServicesKeyTheCommandEnds) {
    EXPECT_FALSE(Refresh([this] { ExpectReport(L"Create (open) register key " + key, 2); }));
    EXPECT_FALSE(LibraryWasAsked());
    EXPECT_EQ(screen_.owners, (std::vector<const ui::Dialog*>{&opener_}));
    EXPECT_EQ(world_->Registry().Calls(), (std::vector<RecordedCall>{{RegistryCall::Open, key}}));
}

TEST_F(RefreshCrlTest, AFailedOpenKeepsTheKeyThatWasCurrent) {
    Seed("[HKEY_CURRENT_USER\\SOFTWARE\\TALVERON\\morcel]\nname = \"here\"\n");
    ASSERT_TRUE(store_.Open(platform::RootKey::CurrentUser, L"SOFTWARE\\TALVERON\\morcel", {}));
    EXPECT_FALSE(
        Refresh([this] { user_.ExpectBoxBeginning(L"Create (open) register key ", boxes::Report, ui::IdOk); }));
    std::wstring text;
    store_.ReadString(L"name", text, {});
    EXPECT_EQ(text, L"here");
    EXPECT_TRUE(store_.Close({}, {}));
}

// A list that could not be read is not overwritten: the stamps of other CS profiles would be lost.
TEST_F(RefreshCrlTest, AFailedReadIsReportedAndLeavesTheStampsAsTheyAre) {
    SeedStamps("{ \"Bank;;5\", \"Office;;1700000000\" }");
    for (const size_t query : {1U, 2U}) {
        world_->Registry().ForgetCalls();
        world_->Registry().FailNth(query, 5);
        EXPECT_TRUE(Refresh([this] {
            user_.ExpectBox(
                L"Reading multistring value 'LastCrlUpdate' from register.\r\n"
                L"Error 0x5 - Access is denied.",
                boxes::Report, ui::IdOk);
        }));
        world_->Registry().NoFaults();
        EXPECT_TRUE(LibraryWasAsked());
        EXPECT_EQ(screen_.owners.back(), &opener_);
        EXPECT_EQ(Stamps(), "{ \"Bank;;5\", \"Office;;1700000000\" }");
    }
}

TEST_F(RefreshCrlTest, AFailedWriteIsReportedAndTheCommandGoesOn) {
    SeedStamps("{ \"Bank;;5\" }");
    world_->Registry().FailWhere(RegistryCall::Set, L"LastCrlUpdate", 5);
    EXPECT_TRUE(Refresh([this] {
        user_.ExpectBox(
            L"Writing multistring value 'LastCrlUpdate' into register.\r\n"
            L"Error 0x5 - Access is denied.",
            boxes::Report, ui::IdOk);
    }));
    world_->Registry().NoFaults();
    EXPECT_EQ(Stamps(), "{ \"Bank;;5\" }");
}

TEST_F(RefreshCrlTest, AfterAFailedWriteTheUserStillDecidesAboutTheRefresh) {
    SeedStamps("");
    FailWithText();
    world_->Registry().FailWhere(RegistryCall::Set, L"LastCrlUpdate", 5);
    EXPECT_FALSE(Refresh([this] {
        user_.ExpectBoxBeginning(L"Writing multistring value 'LastCrlUpdate' into register.", boxes::Report, ui::IdOk);
        ExpectQuestion(ui::IdCancel);
    }));
}

TEST_F(RefreshCrlTest, AFailedCloseIsNotWorthAWord) {
    SeedStamps("");
    world_->Registry().FailWhere(RegistryCall::Close, L"morcelservice", 6);
    EXPECT_TRUE(Refresh());
    unclosed_ = 1;  // the registry itself was not asked
    world_->Registry().NoFaults();
    EXPECT_EQ(Stamps(), "{ \"Office;;1700000000\" }");
}

TEST_F(RefreshCrlTest, MemoryThatIsNotToBeHadIsReported) {
    systemMessages_.SetSystemText(8, L"Not enough memory.\r\n");
    SeedStamps("{ \"Bank;;5\" }");
    memory_.SetLimit(0);
    EXPECT_TRUE(Refresh(
        [this] { user_.ExpectBox(L"Memory allocation.\r\nError 0x8 - Not enough memory.", boxes::Report, ui::IdOk); }));
    EXPECT_EQ(Stamps(), "{ \"Bank;;5\" }");
    SeedStamps("{}");
    memory_.SetLimit(30);
    EXPECT_TRUE(Refresh(
        [this] { user_.ExpectBox(L"Memory allocation.\r\nError 0x8 - Not enough memory.", boxes::Report, ui::IdOk); }));
    EXPECT_EQ(Stamps(), "{}");
}

TEST_F(RefreshCrlTest, AValueOfAnotherTypeCountsAsMissing) {
    Seed(keyLine + "LastCrlUpdate = 7\n");
    EXPECT_TRUE(Refresh());
    EXPECT_EQ(Stamps(), "{ \"Office;;1700000000\" }");
}

}  // namespace
}  // namespace tests
