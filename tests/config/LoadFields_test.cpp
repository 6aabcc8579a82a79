// Every single field when its value is missing, of a wrong type, malformed, too long or refused: the field
// has its default, and everything else is loaded as ever.
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
        tests::ServiceKey, [](config::Configuration& c) -> config::GlobalSettings& { return c.Settings; },
        cases);
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
            for (const char* value :
                 {"7", "{ \"list\" }", "hex(1): 41 00", "hex(1): 41 00 00", "hex(3): 41 00 00 00"})
                ExpectDefault(c, value);
        } else if (c.field.IsNumber()) {
            for (const char* value :
                 {"\"longer\"", "{}", "hex(4): 01 00 00 00 00 00 00 00", "hex(4): 01 00 00"})
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
        Registry().FailWhere(platform::memory::RegistryCall::Query,
                             std::wstring(target.begin(), target.end()), code::AccessDenied);
        ExpectReport(ReadReport(c.field), code::AccessDenied);
        EXPECT_EQ(Load(), c.expected) << Narrow(c.field.name);
    }
}

TEST_F(LoadFields, IntegersOfAnyTypeWithFourBytesCount) {
    config::Configuration expected = tests::GoldenModel();
    expected.Profiles.at(0).HandlerTimeout = 7;
    SeedTrees(
        Replace(GoldenTrees, tests::ServiceKey + "\\Exchange", "Handler timeout", "hex(3): 07 00 00 00"));
    EXPECT_EQ(Load(), expected);
}

TEST_F(LoadFields, AStringCountsAsAListOfOne) {
    config::Configuration expected = tests::GoldenModel();
    expected.Profiles.at(0).ZCSProfile = {L"Only one"};
    SeedTrees(Replace(GoldenTrees, tests::ServiceKey + "\\Exchange", "ZCSProfile", "\"Only one\""));
    EXPECT_EQ(Load(), expected);
}

}  // namespace
