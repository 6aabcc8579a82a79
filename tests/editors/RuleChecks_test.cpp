// The checks of a rule, one after the other, without a form around them.
#include "editors/RuleChecks.h"

#include <gtest/gtest.h>

#include <functional>
#include <set>

#include "config/Operations.h"
#include "platform/memory/MemoryFiles.h"

namespace tests {
namespace {

using editors::FormField;
using editors::Refusal;
using editors::RuleForm;
using editors::Validate;
using enum editors::Refusal::Shown;

struct NamedRefusal {
    std::function<void(RuleForm&)> spoil;
    Refusal refusal;
};

Refusal Missing(FormField field, const wchar_t* text, ui::Icon icon) {
    return {.field = field, .shown = ErrorBox, .text = text, .icon = icon};
}

Refusal Bad(FormField field, const wchar_t* text, uint32_t code, const wchar_t* path) {
    return {.field = field, .shown = Report, .text = text, .code = code, .path = path};
}

class RuleChecks : public testing::Test {
  protected:
    RuleChecks() {
        for (const wchar_t* folder : {L"C:\\In", L"C:\\Out", L"C:\\Error", L"C:\\Second"}) files_.AddFolder(folder);
    }

    static RuleForm Valid(const std::wstring& operation) {
        RuleForm form;
        form.Operation = operation;
        form.PathIn = L"C:\\In";
        form.PathOut = operation == L"DELE" ? L"" : L"C:\\Out";
        form.PathError = L"C:\\Error";
        form.Masks = {L"*"};
        form.Recipients = {L"CN=Anna"};
        form.ActionPath = operation == L"EXEC" ? L"run.exe" : L"C:\\Second";
        return form;
    }
    std::optional<Refusal> Find(const RuleForm& form) { return Validate(form, files_); }
    std::optional<Refusal> FindAfter(const std::wstring& operation, const std::function<void(RuleForm&)>& spoil) {
        RuleForm form = Valid(operation);
        spoil(form);
        return Find(form);
    }
    std::vector<std::wstring> Tested() const {
        std::vector<std::wstring> paths;
        for (const auto& call : files_.Calls()) {
            EXPECT_EQ(call.call, platform::memory::FileCall::CheckPathExists);
            paths.push_back(call.path);
        }
        return paths;
    }

