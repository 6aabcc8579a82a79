// Every change from one operation to another.
#include <gtest/gtest.h>

#include <string>

#include "tests/editors/ExpectedForm.h"
#include "tests/editors/RuleEditor.h"

namespace tests {
namespace {

class OperationWalk : public RuleEditorTest {
  protected:
    // Puts something in wherever the operation asks for it, so that the next change has something to keep or
    // to drop. What is put in differs from step to step.
    void PutIn(ExpectedForm& form) {
        const std::wstring step = std::to_wstring(++step_);
        if (!form.Is(L"DELE")) user_.Paste(ruleid::PathOut, form.pathOut = L"C:\\Out" + step);
        if (form.HasRecipients()) PutInRecipients(form);
        if (form.HasSigners()) PutInSigners(form);
        if (form.HasArchive()) PutInArchive(form);
        if (form.Is(L"RESG")) PutInResignOptions(form);
        if (form.Is(L"MOVE") || form.Is(L"EXEC"))
            user_.Paste(ruleid::ActionField, form.path = L"C:\\Path" + step);
        if (form.Is(L"MOVE")) {
            user_.Paste(ruleid::TextA, form.rowA = L"a" + step);
            user_.Paste(ruleid::TextB, form.rowB = L"b" + step);
            user_.Paste(ruleid::TextC, form.rowC = L"c" + step);
        }
        if (form.Is(L"PACK") || form.Is(L"EXEC")) user_.Paste(ruleid::NumberA, form.rowA = L"1" + step);
        if (form.Is(L"PACK")) {
            user_.Paste(ruleid::NumberB, form.rowB = L"2" + step);
            user_.Paste(ruleid::NumberC, form.rowC = L"3" + step);
        }
        if (form.Is(L"PACK") || form.Is(L"MOVE")) user_.Paste(ruleid::TextD, form.rowD = L"d" + step);
    }

    void Change(ExpectedForm& form, const std::wstring& to) {
        const std::string change = Narrow(form.Operation()) + " -> " + Narrow(to);
        SCOPED_TRACE(change);
        form.ChangeTo(to);
        ChooseOperation(to);
        Compare(form);
    }

    void Compare(const ExpectedForm& form) {
        const Seen seen = Look(user_.Top());
        for (const auto& [id, expected] : form.Shown()) EXPECT_EQ(seen.at(id), expected) << "control " << id;
        for (const int edit : {ruleid::TextA, ruleid::NumberA, ruleid::TextB, ruleid::NumberB, ruleid::TextC,
                               ruleid::NumberC, ruleid::TextD}) {
            const ui::Control& control = user_.Top().Find(edit);
            EXPECT_EQ(control.IsEnabled(), control.IsVisible()) << "control " << edit;
        }
    }

  private:
    static std::string Narrow(const std::wstring& code) { return {code.begin(), code.end()}; }

    void PutInRecipients(ExpectedForm& form) {
        form.recipients = 1 + step_ % 4;
        certificates_.recipients.emplace(form.recipients, L"CN=Anna");
        user_.Click(ruleid::ActionButton);
    }
    void PutInSigners(ExpectedForm& form) {
        form.signerLists = 1 + step_ % 3;
        certificates_.signerLists.emplace(form.signerLists);
        user_.Click(ruleid::ActionButton);
    }
    void PutInArchive(ExpectedForm& form) {
        const auto& list = user_.Get<ui::ComboBox>(ruleid::ListB);
        const int choice = static_cast<int>(step_ % list.Items().size());
        user_.Choose(ruleid::ListB, choice);
        form.archive = list.SelectedItem();
    }
    void PutInResignOptions(ExpectedForm& form) {
        form.inDetached = step_ % 2 == 0;
        form.outDetached = step_ % 3 != 0;
        user_.Choose(ruleid::ListA, form.inDetached ? 1 : 0);
        user_.Choose(ruleid::ListB, form.outDetached ? 1 : 0);
        const int profile = static_cast<int>(step_ % 3);
        user_.Choose(ruleid::ListC, profile);
        form.newProfile = profile_.ZCSProfile.at(static_cast<size_t>(profile));
    }

    size_t step_ = 0;
};

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
