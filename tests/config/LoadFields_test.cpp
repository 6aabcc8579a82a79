// Every single field when its value is missing, of a wrong type, malformed, too long or refused: the field
// has its default, and everything else is loaded as ever. Masks, certificates and signers are numbered values
// after a stored number, which may be anything at all.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/config/ConfigTest.h"
#include "tests/config/Fields.h"
#include "tests/config/GoldenModel.h"
#include "tests/config/GoldenTree.h"
#include "tests/config/TreeText.h"

namespace {

using tests::Field;
using tests::FieldsOf;
using tests::GoldenTrees;
using tests::Narrow;
using tests::Replace;
namespace code = platform::code;
using tests::BelowService;
using tests::Key;
using tests::LibraryKey;
using tests::RegistryCall;
using Texts = std::vector<std::wstring>;

// One field of the full configuration: where its value lies, and what is loaded when it has its default.
struct FieldCase {
    std::string key;
    Field field;
    config::Configuration expected;
};

config::Rule& ExecRule(config::Configuration& configuration) {
    return configuration.Profiles.at(0).Rules.at(1);
}

// Defaults that depend on other values.
void FollowUp(const std::wstring& name, config::Configuration& configuration) {
    if (name == L"Mask num") ExecRule(configuration).Masks = {L""};  // of the older format
    if (name == L"CrlUpdatePeriod") configuration.Profiles.at(0).CrlUpdatePeriod = {1, 1};
}

// record: finds the record whose fields are meant in a configuration.
template <class FindRecord>
void AddCases(const std::string& key, FindRecord record, std::vector<FieldCase>& cases) {
    config::Configuration full = tests::GoldenModel();
    auto defaults = std::remove_reference_t<decltype(record(full))>();
    const std::vector<Field> standard = FieldsOf(defaults);
    for (size_t i = 0; i < standard.size(); ++i) {
        FieldCase fieldCase{key, standard[i], full};
        FieldsOf(record(fieldCase.expected)).at(i).TakeFrom(standard[i]);
        FollowUp(standard[i].name, fieldCase.expected);
        EXPECT_NE(fieldCase.expected, full)
            << Narrow(standard[i].name) << " must not have its default in the full tree";
        cases.push_back(std::move(fieldCase));
    }
}

std::vector<FieldCase> AllCases() {
    std::vector<FieldCase> cases;
    AddCases(
        tests::ServiceKey, [](config::Configuration& c) -> config::GlobalSettings& { return c.Settings; }, cases);
    AddCases(
        tests::ServiceKey + "\\Exchange",
        [](config::Configuration& c) -> config::ServiceProfile& { return c.Profiles.at(0); }, cases);
    AddCases(tests::ServiceKey + "\\Exchange\\rules\\Rule 1", ExecRule, cases);
    return cases;
}

class LoadFields : public tests::ConfigTest {
  protected:
    // Loads the full configuration with this in place of the field's value.
    void ExpectDefault(const FieldCase& c, const std::string& value) {
        SeedTrees(Replace(GoldenTrees, c.key, Narrow(c.field.name), value));
        EXPECT_EQ(Load(), c.expected) << Narrow(c.field.name) << " = " << value;
    }
    static std::wstring ReadReport(const Field& field) {
        const wchar_t* kind = field.IsText() ? L"string" : field.IsNumber() ? L"integer" : L"multistring";
        return std::wstring(L"Reading ") + kind + L" value '" + field.name + L"' from register";
    }