    platform::memory::MemoryFiles files_;
};

TEST_F(RuleChecks, AValidRuleOfEveryOperationPasses) {
    for (const config::Operation& operation : config::Operations())
        EXPECT_EQ(Find(Valid(std::wstring(operation.code))), std::nullopt)
            << std::string(operation.code.begin(), operation.code.end());
}

// Each fault is added to those before it from the last check to the first: the earliest one is told.
TEST_F(RuleChecks, ComeInTheirOrder) {
    const std::vector<NamedRefusal> fromLastToFirst{
        {[](RuleForm& f) { f.Recipients.clear(); },
         Missing(FormField::ActionButton, L"No certificate is selected for operation.", ui::Icon::Recipients)},
        {[](RuleForm& f) { f.Masks.clear(); }, {.field = FormField::Masks, .text = L"No Mask selected."}},
        {[](RuleForm& f) { f.PathError = L"C:\\e"; }, Bad(FormField::PathError, L"Bad Error folder.", 2, L"C:\\e")},
        {[](RuleForm& f) { f.PathOut = L"C:\\o"; }, Bad(FormField::PathOut, L"Bad Output folder.", 2, L"C:\\o")},
        {[](RuleForm& f) { f.PathIn = L"C:\\i"; }, Bad(FormField::PathIn, L"Bad Input folder.", 2, L"C:\\i")},
        {[](RuleForm& f) { f.PathError = L"0"; },
         Missing(FormField::PathError, L"No Error folder selected.", ui::Icon::FolderError)},
        {[](RuleForm& f) { f.PathOut = L"0"; },
         Missing(FormField::PathOut, L"No Output folder selected.", ui::Icon::FolderOut)},
        {[](RuleForm& f) { f.PathIn = L"0"; },
         Missing(FormField::PathIn, L"No Input folder selected.", ui::Icon::FolderIn)},
        {[](RuleForm& f) { f.Operation = L""; }, {.field = FormField::Operation, .text = L"No operation selected."}},
    };
    RuleForm form = Valid(L"ENCR");
    for (const NamedRefusal& fault : fromLastToFirst) {
        fault.spoil(form);
        EXPECT_EQ(Find(form), fault.refusal);
    }
}

TEST_F(RuleChecks, TheLastOnesAreThoseOfTheActionField) {
    RuleForm move = Valid(L"MOVE");
    move.ActionPath = L"C:\\nowhere";
    EXPECT_EQ(Find(move), Bad(FormField::ActionPath, L"Bad Second Output folder.", 2, L"C:\\nowhere"));
    move.Masks.clear();
    EXPECT_EQ(Find(move)->text, L"No Mask selected.");
    RuleForm exec = Valid(L"EXEC");
    exec.ActionPath = L"0";
    EXPECT_EQ(Find(exec), Missing(FormField::ActionPath, L"Executable file is not set.", ui::Icon::Executable));
    exec.Masks.clear();
    EXPECT_EQ(Find(exec)->text, L"No Mask selected.");
}

TEST_F(RuleChecks, AskForAFolderOnlyWhenItsTurnHasCome) {
    Find(Valid(L"MOVE"));
    EXPECT_EQ(Tested(), (std::vector<std::wstring>{L"C:\\In", L"C:\\Out", L"C:\\Error", L"C:\\Second"}));
    files_.ForgetCalls();
    Find(Valid(L"DELE"));
    EXPECT_EQ(Tested(), (std::vector<std::wstring>{L"C:\\In", L"C:\\Error"}));
    files_.ForgetCalls();
    FindAfter(L"HASH", [](RuleForm& f) { f.PathError.clear(); });
    EXPECT_TRUE(Tested().empty());
}

TEST_F(RuleChecks, APathNeedsADriveOrAServer) {
    const auto input = [this](const wchar_t* path) {
        files_.ForgetCalls();
        return FindAfter(L"HASH", [path](RuleForm& f) { f.PathIn = path; });
    };
    for (const wchar_t* path : {L"data\\in", L"\\in", L"in", L" ", L"00", L"/in"}) {
        EXPECT_EQ(input(path), Bad(FormField::PathIn, L"Bad Input folder.", 3, path));
        EXPECT_TRUE(Tested().empty());
    }
    for (const wchar_t* path : {L"\\\\server\\share\\in", L"a\\\\b", L"x:", L"a:b"}) {
        EXPECT_TRUE(input(path));
        EXPECT_EQ(Tested(), std::vector<std::wstring>{path});
    }
    files_.AddFolder(L"\\\\server\\share\\in");
    EXPECT_EQ(input(L"\\\\server\\share\\in"), std::nullopt);
}

TEST_F(RuleChecks, ReportTheSystemsCodeAndKeepSilentAboutOne) {
    for (const uint32_t code : {2U, 3U, 5U, 53U, 80U}) {
        files_.SetFault([code](size_t number, const auto&) { return number == 1 ? code : 0U; });
        files_.ForgetCalls();
        const Refusal expected = code == 80 ? Refusal{.field = FormField::PathOut, .shown = Silence}
                                            : Bad(FormField::PathOut, L"Bad Output folder.", code, L"C:\\Out");
        EXPECT_EQ(Find(Valid(L"HASH")), expected);
    }
}

TEST_F(RuleChecks, ASecondOutputFolderIsOptional) {
    for (const wchar_t* notSet : {L"", L"0"})
        EXPECT_EQ(FindAfter(L"MOVE", [notSet](RuleForm& f) { f.ActionPath = notSet; }), std::nullopt);
    EXPECT_TRUE(FindAfter(L"MOVE", [](RuleForm& f) { f.ActionPath = L"second"; }));
}

TEST_F(RuleChecks, AnExecutableNeedsToBeSetAndNoMore) {
    EXPECT_EQ(FindAfter(L"EXEC", [](RuleForm& f) { f.ActionPath = L"no such file"; }), std::nullopt);
    EXPECT_TRUE(FindAfter(L"EXEC", [](RuleForm& f) { f.ActionPath = L""; }));
}

TEST_F(RuleChecks, OnlyEncryptingNeedsRecipients) {
    const std::set<std::wstring_view> needing{L"ENCR", L"LENC", L"SGEN"};
    for (const config::Operation& operation : config::Operations()) {
        const auto refusal = FindAfter(std::wstring(operation.code), [](RuleForm& f) { f.Recipients.clear(); });
        EXPECT_EQ(refusal.has_value(), needing.contains(operation.code));
    }
}

TEST_F(RuleChecks, OnlyDeletingNeedsNoOutputFolder) {
    for (const config::Operation& operation : config::Operations())
        for (const wchar_t* notSet : {L"", L"0"})
            EXPECT_EQ(
                FindAfter(std::wstring(operation.code), [notSet](RuleForm& f) { f.PathOut = notSet; }).has_value(),
                operation.code != L"DELE");
}

}  // namespace
}  // namespace tests
