#include "tests/torture/Hand.h"

#include <gtest/gtest.h>

#include <exception>
#include <ostream>

#include "errors/MessageBoxes.h"
#include "tests/torture/ShortMemory.h"
#include "ui/Choices.h"
#include "ui/ListView.h"
#include "ui/memory/Input.h"

namespace tests::torture {
namespace {

constexpr wchar_t title[] = L"ZEMA AC QLD Service - configuration";
constexpr wchar_t leaving[] = L"Some changes has not been saved. Exit without saving?";
constexpr wchar_t memoryIsShort[] = L"There is not enough memory. The command has not been completed.";

bool CanUse(const ui::Control& control) {
    return control.IsVisible() && control.IsEnabled();
}

}  // namespace

void PrintTo(const Report& report, std::ostream* out) {
    for (const wchar_t unit : report.text) *out << (unit < 0x80 ? static_cast<char>(unit) : '?');
    *out << " [" << report.flags << (report.owned ? "]" : ", of nobody]");
}

Hand::Hand(ui::memory::MemoryScreen& screen, Faults& faults) : screen_(screen), faults_(faults) {
    screen_.SetUser(*this);
}

void Hand::Act(const std::function<void()>& gesture) {
    if (!IsOpen()) return;
    faults_.NextGesture();
    ui::memory::MemoryWindow* const window = screen_.WindowOf(*open_.back());
    try {
        const Product product;
        gesture();
    } catch (...) {
        const Product product;
        window->Fail(std::current_exception());
    }
}

template <class C>
void Hand::Use(int id, const std::function<void(C&)>& gesture) {
    if (!IsOpen()) return;
    ui::Dialog& dialog = *open_.back();
    auto* const control = dynamic_cast<C*>(&dialog.Find(id));
    ASSERT_NE(control, nullptr) << "control " << id;
    if (!CanUse(*control)) return;
    Act([&] {
        if (control->TakesFocus()) ui::memory::MoveFocus(dialog, *control);
    });
    if (IsOpen() && CanUse(*control)) Act([&] { gesture(*control); });
}

void Hand::Click(int id) {
    Use<ui::Control>(id, [](ui::Control& control) {
        if (auto* button = dynamic_cast<ui::Button*>(&control)) button->UserClicked();
        if (auto* button = dynamic_cast<ui::IconButton*>(&control)) button->UserClicked();
    });
}

void Hand::Paste(int id, const std::wstring& text) {
    Use<ui::Control>(id, [&text](ui::Control& control) {
        if (auto* edit = dynamic_cast<ui::Edit*>(&control)) edit->UserTyped(text);
        if (auto* combo = dynamic_cast<ui::EditableCombo*>(&control)) combo->UserTyped(text);
    });
}

void Hand::Choose(int id, int index) {
    Use<ui::ChoiceControl>(id, [index](ui::ChoiceControl& choice) {
        if (index < static_cast<int>(choice.Items().size())) choice.UserSelected(index);
    });
}

void Hand::ToggleCheck(int id, size_t row) {
    Use<ui::ListView>(id, [row](ui::ListView& list) {
        if (row < list.RowCount()) list.UserToggledCheck(row);
    });
}

void Hand::Select(int id, size_t row) {
    Use<ui::ListView>(id, [this, row](ui::ListView& list) {
        if (row >= list.RowCount()) return;
        screen_.WindowOf(*open_.back())->Rows().Click(list, row, ui::memory::Modifier::None);
        list.UserClicked({row, 0});
    });
}

void Hand::DoubleClick(int id, size_t row) {
    Select(id, row);
    Use<ui::ListView>(id, [row](ui::ListView& list) {
        if (row < list.RowCount()) list.UserDoubleClicked({row, 0});
    });
}

void Hand::CloseBox() {
    Act([this] { open_.back()->UserPressedCancel(); });
}

bool Hand::IsOpen() const {
    return !open_.empty() && !open_.back()->HasEnded();
}

std::vector<std::wstring> Hand::Cells(int id) const {
    const auto& list = dynamic_cast<const ui::ListView&>(open_.back()->Find(id));
    std::vector<std::wstring> cells;
    for (size_t row = 0; row < list.RowCount(); ++row)
        for (size_t column = 0; column < list.Columns().size(); ++column) cells.push_back(list.CellText(row, column));
    return cells;
}

void Hand::DialogOpened(ui::Dialog& dialog) {
    const Harness harness;
    ++opened[typeid(dialog)];
    open_.push_back(&dialog);
    const auto script = scripts_.find(typeid(dialog));
    if (typeid(dialog) == typeid(errors::WarningBox)) {
        Read(dialog);
    } else if (script != scripts_.end()) {
        script->second();
    } else {
        ADD_FAILURE() << "a dialog opened that nobody knows: " << typeid(dialog).name();
    }
    if (!dialog.HasEnded()) dialog.Close();
    open_.pop_back();
}

void Hand::Read(const ui::Dialog& warningBox) {
    const bool owned = warningBox.Parent() != nullptr;
    EXPECT_TRUE(!owned || (open_.size() > 1 && warningBox.Parent() == open_[open_.size() - 2]));
    EXPECT_EQ(warningBox.Caption(), L"Warning:");
    reports.push_back({.text = warningBox.Find(boxid::WarningText).Text(), .owned = owned});
}

int Hand::BoxOpened(const std::wstring& text, const std::wstring& caption, uint32_t flags) {
    const Harness harness;
    EXPECT_EQ(caption, title);
    const uint32_t buttons = flags & ui::box::Buttons;
    if (text == leaving) {
        askedToLeave = true;
        return ui::IdNo;
    }
    if (text == memoryIsShort) {
        EXPECT_EQ(flags, ui::box::Ok | ui::box::ErrorIcon);
        ++memoryBoxes;
        return ui::IdOk;
    }
    if (buttons == ui::box::YesNo) return ui::IdYes;
    reports.push_back({.text = text, .flags = flags, .owned = screen_.LastOwner() != nullptr});
    return buttons == ui::box::OkCancel && !goesOn ? ui::IdCancel : ui::IdOk;
}

std::optional<std::wstring> Hand::FilePickerOpened(ui::FilePickerKind /*kind*/) {
    const Harness harness;
    return file;
}

}  // namespace tests::torture
