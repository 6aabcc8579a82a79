#include "ui/Controls.h"

#include <algorithm>

#include "text/Numbers.h"
#include "ui/Dialog.h"

namespace ui {

Label::Label(Dialog& owner, int id, const Place& place, std::wstring text)
    : Control(owner, id, place, std::move(text)) {}

Picture::Picture(Dialog& owner, int id, const Place& place, ui::Icon icon)
    : Control(owner, id, place, {}),
      icon_(icon) {}

void Picture::SetIcon(ui::Icon icon) {
    icon_ = icon;
    Changed(Aspect::Icon);
}

GroupBox::GroupBox(Dialog& owner, int id, const Place& place, std::wstring text)
    : Control(owner, id, place, std::move(text)) {}

Edit::Edit(Dialog& owner, int id, const Place& place, const EditStyle& style, Handler onChange)
    : Control(owner, id, place, {}),
      style_(style),
      readOnly_(style.readOnly),
      onChange_(std::move(onChange)) {}

Edit::Edit(Dialog& owner, int id, const Place& place, std::wstring& field, const EditStyle& style, Handler onChange)
    : Edit(owner, id, place, style, std::move(onChange)) {
    owner.Bind(
        &field, [this, &field] { SetText(field); }, [this, &field] { field = Text(); });
}

Edit::Edit(Dialog& owner, int id, const Place& place, int32_t& field, Handler onChange)
    : Edit(owner, id, place, EditStyle{.digitsOnly = true}, std::move(onChange)) {
    owner.Bind(
        &field, [this, &field] { SetNumber(field); }, [this, &field] { field = std::max(0, Number()); });
}

void Edit::SetReadOnly(bool readOnly) {
    if (readOnly == readOnly_) return;
    readOnly_ = readOnly;
    Changed(Aspect::ReadOnly);
}

void Edit::SetCue(std::wstring cue) {
    if (cue == cue_) return;
    cue_ = std::move(cue);
    Changed(Aspect::Cue);
}

int32_t Edit::Number() const {
    return text::LeadingNumber(Text());
}

void Edit::SetNumber(int32_t number) {
    const std::wstring digits = text::Decimal(number);
    // Zeros in front may stay: the user is still typing.
    const bool saysSo = Text().ends_with(digits) && Text().find_first_not_of(L'0') >= Text().size() - digits.size();
    if (!saysSo) SetText(digits);
}

size_t Edit::CountRefused(std::wstring_view text) const {
    return static_cast<size_t>(std::count_if(text.begin(), text.end(), [this](wchar_t unit) { return Refuses(unit); }));
}

void Edit::UserTyped(std::wstring text) {
    const size_t refused = std::erase_if(text, [this](wchar_t unit) { return Refuses(unit); });
    const bool isChange = refused == 0 || text != Text();
    TakeText(std::move(text));
    if (refused > 0) Changed(Aspect::Text);
    if (isChange && onChange_) onChange_();
}

Button::Button(Dialog& owner, int id, const Place& place, std::wstring text, Handler onClick)
    : Control(owner, id, place, std::move(text)),
      onClick_(std::move(onClick)) {}

void Button::UserClicked() {
    if (Id() == IdOk) {
        Owner().UserPressedOk();
    } else if (Id() == IdCancel) {
        Owner().UserPressedCancel();
    } else if (onClick_) {
        onClick_();
    }
}

IconButton::IconButton(Dialog& owner, int id, const Place& place, ui::Icon icon, std::wstring tooltip, Handler onClick)
    : Control(owner, id, place, {}),
      icon_(icon),
      onClick_(std::move(onClick)) {
    SetTooltip(std::move(tooltip));
}

void IconButton::SetIcon(ui::Icon icon) {
    if (icon == icon_) return;
    icon_ = icon;
    Changed(Aspect::Icon);
}

void IconButton::UserClicked() {
    if (onClick_) onClick_();
}

CheckBox::CheckBox(Dialog& owner, int id, const Place& place, std::wstring text, Handler onClick)
    : Control(owner, id, place, std::move(text)),
      onClick_(std::move(onClick)) {}

CheckBox::CheckBox(Dialog& owner, int id, const Place& place, std::wstring text, int32_t& flag, Handler onClick)
    : CheckBox(owner, id, place, std::move(text), std::move(onClick)) {
    owner.Bind(
        &flag, [this, &flag] { SetChecked(flag != 0); },
        [this, &flag] {
            if ((flag != 0) != checked_) flag = checked_ ? 1 : 0;
        });
}

void CheckBox::SetChecked(bool checked) {
    checked_ = checked;
    Changed(Aspect::Check);
}

void CheckBox::UserClicked() {
    checked_ = !checked_;
    Changed(Aspect::Check);
    if (onClick_) onClick_();
}

UpDown::UpDown(Dialog& owner, int id, Edit& buddy, int32_t lowest, int32_t highest)
    : Control(owner, id, buddy.Placement(), {}),
      buddy_(buddy),
      lowest_(lowest),
      highest_(highest) {}

void UpDown::SetRange(int32_t lowest, int32_t highest) {
    lowest_ = lowest;
    highest_ = highest;
    Changed(Aspect::Range);
}

void UpDown::UserStepped(int32_t steps) {
    const int64_t wanted = int64_t{buddy_.Number()} + steps;
    buddy_.SetNumber(static_cast<int32_t>(std::clamp(wanted, int64_t{lowest_}, int64_t{highest_})));
    buddy_.UserTyped(buddy_.Text());
}

}  // namespace ui
