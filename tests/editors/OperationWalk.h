// A user who changes a rule's operation, puts in whatever it asks for, and compares what the editor then
// shows.
#pragma once

#include <string>

#include "tests/editors/ExpectedForm.h"
#include "tests/editors/RuleEditor.h"

namespace tests {

class OperationWalk : public RuleEditorTest {
  protected:
    // Puts something in wherever the operation asks for it, so that the next change has something to keep or
    // to drop. What is put in differs from step to step.
    void PutIn(ExpectedForm& form) {
        const std::wstring step = std::to_wstring(++step_);
        if (!form.Is(L"DELE")) user_.Paste(ruleid::PathOut, form.pathOut = L"C:\\Out" + step);
        if (form.HasStoreProfile() && form.recipients + form.signerLists == 0) PutInStoreProfile(form);
        if (form.HasRecipients()) PutInRecipients(form);
        if (form.HasSigners()) PutInSigners(form);
        if (form.HasArchive()) PutInArchive(form);
        if (form.Is(L"RESG")) PutInResignOptions(form);
        if (form.Is(L"MOVE") || form.Is(L"EXEC")) user_.Paste(ruleid::ActionField, form.path = L"C:\\Path" + step);
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

    void PutInStoreProfile(ExpectedForm& form) {
        const size_t profile = step_ % profile_.ZCSProfile.size();
        user_.Choose(ruleid::CsProfile, static_cast<int>(profile));
        form.csProfile = profile_.ZCSProfile[profile];
    }
    void PutInRecipients(ExpectedForm& form) {
        form.recipients = 1 + step_ % 4;
        certificates_.recipients = PreparedCertificates::Recipients(form.recipients);
        user_.Click(ruleid::ActionButton);
    }
    void PutInSigners(ExpectedForm& form) {
        form.signerLists = 1 + step_ % 3;
        certificates_.signerLists = PreparedCertificates::SignerLists(form.signerLists);
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

}  // namespace tests
