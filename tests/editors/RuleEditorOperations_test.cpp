// Every change from one operation to another.
#include <gtest/gtest.h>

#include <string>

#include "tests/editors/OperationWalk.h"

namespace tests {
namespace {

// All 24 x 24 changes where they cost nothing; with real windows, which take a quarter of a second for each,
// every fifth.
#ifdef _WIN32
constexpr size_t stride = 5;
#else
constexpr size_t stride = 1;
#endif

TEST_F(OperationWalk, EachOfThemKeepsAndDropsWhatItShould) {
    const std::vector<std::wstring> codes = OperationCodes();
    Edit({}, [&](ui::Dialog&) {
        ExpectedForm form(L"ENCR");
        form.archive = L"No";
        Compare(form);
        const auto go = [&](const std::wstring& to) {
            PutIn(form);
            Compare(form);
            Change(form, to);
        };
        for (size_t from = 0; from < codes.size(); ++from) {
            go(codes[from]);  // the first time from its neighbour, then from itself
            go(codes[from]);
            for (size_t to = from + 1; to < codes.size(); to += stride) {
                go(codes[to]);
                go(codes[from]);
            }
        }
        Leave();
    });
}

TEST_F(OperationWalk, WhatWasDroppedDoesNotComeBack) {
    Edit(FullRule(L"ENCR"), [this](ui::Dialog&) {
        EXPECT_EQ(user_.Text(ruleid::ActionField), L"3");
        ChooseOperation(L"DECR");
        EXPECT_EQ(user_.Text(ruleid::ActionField), L"0");
        ChooseOperation(L"ENCR");
        EXPECT_EQ(user_.Text(ruleid::ActionField), L"0");
        Leave();
    });
}

TEST_F(OperationWalk, RecipientsGoFromOneOperationToAnotherThatUsesThem) {
    const auto rule = Edit(FullRule(L"ENCR"), [this](ui::Dialog&) {
        ChooseOperation(L"SGEN");
        EXPECT_EQ(user_.Text(ruleid::ActionField), L"3");
        user_.Click(ui::IdOk);
    });
    ASSERT_TRUE(rule);
    EXPECT_EQ(rule->Certificates, FullRule(L"ENCR").Certificates);
}

TEST_F(OperationWalk, TheKindOfArchiveIsKeptAcrossBothLists) {
    config::Rule rule = FullRule(L"DECR");
    Edit(rule, [this](ui::Dialog&) {
        EXPECT_EQ(Chosen(ruleid::ListB), L"GZIP archivation");
        ChooseOperation(L"ARCH");
        EXPECT_EQ(user_.Get<ui::ComboBox>(ruleid::ListB).Selected(), 1);
        EXPECT_EQ(Chosen(ruleid::ListB), L"GZIP archivation");
        ChooseOperation(L"DECR");
        EXPECT_EQ(user_.Get<ui::ComboBox>(ruleid::ListB).Selected(), 2);
        ChooseOperation(L"HASH");
        ChooseOperation(L"UNAR");
        EXPECT_EQ(Chosen(ruleid::ListB), L"GZIP archivation");
        ChooseOperation(L"HASH");
        ChooseOperation(L"LENC");
        EXPECT_EQ(Chosen(ruleid::ListB), L"GZIP archivation");
        Leave();
    });
}

TEST_F(OperationWalk, ASignatureFormatIsNeverTakenForAnArchive) {
    for (const wchar_t* between : {L"RESG", L"HASH"}) {
        Edit(FullRule(L"RESG"), [this, between](ui::Dialog&) {
            EXPECT_EQ(user_.Get<ui::ComboBox>(ruleid::ListB).Selected(), 1);
            ChooseOperation(between);
            ChooseOperation(L"ENCR");
            EXPECT_EQ(Chosen(ruleid::ListB), L"No");
            Leave();
        });
        Edit(FullRule(L"RESG"), [this, between](ui::Dialog&) {
            ChooseOperation(between);
            ChooseOperation(L"ARCH");
            EXPECT_EQ(Chosen(ruleid::ListB), L"ZIP archivation");
            Leave();
        });
    }
}

TEST_F(OperationWalk, ResigningStartsWithAttachedSignaturesUnlessItIsChosenAgain) {
    Edit(FullRule(L"RESG"), [this](ui::Dialog&) {
        ChooseOperation(L"RESG");
        EXPECT_EQ(Chosen(ruleid::ListA), L"Detached signature");
        EXPECT_EQ(Chosen(ruleid::ListB), L"Detached signature");
        EXPECT_EQ(Chosen(ruleid::ListC), L"Tax");
        ChooseOperation(L"CHCK");
        ChooseOperation(L"RESG");
        EXPECT_EQ(Chosen(ruleid::ListA), L"Attached signature");
        EXPECT_EQ(Chosen(ruleid::ListB), L"Attached signature");
        EXPECT_EQ(user_.Text(ruleid::ActionField), L"2");
        Leave();
    });
}

TEST_F(OperationWalk, ExecutingKeepsTheSignerListsForTheWayBackButNotInItsRule) {
    const auto checked = Edit(FullRule(L"CHCK"), [this](ui::Dialog&) {
        ChooseOperation(L"EXEC");
        EXPECT_EQ(user_.Text(ruleid::ActionField), L"");
        user_.Type(ruleid::ActionField, L"C:\\run.exe");
        ChooseOperation(L"DCHK");
        EXPECT_EQ(user_.Text(ruleid::ActionField), L"2");
        user_.Click(ui::IdOk);
    });
    ASSERT_TRUE(checked);
    EXPECT_EQ(checked->SignerLists, FullRule(L"CHCK").SignerLists);
    EXPECT_EQ(checked->ExecName, L"");
    const auto executed = Edit(FullRule(L"CHCK"), [this](ui::Dialog&) {
        ChooseOperation(L"EXEC");
        user_.Type(ruleid::ActionField, L"C:\\run.exe");
        user_.Click(ui::IdOk);
    });
    ASSERT_TRUE(executed);
    EXPECT_TRUE(executed->SignerLists.empty());
    EXPECT_EQ(executed->ExecName, L"C:\\run.exe");
}

TEST_F(OperationWalk, DescriptionFoldersAndMasksStay) {
    Edit(FullRule(L"ENCR"), [this](ui::Dialog&) {
        for (const std::wstring& code : OperationCodes()) {
            ChooseOperation(code);
            EXPECT_EQ(user_.Text(ruleid::Description), L"first\r\nsecond");
            EXPECT_EQ(user_.Text(ruleid::PathIn), L"C:\\In");
            EXPECT_EQ(user_.Text(ruleid::PathError), L"C:\\Error");
            EXPECT_EQ(ShownMasks(), (std::vector<std::wstring>{L"*.txt", L"*.pdf"}));
        }
        Leave();
    });
}

}  // namespace
}  // namespace tests
