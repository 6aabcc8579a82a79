// The first start on a machine: there is no configuration, and loading makes a minimal one.
#include <gtest/gtest.h>

#include <algorithm>
#include <stdexcept>
#include <string>
#include <vector>

#include "config/RedoRecord.h"
#include "tests/config/ConfigTest.h"
#include "tests/config/GoldenTree.h"
#include "tests/config/KilledSave.h"
#include "tests/config/RecordTree.h"
#include "tests/config/TreeText.h"

namespace {

using tests::GoldenLibrary;
using tests::Key;
using tests::LibraryKey;
using tests::RegistryCall;
using tests::ServiceKey;
namespace code = platform::code;

const std::string serviceBefore = "LogPath = \"\"\nLog filesize = 4000\nLDAP = \"\"\n";
const std::string defaultBeforeItsStoreProfile =
    "AutoUseTSP = { \"0\" }\nAutoVerifyTSP = { \"0\" }\nNotAddCert = { \"0\" }\nNotCopyToLocal = { \"0\" }\n"
    "NotLoadCrl = { \"0\" }\nCrlUpdatePeriod = {}\nNoTSPisError = { \"0\" }\nNotUseLDAP = { \"1\" }\n"
    "ServerTSP = { \"0\" }\nUseAIA = { \"0\" }\nVerify File = 0\nVerify x file = 0\nVerify det file = 0\n"
    "Verify resign file = 0\nHandler timeout = 15\nRename conf files = 0\n";

std::string FirstService(const std::string& otherSettings = "") {
    return Key(ServiceKey) + serviceBefore + otherSettings + tests::BelowService("default") +
           defaultBeforeItsStoreProfile + "ZCSProfile = { \"Bank keys\" }\n" + tests::BelowService("default\\rules");
}

config::ServiceProfile FirstProfile() {
    config::ServiceProfile profile;
    profile.Name = L"default";
    profile.ServerTSP = {L"0"};
    profile.ZCSProfile = {L"Bank keys"};
    profile.NotUseLDAP = {1};
    profile.NotCopyToLocal = profile.AutoUseTSP = profile.AutoVerifyTSP = profile.NoTSPisError = {0};
    profile.UseAIA = profile.NotAddCert = profile.NotLoadCrl = {0};
    profile.CrlUpdatePeriod = {1};
    profile.HandlerTimeout = 15;
    return profile;
}

// In their order, but for the name of the CS profile, which comes last.
const std::vector<std::wstring> withoutCsProfile{
    L"morcelservice\\LogPath",    L"morcelservice\\Log filesize", L"morcelservice\\LDAP",
    L"default\\AutoUseTSP",       L"default\\AutoVerifyTSP",      L"default\\NotAddCert",
    L"default\\NotCopyToLocal",   L"default\\NotLoadCrl",         L"default\\CrlUpdatePeriod",
    L"default\\NoTSPisError",     L"default\\NotUseLDAP",         L"default\\ServerTSP",
    L"default\\UseAIA",           L"default\\Verify File",        L"default\\Verify x file",
    L"default\\Verify det file",  L"default\\Verify resign file", L"default\\Handler timeout",
    L"default\\Rename conf files"};

class FirstRun : public tests::ConfigTest {
  protected:
    std::string ReasonNotToLoad() {
        try {
            Load();
        } catch (const std::invalid_argument& reason) {
            return reason.what();
        }
        return "none: it loaded";
    }
    // The names of the values written, in their order, with the last part of their key in front.
    std::vector<std::wstring> WrittenToTheService() {
        std::vector<std::wstring> names;
        for (const auto& call : Registry().Calls()) {
            if (call.call != RegistryCall::Set || call.target.ends_with(tests::RecordName)) continue;
            const size_t name = call.target.rfind(L'\\');
            names.push_back(call.target.substr(call.target.rfind(L'\\', name - 1) + 1));
        }
        return names;
    }
    // False: there was none.
    bool CompleteRecord() {
        config::RedoRecord record(store_, nullptr);
        if (record.Find() != config::RedoRecord::State::Whole) return false;
        EXPECT_TRUE(record.Complete());
        return true;
    }
};

TEST_F(FirstRun, MakesOneProfileWithTheFirstStoreProfile) {
    SeedTrees(GoldenLibrary);
    const auto loaded = Load();
    ASSERT_TRUE(loaded);
    EXPECT_EQ(loaded->Profiles, std::vector{FirstProfile()});
    EXPECT_EQ(loaded->Settings, config::GlobalSettings());
    EXPECT_EQ(loaded->CsProfiles.size(), 2U);
    EXPECT_EQ(DumpTrees(), tests::Canonical(GoldenLibrary + FirstService()));
}

TEST_F(FirstRun, KeepsTheSettingsThatItDoesNotWrite) {
    const std::string other = "SigExt = \"sig\"\nLastCrlUpdate = { \"Bank keys;;1\" }\n";
    SeedTrees(GoldenLibrary + Key(ServiceKey) + other +
              "LogPath = \"D:\\Old\"\nLog filesize = 9000\nLDAP = \"ldap://old\"\n");
    const auto loaded = Load();
    ASSERT_TRUE(loaded);
    EXPECT_EQ(loaded->Settings.SigExt, L"sig");
    EXPECT_EQ(loaded->Settings.LogPath, L"");
    EXPECT_EQ(loaded->Settings.LogFilesize, 4000);
    EXPECT_EQ(DumpTrees(), tests::Canonical(GoldenLibrary + FirstService(other)));
}

// Not even the service's own key: a machine whose library is not set up stays as it was.
TEST_F(FirstRun, NothingIsMadeBeforeTheLibrarysKeyHasOpened) {
    const std::wstring library = L"HKEY_CURRENT_USER\\SOFTWARE\\TALVERON\\morcel\\Profiles";
    for (const uint32_t failure : {code::FileNotFound, code::AccessDenied}) {
        SeedTrees(failure == code::FileNotFound ? std::string() : GoldenLibrary);
        const std::string before = DumpTrees();
        if (failure != code::FileNotFound) Registry().FailWhere(RegistryCall::Open, library, failure);
        Registry().ForgetCalls();
        ExpectReport(L"Create (open) register key " + library, failure);
        EXPECT_EQ(Load(), std::nullopt);
        EXPECT_EQ(Registry().Calls(), (std::vector<platform::memory::RecordedCall>{{RegistryCall::Open, library}}));
        EXPECT_EQ(DumpTrees(), before);
    }
}

TEST_F(FirstRun, NothingIsMadeBeforeEveryStoreProfileHasBeenRead) {
    SeedTrees(GoldenLibrary);
    ASSERT_TRUE(Load());
    const auto& calls = Registry().Calls();
    const auto changes = [](const auto& made) {
        return made.call == RegistryCall::Create || made.call == RegistryCall::Set ||
               made.call == RegistryCall::DeleteSubkey;
    };
    const auto readsTheLibrary = [](const auto& made) {
        return made.call != RegistryCall::Close && made.target.starts_with(L"HKEY_CURRENT_USER");
    };
    const auto firstChange = std::find_if(calls.begin(), calls.end(), changes);
    ASSERT_NE(firstChange, calls.end());
    EXPECT_EQ(firstChange->target, L"HKEY_LOCAL_MACHINE\\SOFTWARE\\TALVERON\\morcelservice");
    EXPECT_TRUE(std::any_of(calls.begin(), firstChange, readsTheLibrary));
    EXPECT_FALSE(std::any_of(firstChange, calls.end(), readsTheLibrary));
}

TEST_F(FirstRun, IsNotRepeated) {
    SeedTrees(GoldenLibrary);
    const auto first = Load();
    Registry().ForgetCalls();
    EXPECT_EQ(Load(), first);
    EXPECT_EQ(Registry().CountOf(RegistryCall::Set), 0U);
}

TEST_F(FirstRun, WritesInAFixedOrder) {
    SeedTrees(GoldenLibrary);
    EXPECT_TRUE(Load());
    std::vector<std::wstring> order = withoutCsProfile;
    order.push_back(L"default\\ZCSProfile");
    EXPECT_EQ(WrittenToTheService(), order);
}

// The half of the profile goes again: the next start, with a CS profile set up, is a first one.
TEST_F(FirstRun, WithoutACsProfileItTakesBackWhatItHasBegun) {
    const std::string nothing = Key(LibraryKey + "\\Profiles") + Key(ServiceKey) + serviceBefore;
    SeedTrees(Key(LibraryKey + "\\Profiles"));
    for (int start = 0; start < 2; ++start) {
        EXPECT_THROW(Load(), std::invalid_argument);
        EXPECT_EQ(Registry().OpenKeys(), 0U);
        EXPECT_EQ(DumpTrees(), tests::Canonical(nothing));
    }
    Seed(GoldenLibrary);
    EXPECT_TRUE(Load());
    EXPECT_EQ(DumpTrees(), tests::Canonical(GoldenLibrary + FirstService()));
}

TEST_F(FirstRun, WithoutACsProfileAllElseIsWrittenAsEver) {
    SeedTrees(Key(LibraryKey + "\\Profiles"));
    EXPECT_EQ(ReasonNotToLoad(),
              "There is no CS profile: set one up with the tools of the library and start the program anew.");
    EXPECT_EQ(WrittenToTheService(), withoutCsProfile);
}

TEST_F(FirstRun, AHalfThatCannotBeTakenBackIsReported) {
    SeedTrees(Key(LibraryKey + "\\Profiles"));
    Registry().FailWhere(RegistryCall::DeleteSubkey, L"default", code::AccessDenied);
    ExpectReport(L"Delete register key HKEY_LOCAL_MACHINE\\SOFTWARE\\TALVERON\\morcelservice\\default",
                 code::AccessDenied);
    EXPECT_THROW(Load(), std::invalid_argument);
    Registry().NoFaults();
    // The record still knows what is to be done.
    EXPECT_TRUE(CompleteRecord());
    EXPECT_EQ(DumpTrees(), tests::Canonical(Key(LibraryKey + "\\Profiles") + Key(ServiceKey) + serviceBefore));
}

// With a CS profile and without: what a start leaves that is ended before any of its writes, the record makes
// whole.
TEST_F(FirstRun, OneThatIsEndedIsCompleted) {
    struct Killed {};
    const std::string whole = tests::Canonical(GoldenLibrary + FirstService());
    const std::string noLibrary = Key(LibraryKey + "\\Profiles");
    for (const std::string& library : {GoldenLibrary, noLibrary}) {
        size_t completed = 0;
        for (size_t write = 0;; ++write) {
            SeedTrees(library);
            size_t writes = 0;
            Registry().SetFault(
                [&writes, write](size_t, const platform::memory::RecordedCall& call) -> platform::Win32Code {
                    if (tests::IsWrite(call.call) && writes++ == write) throw Killed();
                    return code::Success;
                });
            try {
                EXPECT_TRUE(Load());
                break;
            } catch (const Killed&) {
            } catch (const std::invalid_argument&) {
                break;
            }
            Registry().NoFaults();
            if (CompleteRecord()) ++completed;
            Seed(GoldenLibrary);
            EXPECT_TRUE(Load());
            EXPECT_EQ(DumpTrees(), whole) << "ended before write " << write;
        }
        Registry().NoFaults();
        EXPECT_GT(completed, 20U);
    }
}

// The user has put an unfinished save off, and there is no profile: it is offered again if this start fails
// as well, and then nothing of this one is in its way.
TEST_F(FirstRun, ASaveThatWasPutOffIsNotForgotten) {
    SeedTrees(GoldenLibrary);
    const auto renamed = Load();
    ASSERT_TRUE(renamed);
    config::Configuration configuration = *renamed;
    configuration.Profiles[0].Name = L"Renamed";
    ASSERT_TRUE(Save(configuration));
    const std::string whole = DumpTrees();
    configuration.Profiles[0].Name = L"default";
    ASSERT_TRUE(Save(configuration));

    // The old profile goes, and the new one does not come.
    configuration.Profiles[0].Name = L"Renamed";
    Registry().FailWhere(RegistryCall::Create, L"Renamed", code::AccessDenied);
    ExpectReport(L"Create (open) register key HKEY_LOCAL_MACHINE\\SOFTWARE\\TALVERON\\morcelservice\\Renamed",
                 code::AccessDenied);
    ExpectReport(L"Create (open) register key HKEY_LOCAL_MACHINE\\SOFTWARE\\TALVERON\\morcelservice\\Renamed",
                 code::FileNotFound);
    EXPECT_TRUE(Save(configuration));

    Registry().FailWhere(RegistryCall::Create, L"default\\rules", code::AccessDenied);
    ExpectReport(L"Create (open) register key HKEY_LOCAL_MACHINE\\SOFTWARE\\TALVERON\\morcelservice\\default\\rules",
                 code::AccessDenied);
    EXPECT_EQ(Load(), std::nullopt);
    Registry().NoFaults();
    EXPECT_TRUE(CompleteRecord());
    EXPECT_TRUE(Load());
    EXPECT_EQ(DumpTrees(), whole);
}

TEST_F(FirstRun, AStoreProfileWithoutNameIsWrittenAsZero) {
    SeedTrees(Key(LibraryKey + "\\Profiles\\1"));
    const auto loaded = Load();
    ASSERT_TRUE(loaded);
    EXPECT_EQ(loaded->Profiles.at(0).ZCSProfile, std::vector<std::wstring>{L"0"});
}

TEST_F(FirstRun, KeysThatCannotBeMadeEndIt) {
    struct Case {
        RegistryCall call;
        const wchar_t* path;  // below the service's key
    };
    const Case cases[] = {
        {RegistryCall::Create, L""}, {RegistryCall::Create, L"\\default"}, {RegistryCall::Create, L"\\default\\rules"},
        {RegistryCall::Open, L""},   {RegistryCall::Open, L"\\default"},   {RegistryCall::Open, L"\\default\\rules"}};
    for (const Case& c : cases) {
        SeedTrees(GoldenLibrary);
        const std::wstring path = std::wstring(L"HKEY_LOCAL_MACHINE\\SOFTWARE\\TALVERON\\morcelservice") + c.path;
        Registry().FailWhere(c.call, path, code::AccessDenied);
        ExpectReport(L"Create (open) register key " + path, code::AccessDenied);
        EXPECT_EQ(Load(), std::nullopt);
        EXPECT_EQ(Registry().OpenKeys(), 0U);
    }
}

TEST_F(FirstRun, ValuesThatCannotBeWrittenAreReportedAndItGoesOn) {
    SeedTrees(GoldenLibrary);
    Registry().FailWhere(RegistryCall::Set, L"", code::AccessDenied);
    for (const wchar_t* value : {L"string value 'LogPath'",
                                 L"integer value 'Log filesize'",
                                 L"string value 'LDAP'",
                                 L"multistring value 'AutoUseTSP'",
                                 L"multistring value 'AutoVerifyTSP'",
                                 L"multistring value 'NotAddCert'",
                                 L"multistring value 'NotCopyToLocal'",
                                 L"multistring value 'NotLoadCrl'",
                                 L"multistring value 'CrlUpdatePeriod'",
                                 L"multistring value 'NoTSPisError'",
                                 L"multistring value 'NotUseLDAP'",
                                 L"multistring value 'ServerTSP'",
                                 L"multistring value 'UseAIA'",
                                 L"integer value 'Verify File'",
                                 L"integer value 'Verify x file'",
                                 L"integer value 'Verify det file'",
                                 L"integer value 'Verify resign file'",
                                 L"integer value 'Handler timeout'",
                                 L"integer value 'Rename conf files'",
                                 L"multistring value 'ZCSProfile'"})
        ExpectReport(std::wstring(L"Writing ") + value + L" into register", code::AccessDenied);
    const auto loaded = Load();
    ASSERT_TRUE(loaded);
    config::ServiceProfile empty;
    empty.Name = L"default";
    EXPECT_EQ(loaded->Profiles, std::vector{empty});
}

}  // namespace
