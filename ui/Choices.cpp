#include "ui/Choices.h"

#include <algorithm>

#include "text/Upper.h"

namespace ui {

ChoiceControl::ChoiceControl(Dialog& owner, int id, const Place& place, Handler onSelect)
    : Control(owner, id, place, {}),
      onSelect_(std::move(onSelect)) {}

std::wstring ChoiceControl::SelectedItem() const {
    return selected_ == None ? std::wstring() : items_[static_cast<size_t>(selected_)];
}

void ChoiceControl::SetItems(std::vector<std::wstring> items) {
    items_ = std::move(items);
    selected_ = None;
    Changed(Aspect::Items);
}

void ChoiceControl::Select(int index) {
    selected_ = index >= 0 && static_cast<size_t>(index) < items_.size() ? index : None;
    Selecting();
    Changed(Aspect::Selection);
}

void ChoiceControl::UserSelected(int index) {
    selected_ = index;
    Selecting();
    if (onSelect_) onSelect_();
}

ComboBox::ComboBox(Dialog& owner, int id, const Place& place, Handler onSelect)
    : ChoiceControl(owner, id, place, std::move(onSelect)) {}

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

int ListBox::Add(std::wstring item) {
    std::vector<std::wstring>& items = MutableItems();
    auto at = items.end();
    if (order_ == Order::Alphabetical)
        at = std::upper_bound(
            items.begin(), items.end(), item,
            [](const std::wstring& a, const std::wstring& b) { return text::Upper(a) < text::Upper(b); });
    const int index = static_cast<int>(at - items.begin());
    const int selected = Selected();
    items.insert(at, std::move(item));
    Changed(Aspect::Items);
    if (selected != None) Select(selected >= index ? selected + 1 : selected);
    return index;
}

void ListBox::Remove(int index) {
    const int selected = Selected();
    MutableItems().erase(MutableItems().begin() + index);
    ForgetSelection();
    Changed(Aspect::Items);
    if (selected != None && selected != index) Select(selected > index ? selected - 1 : selected);
}

void ListBox::Replace(std::vector<std::wstring> items) {
    if (order_ == Order::Alphabetical)
        std::stable_sort(items.begin(), items.end(), [](const std::wstring& a, const std::wstring& b) {
            return text::Upper(a) < text::Upper(b);
        });
    SetItems(std::move(items));
}

}  // namespace ui
