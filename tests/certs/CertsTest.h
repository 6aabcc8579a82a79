// Scenarios in the certificate picker and its neighbours: stores with a content that the test decides, files
// in which any step can fail, and a screen that remembers what its pickers were asked for.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "certs/PreEncryptDlg.h"
#include "errors/MessageBoxes.h"
#include "tests/certs/ScriptedSearch.h"
#include "tests/config/ExchangeTest.h"
#include "tests/support/Ids.h"

namespace tests {

using Names = std::vector<std::wstring>;

class CertsTest : public ExchangeTest {
  protected:
    using Script = std::function<void(certs::CPreEncryptDlg&)>;

    // Runs the picker for recipients; nothing when the user gave up.
    std::optional<Names> PickRecipients(const Names& chosen, const Script& script) {
        certs::CPreEncryptDlg picker(forms_, nullptr, search_, settings_, chosen);
        return Run(picker, script);
    }
    // Runs the picker for the members of a signer list. The list's name is to be found in listName_.
    std::optional<Names> PickSigners(const std::wstring& name, const Names& members, const Script& script) {
        certs::CPreEncryptDlg picker(forms_, nullptr, search_, settings_, members);
        picker.EditSignerList(name, lists_);
        const auto result = Run(picker, script);
        listName_ = picker.ListName();
        return result;
    }
    std::optional<Names> Run(certs::CPreEncryptDlg& picker, const Script& script) {
        user_.Expect<certs::CPreEncryptDlg>(script);
        const bool accepted = picker.DoModal() == ui::IdOk;
        EXPECT_EQ(notes_.waitCursors, 0);
        if (accepted) return picker.Result();
        EXPECT_TRUE(picker.Result().empty());
        return std::nullopt;
    }

    Names Shown(int list) const { return user_.Column(list, 0); }
    std::vector<bool> Checks(int list) const { return user_.Get<ui::ListView>(list).Checks(); }
    void AddLocal(const Names& names) {
        search_.localNames = names;
        user_.Click(pickid::FromLocalStore);
    }
    void Check(int list, const std::vector<size_t>& rows) {
        for (const size_t row : rows) user_.ClickCheckBox(list, row);
    }
    void ExpectWarningBox(const std::wstring& title, const std::wstring& text, ui::Icon icon) {
        user_.Expect<errors::WarningBox>([=, this](errors::WarningBox& box) {
            EXPECT_EQ(box.Caption(), title);
            EXPECT_EQ(user_.Text(boxid::WarningText), text);
            EXPECT_EQ(box.Icon(), icon);
            user_.Press(Key::Escape);
        });
    }
    void Leave() { user_.Click(ui::IdCancel); }

    RecordingScreen& notes_ = world_->Screen();
    const errors::ErrorReporter notingReporter_{machine_, notes_};
    const config::Services forms_{machine_, notes_, notingReporter_, watchedStore_};
    ScriptedSearch search_;
    crypto::PickerSettings settings_;
    std::vector<config::SignerListEntry> lists_;
    std::wstring listName_;
};

}  // namespace tests
