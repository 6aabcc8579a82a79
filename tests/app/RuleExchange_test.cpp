// The commands that export and import the rules of a profile.
#include "app/RuleCommands.h"

#include <gtest/gtest.h>

#include "tests/config/ExchangeTest.h"
#include "tests/config/ExchangeText.h"
#include "ui/Dialog.h"

namespace {

using config::Rule;
using config::ServiceProfile;
using tests::FileCall;
using tests::Journal;
using Box = tests::RecordingScreen::Box;
using tests::Record;
namespace code = platform::code;
namespace field = tests::field;

Rule Named(const std::wstring& operation) {
    Rule rule;
    rule.Operation = operation;
    return rule;
}

class RuleExchange : public tests::ExchangeTest {
  protected:
    void SetUp() override {
        profile_.Name = L"Alpha";
        profile_.ZCSProfile = {L"keys"};
        profile_.Rules = {Named(L"DELE")};
    }
    void Export(const std::optional<std::wstring>& path) {
        screen_.choice = path;
        app::ExportRules(exchange_, nullptr, profile_);
    }
    bool Import(const std::optional<std::wstring>& path) {
        screen_.choice = path;
        return app::ImportRules(exchange_, nullptr, profile_);
    }
    bool ImportText(std::string_view text) {
        Put(file_, text);
        return Import(file_);
    }

