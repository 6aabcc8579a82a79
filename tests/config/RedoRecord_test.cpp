// The record of an unfinished save: how it lies in the registry, what is taken for one, and what becomes of
// an earlier one.
#include "config/RedoRecord.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <string>
#include <vector>

#include "config/RegistryLayout.h"
#include "demo/RegistryKey.h"
#include "tests/config/ConfigTest.h"
#include "tests/config/GoldenTree.h"
#include "tests/config/RandomModel.h"
#include "tests/config/RecordTree.h"
#include "tests/config/TreeText.h"

namespace {

using config::Bytes;
using config::RedoRecord;
using State = config::RedoRecord::State;
using platform::ValueType;
using tests::RegistryCall;
namespace code = platform::code;

Bytes BytesOf(std::string_view text) {
    Bytes bytes;
    for (const char unit : text) bytes.push_back(static_cast<std::byte>(unit));
    return bytes;
}

class Record : public tests::ConfigTest {
  protected:
    void SetUp() override { SeedTrees(tests::Key(tests::ServiceKey) + "LogPath = \"C:\\Before\"\n"); }
    RedoRecord NewRecord() { return {store_, nullptr}; }
    std::optional<State> Find() { return NewRecord().Find(); }
    bool Keep(const Bytes& changes) { return NewRecord().Keep(changes); }
    bool Complete() {
        RedoRecord record = NewRecord();
        EXPECT_EQ(record.Find(), State::Whole);
        return record.Complete();
    }
    Bytes Planned(const std::function<void(config::RegistryStore&)>& action) {
        return config::PlannedChanges(store_, action);
    }
    // The setting of the service's log path.
    Bytes LogPath(const std::wstring& path) {
        return Planned([&path](config::RegistryStore& store) {
            EXPECT_TRUE(store.CreateMachineKey(config::ServiceRoot, {}));
            EXPECT_TRUE(store.WriteString(L"LogPath", path, {}));
        });
    }
    Bytes StoredRecord() { return tests::RecordKey(Registry()).Query(tests::RecordName).Data; }
    void StoreRecord(const Bytes& bytes, ValueType type = ValueType::Binary) {
        tests::RecordKey(Registry()).Set(tests::RecordName, {type, bytes});
    }
    std::string Service() { return DumpMachine(config::ServiceRoot); }
    static std::string WithLogPath(const std::string& path) {
        return tests::Key(tests::ServiceKey) + "LogPath = \"" + path + "\"\n";
    }
};

TEST_F(Record, IsMissingWhereThereIsNone) {
    EXPECT_EQ(Find(), State::Missing);
    tests::RecordKey(Registry());
    EXPECT_EQ(Find(), State::Missing);
    StoreRecord(BytesOf("BRED"), ValueType::String);
    EXPECT_EQ(Find(), State::Missing);
}

TEST_F(Record, MakesTheChangesAndGoes) {
    ASSERT_TRUE(Keep(LogPath(L"C:\\After")));
    EXPECT_EQ(Service(), WithLogPath("C:\\Before"));
    EXPECT_TRUE(Complete());
    EXPECT_EQ(Service(), WithLogPath("C:\\After"));
    EXPECT_FALSE(tests::HasRecordKey(Registry()));
}

TEST_F(Record, LiesInTheRegistryAsItsHeaderSays) {
    ASSERT_TRUE(Keep(LogPath(L"D:")));
    const std::string head(
        "BRED\1\0\0\0\0\0\0\0\x19\0\0\0"
        "\x57\x6a\x31\xa4",
        20);
    const std::string changes("\2\0\x11\7L\0o\0g\0P\0a\0t\0h\0\6D\0:\0\0\0", 25);
    EXPECT_EQ(StoredRecord(), BytesOf(head + changes));
}

TEST_F(Record, IsWrittenAndFlushedAtOnce) {
    Registry().ForgetCalls();
    ASSERT_TRUE(Keep(LogPath(L"C:\\After")));
    std::vector<RegistryCall> calls;
    for (const auto& call : Registry().Calls()) calls.push_back(call.call);
    EXPECT_EQ(calls, (std::vector{RegistryCall::Create, RegistryCall::Set, RegistryCall::Flush, RegistryCall::Close}));
}

// Any bit that differs, any byte that is missing or too many.
TEST_F(Record, OneThatIsDamagedChangesNothing) {
    ASSERT_TRUE(Keep(LogPath(L"D:")));
    const Bytes whole = StoredRecord();
    for (size_t bit = 0; bit < 8 * whole.size(); ++bit) {
        Bytes damaged = whole;
        damaged[bit / 8] ^= static_cast<std::byte>(1 << bit % 8);
        StoreRecord(damaged);
        ASSERT_EQ(Find(), State::Unreadable) << "bit " << bit;
    }
    for (size_t size = 0; size < whole.size(); ++size) {
        StoreRecord(Bytes(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(size)));
        ASSERT_EQ(Find(), State::Unreadable) << size << " bytes";
    }
    Bytes longer = whole;
    longer.push_back(std::byte{});
    StoreRecord(longer);
    EXPECT_EQ(Find(), State::Unreadable);
    StoreRecord(whole);
    EXPECT_EQ(Find(), State::Whole);
    EXPECT_EQ(Service(), WithLogPath("C:\\Before"));
}

// Whole as they are, but nothing that this program would write.
TEST_F(Record, ChangesThatMakeNoSenseAreUnreadable) {
    const std::string root("\2\0", 2);
    const std::vector<std::string> senseless{
        std::string("\1\0", 2),                            // deletes the service's key itself
        std::string("\1\2\\\0a\0", 6),                     // the same by another way
        std::string("\2\2\\\0a\0", 6),                     // no path
        std::string("\1\2a\0\0\0", 6),                     // a zero in a path
        std::string("\x11\1a\0\2\0\0", 7),                 // a value of no key
        root + std::string("\1\1a\0\x11\1a\0\2\0\0", 11),  // after a deletion the same
        root + std::string("\x13\1a\0\0", 5),              // types that are never written
        root + std::string("\x10\1a\0\0", 5),
        root + std::string("\x24\1a\0\0", 5),
        std::string("\3\0", 2),  // no change
        std::string("\2", 1),    // cut off
        std::string("\2\1a", 3),
        root + std::string("\x11\1a\0", 4),
        root + std::string("\x11\1a\0\3\0\0", 7),
        std::string("\2\x81\x80\x80\x80\x80\x80\1a\0", 9),  // a length without end
        std::string("\2\xff\xff\xff\xff\xff\xff", 7),
    };
    for (const std::string& changes : senseless) {
        ASSERT_TRUE(Keep(BytesOf(changes)));
        EXPECT_EQ(Find(), State::Unreadable) << testing::PrintToString(changes);
    }
    ASSERT_TRUE(Keep(BytesOf(root + std::string("\x11\1a\0\2\0\0", 7))));
    EXPECT_EQ(Find(), State::Whole);
}

TEST_F(Record, EveryKindOfChangeIsMadeAgain) {
    SeedTrees(tests::Key(tests::ServiceKey) + "kept = 1\n" + tests::BelowService("Old\\rules\\Rule 0") + "x = 1\n" +
              tests::BelowService("Stays\\rules\\Rule 7\\List") + "x = 1\n" + tests::BelowService("Stays") +
              "kept = 1\n");
    ASSERT_TRUE(Keep(Planned([](config::RegistryStore& store) {
        EXPECT_TRUE(store.Open(config::ServiceHive, config::ServiceRoot, {}));
        EXPECT_TRUE(store.DeleteKeyTreeIfThere(L"Old", {}));
        EXPECT_TRUE(store.DeleteKeyTreeIfThere(L"Never was", {}));
        store.WriteInteger(L"Log filesize", 4000, {});
        store.WriteTextList(L"ExtExt", {L"xml", L""}, {});
        EXPECT_TRUE(store.Open(config::ServiceHive, std::wstring(config::ServiceRoot) + L"\\Stays", {}));
        EXPECT_TRUE(store.DeleteKeyTreeIfThere(L"rules", {}));
        store.WriteInteger(L"Verify File", -1, {});
        EXPECT_TRUE(store.CreateMachineKey(std::wstring(config::ServiceRoot) + L"\\Stays\\rules\\Rule 0", {}));
    })));
    const std::string after =
        tests::Key(tests::ServiceKey) + "ExtExt = { \"xml\", \"0\" }\nkept = 1\nLog filesize = 4000\n" +
        tests::BelowService("Stays") + "kept = 1\nVerify File = -1\n" + tests::BelowService("Stays\\rules\\Rule 0");
    EXPECT_TRUE(Complete());
    EXPECT_EQ(Service(), tests::Canonical(after));
}

TEST_F(Record, ALargeOneLiesInPartsOfAMegabyte) {
    const std::wstring text(1'300'000, L'x');  // two bytes each
    ASSERT_TRUE(Keep(LogPath(text)));
    const demo::RegistryKey key = tests::RecordKey(Registry());
    std::vector<std::wstring> names = key.ValueNames();
    std::ranges::sort(names);
    EXPECT_EQ(names, (std::vector<std::wstring>{L"Unfinished save", L"Unfinished save 1-1", L"Unfinished save 1-2",
                                                L"Unfinished save 1-3"}));
    EXPECT_EQ(StoredRecord().size(), 20U);
    EXPECT_EQ(key.Query(L"Unfinished save 1-1").Data.size(), size_t{1} << 20);
    EXPECT_EQ(key.Query(L"Unfinished save 1-2").Data.size(), size_t{1} << 20);
    EXPECT_LT(key.Query(L"Unfinished save 1-3").Data.size(), size_t{1} << 20);
    EXPECT_TRUE(Complete());
    EXPECT_EQ(Service(), WithLogPath(std::string(text.size(), 'x')));
}

TEST_F(Record, ALargeOneWithoutItsLastPartIsUnreadable) {
    ASSERT_TRUE(Keep(LogPath(std::wstring(1'300'000, L'x'))));
    tests::RecordKey(Registry()).Set(L"Unfinished save 1-3", {ValueType::Binary, {}});
    EXPECT_EQ(Find(), State::Unreadable);
    EXPECT_EQ(Service(), WithLogPath("C:\\Before"));
}

// The earlier one holds until the very last of the calls that replace it.
TEST_F(Record, OneThatReplacesAnotherLeavesItWholeUntilItIsWholeItself) {
    const std::wstring sizes[] = {L"short", std::wstring(700'000, L'x'), std::wstring(800'000, L'y')};
    for (const std::wstring& earlier : sizes) {
        for (const std::wstring& later : sizes) {
            ASSERT_TRUE(Keep(LogPath(earlier)));
            for (size_t call = 0; Find() == State::Whole; ++call) {
                Registry().ForgetCalls();
                struct Killed {};
                bool killed = false;
                Registry().SetFault([call](size_t number, const platform::memory::RecordedCall& made) {
                    if (number == call && made.call != RegistryCall::Close) throw Killed();
                    return code::Success;
                });
                try {
                    EXPECT_TRUE(Keep(LogPath(later)));
                } catch (const Killed&) {
                    killed = true;
                }
                Registry().NoFaults();
                RedoRecord found = NewRecord();
                ASSERT_EQ(found.Find(), State::Whole) << "killed before call " << call;
                if (!killed) break;
            }
            EXPECT_TRUE(Complete());
            EXPECT_EQ(Service(), WithLogPath(tests::Narrow(later)));
        }
    }
}

// Bytes of the names and data of all values below the key, and of the names of its subkeys.
size_t BytesBelow(const demo::RegistryKey& key) {
    size_t bytes = 0;
    for (const std::wstring& name : key.ValueNames()) bytes += 2 * name.size() + key.Query(name).Data.size();
    for (const std::wstring& name : key.SubkeyNames()) bytes += 2 * name.size() + BytesBelow(key.OpenSubkey(name));
    return bytes;
}

TEST_F(Record, IsAtMostHalfAsLargeAgainAsWhatIsSaved) {
    tests::RandomModel random(20260117);
    for (int round = 0; round < 12; ++round) {
        SeedTrees(tests::GoldenLibrary + tests::Key(tests::ServiceKey));
        const config::Configuration configuration = random.Next();
        Registry().FailWhere(RegistryCall::DeleteSubkey, L"editor", code::AccessDenied);
        ExpectReport(L"Delete register key HKEY_LOCAL_MACHINE\\SOFTWARE\\TALVERON\\morcelservice editor",
                     code::AccessDenied);
        EXPECT_TRUE(Save(configuration));
        Registry().NoFaults();
        const size_t saved =
            BytesBelow(demo::RegistryKey::Open(Registry(), platform::RootKey::LocalMachine, config::ServiceRoot));
        EXPECT_LE(BytesBelow(tests::RecordKey(Registry())) * 2, saved * 3) << "round " << round;
    }
}

TEST_F(Record, WithoutAnEarlierOneASaveGoesOnUnprotected) {
    for (const RegistryCall call : {RegistryCall::Create, RegistryCall::Set}) {
        Registry().FailWhere(call, L"", code::AccessDenied);
        EXPECT_TRUE(Keep(LogPath(L"C:\\After")));
        Registry().NoFaults();
        EXPECT_EQ(Find(), State::Missing);
    }
    Registry().FailWhere(RegistryCall::Flush, L"", code::AccessDenied);
    EXPECT_TRUE(Keep(LogPath(L"C:\\After")));
    EXPECT_EQ(Find(), State::Whole);
}

TEST_F(Record, AnEarlierOneThatCannotBeReplacedIsRemoved) {
    for (const std::wstring& text : {std::wstring(L"C:\\After"), std::wstring(700'000, L'x')}) {
        ASSERT_TRUE(Keep(LogPath(L"C:\\Earlier")));
        Registry().FailWhere(RegistryCall::Set, L"", code::AccessDenied);
        EXPECT_TRUE(Keep(LogPath(text)));
        Registry().NoFaults();
        EXPECT_FALSE(tests::HasRecordKey(Registry()));
    }
}

TEST_F(Record, AnEarlierOneThatCannotBeRemovedEitherForbidsTheSave) {
    ASSERT_TRUE(Keep(LogPath(L"C:\\Earlier")));
    Registry().SetFault([](size_t, const platform::memory::RecordedCall& call) {
        const bool refused = call.call == RegistryCall::Set || call.call == RegistryCall::DeleteSubkey;
        return refused ? code::AccessDenied : code::Success;
    });
    ExpectReport(L"Delete register key HKEY_LOCAL_MACHINE\\SOFTWARE\\TALVERON\\morcelservice editor",
                 code::AccessDenied);
    EXPECT_FALSE(Keep(LogPath(L"C:\\After")));
    Registry().NoFaults();
    EXPECT_TRUE(Complete());
    EXPECT_EQ(Service(), WithLogPath("C:\\Earlier"));
}

TEST_F(Record, AChangeThatFailsIsReportedOnceAndTheRecordStays) {
    const Bytes changes = Planned([](config::RegistryStore& store) {
        EXPECT_TRUE(store.Open(config::ServiceHive, config::ServiceRoot, {}));
        EXPECT_TRUE(store.DeleteKeyTreeIfThere(L"Old", {}));
        EXPECT_TRUE(store.CreateMachineKey(std::wstring(config::ServiceRoot) + L"\\New", {}));
        store.WriteInteger(L"Verify File", 1, {});
    });
    const std::wstring root = L"HKEY_LOCAL_MACHINE\\SOFTWARE\\TALVERON\\morcelservice";
    const struct {
        RegistryCall call;
        std::wstring target;
        std::wstring report;
    } cases[] = {
        {RegistryCall::Create, L"morcelservice", L"Create (open) register key " + root},
        {RegistryCall::DeleteSubkey, L"Old", L"Delete register key " + root + L"\\Old"},
        {RegistryCall::Create, L"New", L"Create (open) register key " + root + L"\\New"},
        {RegistryCall::Set, L"Verify File", L"Writing integer value 'Verify File' into register"},
        {RegistryCall::DeleteSubkey, L"morcelservice editor", L"Delete register key " + root + L" editor"},
    };
    for (const auto& c : cases) {
        SeedTrees(tests::Key(tests::ServiceKey) + tests::BelowService("Old"));
        ASSERT_TRUE(Keep(changes));
        Registry().FailWhere(c.call, c.target, code::AccessDenied);
        ExpectReport(c.report, code::AccessDenied);
        EXPECT_FALSE(Complete());
        Registry().NoFaults();
        EXPECT_TRUE(Complete());
        EXPECT_EQ(Service(),
                  tests::Canonical(tests::Key(tests::ServiceKey) + tests::BelowService("New") + "Verify File = 1\n"));
    }
}

TEST_F(Record, OneThatCannotBeReadIsReportedAndStays) {
    ASSERT_TRUE(Keep(LogPath(L"C:\\After")));
    Registry().FailWhere(RegistryCall::Open, L"editor", code::AccessDenied);
    ExpectReport(L"Create (open) register key HKEY_LOCAL_MACHINE\\SOFTWARE\\TALVERON\\morcelservice editor",
                 code::AccessDenied);
    EXPECT_EQ(Find(), std::nullopt);
    Registry().FailWhere(RegistryCall::Query, L"Unfinished save", code::AccessDenied);
    ExpectReport(L"Reading binary value 'Unfinished save' from register", code::AccessDenied);
    EXPECT_EQ(Find(), std::nullopt);
    Registry().NoFaults();
    EXPECT_EQ(Find(), State::Whole);
}

}  // namespace
