#include "app/RuleTexts.h"

#include <gtest/gtest.h>

#include "config/Operations.h"

namespace app {
namespace {

using config::Rule;

Rule RuleOf(const wchar_t* operation) {
    Rule rule;
    rule.Operation = operation;
    return rule;
}

std::wstring Extra(const Rule& rule) {
    return RuleCell(rule, 0, RuleColumn::Extra);
}

TEST(RuleColumns, StandInThisOrder) {
    const std::vector<std::wstring_view> expected{
        L"",      L"Description", L"Rules", L"Input folder", L"Output folder", L"Error folder",
        L"Masks", L"CS profile",  L"Extra"};
    const auto headers = RuleColumnHeaders();
    EXPECT_EQ(std::vector<std::wstring_view>(headers.begin(), headers.end()), expected);
}

TEST(RuleCells, ShowTheFieldsOfTheRule) {
    Rule rule = RuleOf(L"CDSG");
    rule.Descryption = L"Sign";
    rule.PathIn = L"in";
    rule.PathOut = L"out";
    rule.PathError = L"error";
    rule.Masks = {L"*.txt"};
    rule.ZCSProfile = L"Office";
    std::vector<std::wstring> row;
    for (size_t column = 0; column < 8; ++column) row.push_back(RuleCell(rule, 4, static_cast<RuleColumn>(column)));
    const std::vector<std::wstring> expected{L"5",     L"Sign",  L"Create detached signature", L"in", L"out", L"error",
                                             L"*.txt", L"Office"};
    EXPECT_EQ(row, expected);
}

TEST(RuleCells, NameEveryOperationAndLeaveUnknownCodesAsTheyAre) {
    for (const config::Operation& operation : config::Operations())
        EXPECT_EQ(RuleCell(RuleOf(std::wstring(operation.code).c_str()), 0, RuleColumn::Operation),
                  operation.displayName);
    EXPECT_EQ(RuleCell(RuleOf(L"WXYZ"), 0, RuleColumn::Operation), L"WXYZ");
    EXPECT_EQ(RuleCell(RuleOf(L"encr"), 0, RuleColumn::Operation), L"encr");
}

TEST(RuleCells, AnOutputFolderThatIsNotSetEmptiesTheOperation) {
    Rule rule = RuleOf(L"ENCR");
    rule.PathOut = L"0";
    EXPECT_EQ(RuleCell(rule, 0, RuleColumn::Operation), L"");
    EXPECT_EQ(RuleCell(rule, 0, RuleColumn::PathOut), L"0");
}

TEST(RuleCells, AStoreProfileThatIsNotSetEmptiesTheErrorFolder) {
    Rule rule = RuleOf(L"ENCR");
    rule.ZCSProfile = L"0";
    rule.PathError = L"error";
    EXPECT_EQ(RuleCell(rule, 0, RuleColumn::PathError), L"");
    EXPECT_EQ(RuleCell(rule, 0, RuleColumn::CsProfile), L"0");
}

TEST(RuleCells, MasksShowTheOneMaskOrTheirNumber) {
    Rule rule;
    EXPECT_EQ(RuleCell(rule, 0, RuleColumn::Masks), L"0");
    rule.Masks = {L"*.txt"};
    EXPECT_EQ(RuleCell(rule, 0, RuleColumn::Masks), L"*.txt");
    rule.Masks = {L"*.txt", L"*.pdf", L"*.xml"};
    EXPECT_EQ(RuleCell(rule, 0, RuleColumn::Masks), L"3");
}

TEST(ExtraCell, OfAMoveJoinsWhatIsSet) {
    Rule rule = RuleOf(L"MOVE");
    EXPECT_EQ(Extra(rule), L"");
    rule.AddExt = L"p7s";
    EXPECT_EQ(Extra(rule), L"p7s");
    rule.PathOut2 = L"second";
    rule.DelExt = L"tmp";
    rule.Folders = L"%Y";
    rule.Copyfolders = L"%M";
    rule.ZipFile = 1;
    rule.Certificates = {L"CN=A"};
    EXPECT_EQ(Extra(rule), L"second; tmp; p7s; %Y; %M");
}

TEST(ExtraCell, OfAResignTellsProfileAndFormats) {
    Rule rule = RuleOf(L"RESG");
    rule.ResignProfile = L"store7";
    rule.OutFormatDet = 1;
    EXPECT_EQ(Extra(rule), L"store7; Attached signature->Detached signature");
    rule.SignerLists = {{L"A", {}}, {L"B", {}}};
    rule.InFormatDet = 1;
    rule.OutFormatDet = 0;
    rule.ZipFile = 2;
    EXPECT_EQ(Extra(rule), L"2; store7; Detached signature->Attached signature");
}

TEST(ExtraCell, CountsSignerListsOfVerificationsAndRecipientsOfTheRest) {
    for (const config::Operation& operation : config::Operations()) {
        const std::wstring code(operation.code);
        if (code == L"MOVE" || code == L"RESG" || code == L"EXEC") continue;
        Rule rule = RuleOf(code.c_str());
        EXPECT_EQ(Extra(rule), L"");
        rule.SignerLists = {{L"A", {}}, {L"B", {}}};
        rule.Certificates = {L"CN=A", L"CN=B", L"CN=C"};
        const bool verifies = code == L"CHCK" || code == L"CHKX" || code == L"DCHK" || code == L"DCCX";
        EXPECT_EQ(Extra(rule), verifies ? L"2" : L"3") << operation.code.size();
    }
}

TEST(ExtraCell, TellsTheArchiveKindBehindTheCount) {
    Rule rule = RuleOf(L"ENCR");
    rule.ZipFile = 1;
    EXPECT_EQ(Extra(rule), L"ZIP archivation");
    rule.Certificates = {L"CN=A"};
    EXPECT_EQ(Extra(rule), L"1; ZIP archivation");
    rule.ZipFile = 2;
    EXPECT_EQ(Extra(rule), L"1; GZIP archivation");
    rule.Certificates.clear();
    rule.SignerLists = {{L"A", {}}};  // not counted here, but the separator comes all the same
    EXPECT_EQ(Extra(rule), L"; GZIP archivation");
    rule.ZipFile = 3;
    EXPECT_EQ(Extra(rule), L"; ");
}

TEST(ExtraCell, OfAPackTellsItsLimits) {
    Rule rule = RuleOf(L"PACK");
    rule.ArchSize = 5;
    EXPECT_EQ(Extra(rule), L"5");
    rule.ArchCount = 7;
    rule.ArchTimeout = 9;
    rule.ArchName = L"%D";
    EXPECT_EQ(Extra(rule), L"7; 5; 9; %D");
    rule.ArchSize = -1;
    rule.ArchTimeout = 0;
    EXPECT_EQ(Extra(rule), L"7; %D");
    EXPECT_EQ(Extra([&] {
                  Rule other = rule;
                  other.Operation = L"UNPK";
                  return other;
              }()),
              L"");
}

TEST(ExtraCell, OfAnExecTellsProgramAndTimeout) {
    Rule rule = RuleOf(L"EXEC");
    rule.ExecName = L"run.bat";
    EXPECT_EQ(Extra(rule), L"run.bat");
    rule.ExecTimeout = 5;
    EXPECT_EQ(Extra(rule), L"run.bat; 5");
    rule.Certificates = {L"CN=A"};
    EXPECT_EQ(Extra(rule), L"1; run.bat; 5");
}

TEST(MaskDetails, PutEachMaskOnALine) {
    Rule rule;
    EXPECT_EQ(MaskDetails(rule), L"");
    rule.Masks = {L"*.txt", L"*.pdf"};
    EXPECT_EQ(MaskDetails(rule), L"\r\n*.txt\r\n*.pdf");
}

Rule FullRule() {
    Rule rule = RuleOf(L"PACK");
    rule.ResignProfile = L"Bank";
    rule.OutFormatDet = 1;
    rule.Certificates = {L"CN=A", L"CN=B"};
    rule.SignerLists = {{L"Desk", {L"CN=C", L"CN=D"}}, {L"Empty", {}}};
    rule.ZipFile = 2;
    rule.DelExt = L"tmp";
    rule.AddExt = L"sig";
    rule.Folders = L"%Y";
    rule.Copyfolders = L"%M";
    rule.ArchCount = 3;
    rule.ArchSize = 4;
    rule.ArchTimeout = 5;
    rule.ArchName = L"%D";
    rule.ExecName = L"run.bat";
    rule.ExecTimeout = 6;
    return rule;
}

constexpr wchar_t optionSections[] =
    L"Delete extension: tmp\r\n\r\nAdd extension: sig\r\n\r\nAccounting format: %Y\r\n\r\n"
    L"Accounting copy format: %M\r\n\r\nFile count: 3\r\n\r\nArchive size (KB.): 4\r\n\r\n"
    L"Archivation timeout (min.): 5\r\n\r\nArchives name format: %D\r\n\r\nExecutable file: run.bat\r\n\r\n"
    L"Execution timeout (min.): 6\r\n\r\n";

TEST(ExtraDetails, TellEverythingInThisOrder) {
    EXPECT_EQ(ExtraDetails(FullRule()),
              L"Resign to CS profile: Bank\r\nAttached signature->Detached signature\r\n\r\n"
              L"Recipient 1:\r\nCN=A\r\n\r\nRecipient 2:\r\nCN=B\r\n\r\n"
              L"List name: Desk\r\nSigner 1:\r\nCN=C\r\nSigner 2:\r\nCN=D\r\n\r\nList name: Empty\r\n\r\n"
              L"GZIP archivation\r\n\r\n" +
                  std::wstring(optionSections));
}

TEST(ExtraDetails, OfARuleWithASecondFolderStartWithIt) {
    Rule rule = FullRule();
    rule.PathOut2 = L"second";
    EXPECT_EQ(ExtraDetails(rule), L"Second Output folder : second\r\n\r\n" + std::wstring(optionSections));
}

TEST(ExtraDetails, TellNegativeLimitsButNoTimeoutWithoutAProgram) {
    Rule rule = RuleOf(L"PACK");
    EXPECT_EQ(ExtraDetails(rule), L"");
    rule.ArchCount = -1;
    rule.ExecTimeout = 6;
    EXPECT_EQ(ExtraDetails(rule), L"File count: -1\r\n\r\n");
    rule.ExecName = L"run.bat";
    rule.ExecTimeout = -6;
    EXPECT_EQ(ExtraDetails(rule), L"File count: -1\r\n\r\nExecutable file: run.bat\r\n\r\n");
    rule = RuleOf(L"ARCH");
    rule.ZipFile = 1;
    EXPECT_EQ(ExtraDetails(rule), L"ZIP archivation\r\n\r\n");
    rule.ZipFile = 3;
    EXPECT_EQ(ExtraDetails(rule), L"\r\n\r\n");
}

TEST(ListedRules, AreThoseWithAnOperationWhoseDescriptionHoldsTheText) {
    std::vector<Rule> rules(4, RuleOf(L"SIGN"));
    rules[0].Descryption = L"Signing of reports";
    rules[1].Descryption = L"Encrypt all";
    rules[2].Descryption = L"Design";
    rules[2].Operation.clear();
    rules[3].Descryption = L"\u041f\u043e\u0434\u043f\u0438\u0441\u044c SIG*";
    EXPECT_EQ(ListedRules(rules, L""), (std::vector<size_t>{0, 1, 3}));
    EXPECT_EQ(ListedRules(rules, L"sig"), (std::vector<size_t>{0, 3}));
    EXPECT_EQ(ListedRules(rules, L"\u041f\u041e\u0414\u041f"), (std::vector<size_t>{3}));
    EXPECT_EQ(ListedRules(rules, L"g*"), (std::vector<size_t>{3}));
    EXPECT_EQ(ListedRules(rules, L"s?g"), std::vector<size_t>{});
}

}  // namespace
}  // namespace app
