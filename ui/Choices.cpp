#include "ui/Choices.h"

#include <algorithm>

#include "text/Case.h"
#include "ui/Dialog.h"

namespace ui {

ChoiceControl::ChoiceControl(Dialog& owner, int id, const Place& place, Handler onSelect)
    : Control(owner, id, place, {}),
      onSelect_(std::move(onSelect)) {}

std::wstring ChoiceControl::SelectedItem() const {
    return selected_ ? items_[*selected_] : std::wstring();
}

void ChoiceControl::SetItems(std::vector<std::wstring> items) {
    items_ = std::move(items);
    selected_.reset();
    Changed(Aspect::Items);
}

void ChoiceControl::Select(std::optional<size_t> index) {
    selected_ = index < items_.size() ? index : std::nullopt;
    Selecting();
    Changed(Aspect::Selection);
}

void ChoiceControl::UserSelected(std::optional<size_t> index) {
    selected_ = index;
    Selecting();
    if (onSelect_) onSelect_();
}

ComboBox::ComboBox(Dialog& owner, int id, const Place& place, Handler onSelect)
    : ChoiceControl(owner, id, place, std::move(onSelect)) {}

ComboBox::ComboBox(Dialog& owner, int id, const Place& place, std::optional<size_t>& field, Handler onSelect)
    : ComboBox(owner, id, place, std::move(onSelect)) {
    owner.Bind(
        &field,
        [this, &field] {
            if (Selected() != field) Select(field);
        },
        [this, &field] { field = Selected(); });
}

void ComboBox::DropDown() {
    droppedDown_ = true;
    Changed(Aspect::DroppedDown);
}

EditableCombo::EditableCombo(Dialog& owner, int id, const Place& place, Handler onChange, size_t longest)
    : ChoiceControl(owner, id, place, onChange),
      onChange_(std::move(onChange)),
      longest_(longest) {}

void EditableCombo::UserTyped(std::wstring text) {
    ForgetSelection();
    TakeText(std::move(text));
    if (onChange_) onChange_();
}

ListBox::ListBox(Dialog& owner, int id, const Place& place, Order order, Handler onSelect)
    : ChoiceControl(owner, id, place, std::move(onSelect)),
      order_(order) {}

size_t ListBox::Add(std::wstring item) {
    std::vector<std::wstring>& items = MutableItems();
    auto at = items.end();
    if (order_ == Order::Alphabetical)
        at = std::upper_bound(items.begin(), items.end(), item, [](const std::wstring& a, const std::wstring& b) {
            return text::Upper(a) < text::Upper(b);
        });
    const auto index = static_cast<size_t>(at - items.begin());
    const std::optional<size_t> selected = Selected();
    items.insert(at, std::move(item));
    Changed(Aspect::Items);
    if (selected) Select(*selected >= index ? *selected + 1 : *selected);
    return index;
}

void ListBox::Remove(size_t index) {
    const std::optional<size_t> selected = Selected();
    MutableItems().erase(MutableItems().begin() + static_cast<std::ptrdiff_t>(index));
    ForgetSelection();
    Changed(Aspect::Items);
    if (selected && selected != index) Select(*selected > index ? *selected - 1 : *selected);
}

void ListBox::Replace(std::vector<std::wstring> items) {
    if (order_ == Order::Alphabetical)
        std::stable_sort(items.begin(), items.end(),
                         [](const std::wstring& a, const std::wstring& b) { return text::Upper(a) < text::Upper(b); });
    SetItems(std::move(items));
}

}  // namespace ui
