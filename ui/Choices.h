// The controls that offer a list of texts to choose from: drop-down lists, editable combos and list boxes.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "ui/Control.h"

namespace ui {

// Items with at most one of them selected.
class ChoiceControl : public Control {
  public:
    const std::vector<std::wstring>& Items() const { return items_; }
    // An index of Items.
    std::optional<size_t> Selected() const { return selected_; }
    // The selected item's text, empty when none is selected.
    std::wstring SelectedItem() const;

    void SetItems(std::vector<std::wstring> items);  // selects none
    void Select(std::optional<size_t> index);        // an index beyond the items selects none

    void UserSelected(std::optional<size_t> index);

  protected:
    ChoiceControl(Dialog& owner, int id, const Place& place, Handler onSelect);
    // What belongs to a selection besides the index, before the handler hears of it.
    virtual void Selecting() {}
    std::vector<std::wstring>& MutableItems() { return items_; }
    void ForgetSelection() { selected_.reset(); }

  private:
    std::vector<std::wstring> items_;
    std::optional<size_t> selected_;
    Handler onSelect_;
};

// A drop-down list: only its items can be chosen. The place is that of the closed control.
class ComboBox : public ChoiceControl {
  public:
    ComboBox(Dialog& owner, int id, const Place& place, Handler onSelect = {});
    // Shows the index.
    ComboBox(Dialog& owner, int id, const Place& place, std::optional<size_t>& field, Handler onSelect = {});
    void Accept(ControlVisitor& visitor) override { visitor.Visit(*this); }

    // Drops the list open before the user's eyes, to ask for a choice.
    void DropDown();
    // Whether that was done since the user last chose.
    bool IsDroppedDown() const { return droppedDown_; }

  private:
    void Selecting() override { droppedDown_ = false; }
    bool droppedDown_ = false;
};

// A combo box with an edit: choosing an item puts its text there. The handler hears of typing and choosing.
class EditableCombo : public ChoiceControl {
  public:
    // longest: UTF-16 units that typing and pasting can make the text; 0: as many as the system can.
    EditableCombo(Dialog& owner, int id, const Place& place, Handler onChange = {}, size_t longest = 0);
    void Accept(ControlVisitor& visitor) override { visitor.Visit(*this); }
    size_t Longest() const { return longest_; }
    void UserTyped(std::wstring text);

  private:
    void Selecting() override { TakeText(SelectedItem()); }
    Handler onChange_;
    const size_t longest_;
};

class ListBox : public ChoiceControl {
  public:
    enum class Order { AsAdded, Alphabetical };  // alphabetical: without regard to case

    ListBox(Dialog& owner, int id, const Place& place, Order order, Handler onSelect = {});
    void Accept(ControlVisitor& visitor) override { visitor.Visit(*this); }

    // Adds at the end, or at its place in an alphabetical list, and returns the index. The selected item
    // stays.
    size_t Add(std::wstring item);
    void Remove(size_t index);                      // selects none when the selected item goes
    void Replace(std::vector<std::wstring> items);  // all items, put into the list's order

  private:
    const Order order_;
};

}  // namespace ui