    const std::wstring file_ = Path(L"rules.prx");
    ServiceProfile profile_;
};

TEST_F(RuleExchange, AProfileWithoutRulesIsNotExported) {
    profile_.Rules.clear();
    app::ExportRules(exchange_, nullptr, profile_);
    EXPECT_EQ(TakeBox(), (Box{L"Profile contains no rules.", L"ZEMA AC QLD Service - configuration", 0x30}));
    EXPECT_EQ(TakeJournal(), Journal{"box"});
}

TEST_F(RuleExchange, RulesAreWrittenToTheFileThatTheUserNames) {
    profile_.Rules = {tests::FullRule(), Named(L"DELE")};
    const ServiceProfile before = profile_;
    Export(file_);
    EXPECT_EQ(Content(file_), tests::FullRecord + Record({{field::Operation, "DELE"}}));
    EXPECT_EQ(TakeJournal(), (Journal{"picker", "create", "write", "close"}));
    EXPECT_EQ(profile_, before);
}

TEST_F(RuleExchange, ThePickerOfExportProposesTheProfilesName) {
    Export(std::nullopt);
    ASSERT_EQ(screen_.pickers.size(), 1U);
    const ui::FilePicker& picker = screen_.pickers[0];
    EXPECT_EQ(picker.kind, ui::FilePickerKind::Save);
    EXPECT_EQ(picker.filterName, L"Profiles (*.prx)");
    EXPECT_EQ(picker.filterPattern, L"*.prx");
    ASSERT_EQ(picker.furtherFilters.size(), 1U);
    EXPECT_EQ(picker.furtherFilters[0].name, L"All files (*.*)");
    EXPECT_EQ(picker.furtherFilters[0].pattern, L"*.*");
    EXPECT_EQ(picker.defaultExtension, L"prx");
    EXPECT_EQ(picker.initialPath, L"Alpha");
}

TEST_F(RuleExchange, ThePickerOfImportProposesNothing) {
    EXPECT_FALSE(Import(std::nullopt));
    ASSERT_EQ(screen_.pickers.size(), 1U);
    const ui::FilePicker& picker = screen_.pickers[0];
    EXPECT_EQ(picker.kind, ui::FilePickerKind::Open);
    EXPECT_EQ(picker.filterName, L"Profiles (*.prx)");
    EXPECT_EQ(picker.furtherFilters.size(), 1U);
    EXPECT_EQ(picker.defaultExtension, L"prx");
    EXPECT_EQ(picker.initialPath, L"");
}

TEST_F(RuleExchange, GivingUpInThePickerDoesNothing) {
    const ServiceProfile before = profile_;
    Export(std::nullopt);
    EXPECT_FALSE(Import(std::nullopt));
    EXPECT_EQ(TakeJournal(), (Journal{"picker", "picker"}));
    EXPECT_EQ(profile_, before);
}

TEST_F(RuleExchange, ImportedRulesFollowThoseThatAreThere) {
    Put(file_, std::string(tests::FullRecord) + Record({{field::Operation, "MOVE"}}));
    EXPECT_TRUE(Import(file_));
    EXPECT_EQ(TakeJournal(), (Journal{"picker", "open", "size", "read", "close"}));
    EXPECT_EQ(profile_.Rules, (std::vector{Named(L"DELE"), tests::FullRule(), Named(L"MOVE")}));
    EXPECT_EQ(profile_.Name, L"Alpha");
    EXPECT_EQ(profile_.ZCSProfile, std::vector<std::wstring>{L"keys"});
}

TEST_F(RuleExchange, ImportingTwiceAddsTheRulesTwice) {
    EXPECT_TRUE(ImportText(tests::FullRecord));
    EXPECT_TRUE(Import(file_));
    EXPECT_EQ(profile_.Rules, (std::vector{Named(L"DELE"), tests::FullRule(), tests::FullRule()}));
}

TEST_F(RuleExchange, WhatIsExportedCanBeImportedElsewhere) {
    profile_.Rules = {tests::FullRule(), Rule(), Named(L"DELE")};
    const ServiceProfile before = profile_;
    Export(file_);
    profile_ = {};
    EXPECT_TRUE(Import(file_));
    EXPECT_EQ(profile_.Rules, before.Rules);
}

TEST_F(RuleExchange, AFileWithoutRecordsChangesNothing) {
    for (const char* text : {"", "\n\r", "one line\n\r", "no end\n\n\n\n\n\n\n\n\n\n\n\n"}) {
        EXPECT_FALSE(ImportText(text)) << text;
        EXPECT_EQ(profile_.Rules, std::vector{Named(L"DELE")});
    }
}

TEST_F(RuleExchange, RecordsTooShortForARuleCountAsAnImportOfNothing) {
    EXPECT_TRUE(ImportText("a\nb\n\r"));
    EXPECT_TRUE(ImportText(Record({}, 11)));
    EXPECT_EQ(profile_.Rules, std::vector{Named(L"DELE")});
}

TEST_F(RuleExchange, AFailedImportIsReportedAndChangesNothing) {
    Put(file_, tests::FullRecord);
    const ServiceProfile before = profile_;
    for (const auto& [step, operation, journal] : tests::ReadingSteps) {
        watched_.faults = {{step, Fault}};
        EXPECT_FALSE(Import(file_));
        ExpectReported(operation + file_, Fault);
        EXPECT_EQ(profile_, before);
    }
    watched_.faults.clear();
    memory_.refuses = true;
    EXPECT_FALSE(Import(file_));
    ExpectReported(L"Memory allocation", code::NotEnoughMemory);
    EXPECT_EQ(profile_, before);
}

TEST_F(RuleExchange, AFailedExportIsReported) {
    for (const auto& [step, operation, journal] : tests::WritingSteps) {
        watched_.faults = {{step, Fault}};
        Export(file_);
        ExpectReported(operation + file_, Fault);
    }
}

TEST_F(RuleExchange, BoxesAndPickersBelongToTheDialog) {
    const ui::Dialog owner(screen_, nullptr, {.size = {100, 50}});
    screen_.choice = file_;
    watched_.faults = {{FileCall::Create, Fault}};
    app::ExportRules(exchange_, &owner, profile_);
    ExpectReported(L"Creating file " + file_, Fault);
    screen_.choice.reset();
    EXPECT_FALSE(app::ImportRules(exchange_, &owner, profile_));
    profile_.Rules.clear();
    app::ExportRules(exchange_, &owner, profile_);
    EXPECT_EQ(TakeBox().text, L"Profile contains no rules.");
    EXPECT_EQ(screen_.owners, std::vector<const ui::Dialog*>(4, &owner));
}

// The same on the screen of the program itself.
TEST_F(RuleExchange, AUserCarriesRulesFromOneProfileToAnother) {
    const errors::ErrorReporter reporter(machine_, world_->Screen());
    const config::Services services{machine_, world_->Screen(), reporter, watchedStore_};
    ServiceProfile other;
    user_.ExpectFilePicker(ui::FilePickerKind::Save, file_);
    app::ExportRules(services, nullptr, profile_);
    user_.ExpectFilePicker(ui::FilePickerKind::Open, file_);
    EXPECT_TRUE(app::ImportRules(services, nullptr, other));
    EXPECT_EQ(other.Rules, profile_.Rules);
    ExpectHint(L"Profile contains no rules.");
    app::ExportRules(services, nullptr, ServiceProfile());
}

}  // namespace
