#include "tests/support/memory/Typing.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

#include "ui/Choices.h"
#include "ui/Controls.h"

namespace tests {
namespace {

constexpr wchar_t backspace = L'\b';

bool IsDigit(wchar_t c) {
    return c >= L'0' && c <= L'9';
}

// What edits and editable combos have in common.
class Field {
  public:
    explicit Field(ui::Control& control)
        : control_(control),
          edit_(dynamic_cast<ui::Edit*>(&control)),
          combo_(dynamic_cast<ui::EditableCombo*>(&control)) {
        if (edit_ == nullptr && combo_ == nullptr) ADD_FAILURE() << "control " << control.Id() << " takes no text";
    }

    bool TakesText() const { return combo_ != nullptr || (edit_ != nullptr && !edit_->IsReadOnly()); }
    bool TakesLines() const { return edit_ != nullptr && edit_->Style().multiLine; }
    bool Takes(wchar_t c) const { return edit_ == nullptr || !edit_->Style().digitsOnly || IsDigit(c); }
    size_t Longest() const {
        const size_t longest = edit_ != nullptr ? edit_->Style().longest : combo_ != nullptr ? combo_->Longest() : 0;
        return longest == 0 ? std::wstring::npos : longest;
    }
    // What is left of a text where some characters are refused.
    std::wstring Kept(std::wstring text) const {
        const std::wstring_view refused = edit_ != nullptr ? edit_->Style().refused : std::wstring_view();
        std::erase_if(text, [refused](wchar_t c) { return refused.find(c) != std::wstring_view::npos; });
        return text;
    }
    const std::wstring& Text() const { return control_.Text(); }

    void Give(std::wstring text) const {
        if (edit_ != nullptr) {
            edit_->UserTyped(std::move(text));
        } else if (combo_ != nullptr) {
            combo_->UserTyped(std::move(text));
        }
    }
    void Empty() const {
        if (!Text().empty()) Give({});
    }

  private:
    ui::Control& control_;
    ui::Edit* edit_;
    ui::EditableCombo* combo_;
};

// What each key puts into the field.
std::vector<std::wstring> KeysFor(const Field& field, std::wstring_view text) {
    std::vector<std::wstring> keys;
    for (const wchar_t c : text) {
        if (c == L'\r' || (c != backspace && !field.Takes(c))) continue;
        if (c != L'\n') {
            keys.emplace_back(1, c);
        } else if (field.TakesLines()) {
            keys.emplace_back(L"\r\n");
        }
    }
    return keys;
}

}  // namespace

void TypeInto(ui::Control& control, std::wstring_view text, const std::function<bool()>& goesOn) {
    const Field field(control);
    if (!field.TakesText()) return;
    if (text.empty()) return field.Empty();
    size_t caret = 0;
    bool allSelected = true;
    for (const std::wstring& key : KeysFor(field, text)) {
        const std::wstring before = field.Text();
        std::wstring content = allSelected ? std::wstring() : before;
        caret = std::min(caret, content.size());
        if (key.front() != backspace) {
            if (content.size() + key.size() > field.Longest()) continue;
            content.insert(caret, key);
            caret += key.size();
        } else if (caret > 0) {
            content.erase(--caret, 1);
        }
        allSelected = false;
        if (key.front() == backspace && content == before) continue;  // nothing to delete
        field.Give(content);
        if (!goesOn()) return;
        if (field.Text() == content) continue;
        if (const std::wstring kept = field.Kept(content); kept != content && field.Text() == kept) {
            caret -= content.size() - kept.size();
            continue;
        }
        // The program put something else there: in front of it stands the caret, unless it fills the void
        // that the user left, which the next key replaces.
        caret = 0;
        allSelected = content.empty();
    }
}

void PasteInto(ui::Control& control, const std::wstring& text) {
    const Field field(control);
    if (!field.TakesText()) return;
    const std::wstring taken = field.TakesLines() ? text : text.substr(0, text.find_first_of(L"\r\n"));
    if (!std::all_of(taken.begin(), taken.end(), [&field](wchar_t c) { return field.Takes(c); })) return;
    if (taken.empty()) return field.Empty();
    field.Give(taken.substr(0, field.Longest()));
}

}  // namespace tests