    const std::vector<FieldCase> cases_ = AllCases();
};

TEST_F(LoadFields, ThereAreAsManyAsTheServiceReads) {
    EXPECT_EQ(cases_.size(), 15U + 17U + 24U);
}

TEST_F(LoadFields, MissingValues) {
    for (const FieldCase& c : cases_) ExpectDefault(c, "");
}

TEST_F(LoadFields, ValuesOfAWrongTypeOrShape) {
    for (const FieldCase& c : cases_) {
        if (c.field.IsText()) {
            for (const char* value : {"7", "{ \"list\" }", "hex(1): 41 00", "hex(1): 41 00 00", "hex(3): 41 00 00 00"})
                ExpectDefault(c, value);
        } else if (c.field.IsNumber()) {
            for (const char* value : {"\"longer\"", "{}", "hex(4): 01 00 00 00 00 00 00 00", "hex(4): 01 00 00"})
                ExpectDefault(c, value);
        } else {
            for (const char* value :
                 {"7", "\"\"", "{}", "hex(7): 31 00 00 00", "hex(7): 31 00 00 00 00 00 00", "hex(7):"})
                ExpectDefault(c, value);
        }
    }
}

TEST_F(LoadFields, TextsThatAreTooLongAreReported) {
    for (const FieldCase& c : cases_) {
        if (!c.field.IsText()) continue;
        ExpectReport(ReadReport(c.field), code::MoreData);
        ExpectDefault(c, "\"" + std::string(600, 'x') + "\"");
    }
}

TEST_F(LoadFields, ValuesThatAreRefusedAreReportedOnce) {
    for (const FieldCase& c : cases_) {
        SeedTrees(GoldenTrees);
        const std::string target = c.key + "\\" + Narrow(c.field.name);
        Registry().FailWhere(platform::memory::RegistryCall::Query, std::wstring(target.begin(), target.end()),
                             code::AccessDenied);
        ExpectReport(ReadReport(c.field), code::AccessDenied);
        EXPECT_EQ(Load(), c.expected) << Narrow(c.field.name);
    }
}

TEST_F(LoadFields, IntegersOfAnyTypeWithFourBytesCount) {
    config::Configuration expected = tests::GoldenModel();
    expected.Profiles.at(0).HandlerTimeout = 7;
    SeedTrees(Replace(GoldenTrees, tests::ServiceKey + "\\Exchange", "Handler timeout", "hex(3): 07 00 00 00"));
    EXPECT_EQ(Load(), expected);
}

TEST_F(LoadFields, AStringCountsAsAListOfOne) {
    config::Configuration expected = tests::GoldenModel();
    expected.Profiles.at(0).ZCSProfile = {L"Only one"};
    SeedTrees(Replace(GoldenTrees, tests::ServiceKey + "\\Exchange", "ZCSProfile", "\"Only one\""));
    EXPECT_EQ(Load(), expected);
}

constexpr char largest[] = "2147483647";

// As many missing values in a row do not end a list.
constexpr size_t longestGap = 256;

// One of the three kinds of numbered values.
struct Kind {
    std::string key;  // below the rule
    std::string count;
    std::string prefix;
    Texts config::Rule::*ofRule;  // none: the signers of the first list
};

const Kind kinds[] = {{"", "Mask num", "M", &config::Rule::Masks},
                      {"", "Ext num", "C", &config::Rule::Certificates},
                      {"\\List", "Signer Num", "S", nullptr}};

class LoadNumbered : public tests::ConfigTest {
  protected:
    void SeedValues(const Kind& kind, const std::string& count, const std::string& values) {
        SeedTrees(Key(LibraryKey + "\\Profiles") + BelowService("P\\rules\\Rule 0" + kind.key) +
                  (count.empty() ? "" : kind.count + " = " + count + "\n") + values);
    }
    std::string Value(const Kind& kind, size_t number, const std::string& value) {
        return kind.prefix + std::to_string(number) + " = " + value + "\n";
    }
    Texts LoadedEntries(const Kind& kind) {
        const auto loaded = Load();
        if (!loaded || loaded->Profiles.empty() || loaded->Profiles[0].Rules.empty()) {
            ADD_FAILURE() << "nothing was loaded";
            return {};
        }
        const config::Rule& rule = loaded->Profiles[0].Rules[0];
        return kind.ofRule != nullptr ? rule.*kind.ofRule : rule.SignerLists.at(0).Signers;
    }
    // Of this kind's numbered values.
    size_t Queries(const Kind& kind) {
        const std::wstring prefix(kind.prefix.begin(), kind.prefix.end());
        size_t count = 0;
        for (const auto& call : Registry().Calls()) {
            const std::wstring name = call.target.substr(call.target.rfind(L'\\') + 1);
            const bool numbered = name.starts_with(prefix) && name.size() > 1 && name[1] >= L'0' && name[1] <= L'9';
            if (call.call == RegistryCall::Query && numbered) ++count;
        }
        return count;
    }
};

TEST_F(LoadNumbered, AsManyAsTheNumberSays) {
    for (const Kind& kind : kinds) {
        const std::string values = Value(kind, 0, "\"a\"") + Value(kind, 1, "\"b\"") + Value(kind, 2, "\"c\"");
        SeedValues(kind, "2", values);
        EXPECT_EQ(LoadedEntries(kind), (Texts{L"a", L"b"})) << kind.count;
        EXPECT_EQ(Queries(kind), 2U);
        SeedValues(kind, "1", values);
        EXPECT_EQ(LoadedEntries(kind), Texts{L"a"}) << kind.count;
    }
}

TEST_F(LoadNumbered, NoneWhenTheNumberIsMissingOrNotPositive) {
    for (const Kind& kind : kinds) {
        for (const char* count : {"", "0", "-1", "-2147483648", "\"many\"", "hex(11): 02 00 00 00 00 00 00 00"}) {
            SeedValues(kind, count, Value(kind, 0, "\"a\""));
            const bool isOlderMask = kind.prefix == "M" && count[0] != '-';
            EXPECT_EQ(LoadedEntries(kind), isOlderMask ? Texts{L""} : Texts{}) << kind.count << " = " << count;
            EXPECT_EQ(Queries(kind), 0U);
        }
    }
}

TEST_F(LoadNumbered, MissingOnesAreEmpty) {
    for (const Kind& kind : kinds) {
        SeedValues(kind, "4", Value(kind, 1, "\"b\"") + Value(kind, 2, "7"));
        EXPECT_EQ(LoadedEntries(kind), (Texts{L"", L"b", L"", L""})) << kind.count;
    }
}

TEST_F(LoadNumbered, RefusedOrTooLongOnesAreReportedAndEmpty) {
    for (const Kind& kind : kinds) {
        const std::wstring name = std::wstring(1, static_cast<wchar_t>(kind.prefix[0])) + L"1";
        SeedValues(kind, "3", Value(kind, 0, "\"a\"") + Value(kind, 1, "\"b\"") + Value(kind, 2, "\"c\""));
        Registry().FailWhere(RegistryCall::Query, L"\\" + name, code::AccessDenied);
        ExpectReport(L"Reading string value '" + name + L"' from register", code::AccessDenied);
        EXPECT_EQ(LoadedEntries(kind), (Texts{L"a", L"", L"c"})) << kind.count;
        Registry().NoFaults();
        SeedValues(
            kind, "3",
            Value(kind, 0, "\"a\"") + Value(kind, 1, "\"" + std::string(600, 'x') + "\"") + Value(kind, 2, "\"c\""));
        ExpectReport(L"Reading string value '" + name + L"' from register", code::MoreData);
        EXPECT_EQ(LoadedEntries(kind), (Texts{L"a", L"", L"c"})) << kind.count;
    }
}

TEST_F(LoadNumbered, AnEnormousNumberKeepsWhatIsThereAndEndsSoon) {
    for (const Kind& kind : kinds) {
        SeedValues(kind, largest, Value(kind, 0, "\"a\"") + Value(kind, 1, "\"b\"") + Value(kind, 5, "\"f\""));
        EXPECT_EQ(LoadedEntries(kind), (Texts{L"a", L"b", L"", L"", L"", L"f"})) << kind.count;
        EXPECT_LE(Queries(kind), 6U + longestGap + 1);
    }
}

TEST_F(LoadNumbered, AnEnormousNumberOfNothingGivesNothing) {
    for (const Kind& kind : kinds) {
        SeedValues(kind, largest, "");
        EXPECT_EQ(LoadedEntries(kind), Texts{}) << kind.count;
        EXPECT_LE(Queries(kind), 0U + longestGap + 1);
    }
}

TEST_F(LoadNumbered, OnlyALongerGapEndsTheList) {
    for (const Kind& kind : kinds) {
        SeedValues(kind, largest, Value(kind, 0, "\"a\"") + Value(kind, longestGap + 1, "\"z\""));
        Texts entries(longestGap + 2);
        entries.front() = L"a";
        entries.back() = L"z";
        EXPECT_EQ(LoadedEntries(kind), entries) << "a gap of " << longestGap << " in " << kind.count;
        SeedValues(kind, largest, Value(kind, 0, "\"a\"") + Value(kind, longestGap + 2, "\"z\""));
        EXPECT_EQ(LoadedEntries(kind), Texts{L"a"}) << "a gap of " << longestGap + 1 << " in " << kind.count;
    }
}

TEST_F(LoadNumbered, AsManyMissingOnesAsAGapMayHaveAreEmptyEntries) {
    for (const Kind& kind : kinds) {
        SeedValues(kind, std::to_string(longestGap + 1), Value(kind, 0, "\"a\""));
        Texts entries(longestGap + 1);
        entries.front() = L"a";
        EXPECT_EQ(LoadedEntries(kind), entries) << kind.count;
    }
}

TEST_F(LoadNumbered, EntriesAreKeptHoweverMany) {
    const Kind& kind = kinds[1];
    std::string values;
    Texts entries;
    for (size_t i = 0; i < 1'000; ++i) {
        values += Value(kind, i, "\"CN=" + std::to_string(i) + "\"");
        entries.push_back(L"CN=" + std::to_wstring(i));
    }
    for (const char* count : {"1000", largest}) {
        SeedValues(kind, count, values);
        EXPECT_EQ(LoadedEntries(kind), entries);
    }
}

}  // namespace
