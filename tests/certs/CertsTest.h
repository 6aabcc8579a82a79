// Scenarios in the certificate picker and its neighbours: stores with a content that the test decides, files
// in which any step can fail, and a screen that remembers what its pickers were asked for.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "certs/PreEncryptDlg.h"
#include "errors/MessageBoxes.h"
#include "tests/certs/PickerIds.h"
#include "tests/certs/ScriptedSearch.h"
#include "tests/config/ExchangeTest.h"

namespace tests {

using Names = std::vector<std::wstring>;

// The real screen; it remembers the file pickers that opened and who owned boxes and pickers.
class PickerNotes final : public ui::Screen {
  public:
    explicit PickerNotes(ui::Screen& real) : real_(real) {}

    std::vector<ui::FilePicker> pickers;
    std::vector<const ui::Dialog*> owners;
    int waitCursors = 0;

    int RunModal(ui::Dialog& dialog) override { return real_.RunModal(dialog); }
    void OpenModeless(ui::Dialog& dialog) override { real_.OpenModeless(dialog); }
    int ShowMessageBox(const ui::Dialog* owner, const std::wstring& text, const std::wstring& caption,
                       uint32_t flags) override {
        owners.push_back(owner);
        return real_.ShowMessageBox(owner, text, caption, flags);
    }
    std::optional<std::wstring> PickFolder(const ui::Dialog* owner, const std::wstring& folder) override {
        return real_.PickFolder(owner, folder);
    }
    std::optional<std::wstring> PickFile(const ui::Dialog* owner, const ui::FilePicker& picker) override {
        owners.push_back(owner);
        pickers.push_back(picker);
        return real_.PickFile(owner, picker);
    }
    void ShowWaitCursor(bool shown) override {
        waitCursors += shown ? 1 : -1;
        real_.ShowWaitCursor(shown);
    }
    const platform::ScreenMetrics& Metrics() const override { return real_.Metrics(); }

  private:
    ui::Screen& real_;
};

class CertsTest : public ExchangeTest {
  protected:
    static constexpr wchar_t Title[] = L"ZEMA AC QLD Service - configuration";
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

    Names Shown(int list) const {
        Names names;
        for (size_t row = 0; row < user_.RowCount(list); ++row) names.push_back(user_.Row(list, row).at(0));
        return names;
    }
    std::vector<bool> Checks(int list) const { return user_.Get<ui::ListView>(list).Checks(); }
    void AddLocal(const Names& names) {
        search_.localNames = names;
        user_.Click(pickid::FromLocalStore);
    }
    void Check(int list, const std::vector<size_t>& rows) {
        for (const size_t row : rows) user_.ClickCheckBox(list, row);
    }
    void ExpectWarning(const std::wstring& text) { user_.ExpectBox(text, boxes::Hint, ui::IdOk, Title); }
    void ExpectQuestion(const std::wstring& text, int answer) {
        user_.ExpectBox(text, boxes::Question, answer, Title);
    }
    // The report of a failed step; what the system says of the code follows.
    void ExpectReport(const std::wstring& operation, platform::Win32Code code) {
        user_.ExpectBoxBeginning(operation + L".\r\nError 0x" + text::Hexadecimal(code) + L" - ",
                                 ui::box::Ok | ui::box::ErrorIcon, ui::IdOk);
    }
    void ExpectWarningBox(const std::wstring& title, const std::wstring& text, ui::Icon icon) {
        user_.Expect<errors::WarningBox>([=, this](errors::WarningBox& box) {
            EXPECT_EQ(box.Caption(), title);
            EXPECT_EQ(user_.Text(1160), text);
            EXPECT_EQ(box.Icon(), icon);
            user_.Press(Key::Escape);
        });
    }
    void Leave() { user_.Click(ui::IdCancel); }

    PickerNotes notes_{world_->Screen()};
    const errors::ErrorReporter notingReporter_{machine_, notes_};
    const config::Services forms_{machine_, notes_, notingReporter_, watchedStore_};
    ScriptedSearch search_;
    crypto::PickerSettings settings_;
    std::vector<config::SignerListEntry> lists_;
    std::wstring listName_;
};

}  // namespace tests
