// What the walk does in the lists and the search box of the main window.
#include <gtest/gtest.h>

#include <algorithm>

#include "errors/MessageBoxes.h"
#include "tests/app/MainWindow.h"
#include "tests/model/Walk.h"

namespace tests::model {
namespace {

constexpr size_t masksColumn = 6;
constexpr size_t extraColumn = 8;
const Texts headers{L"",      L"Description", L"Rules", L"Input folder", L"Output folder", L"Error folder",
                    L"Masks", L"CS profile",  L"Extra"};

}  // namespace

void Walk::OpenProfile() {
    const size_t row = dice_.Below(model_.ProfileNames().size());
    model_.MoveKeyboard(Place::Profiles);
    user_.ClickRow(id::Profiles, row);
    model_.SelectProfile(row);
    model_.OpenProfile();
}

void Walk::ClickBelowProfiles() {
    model_.MoveKeyboard(Place::Profiles);
    user_.ClickBelowRows(id::Profiles);
    model_.SelectProfile(std::nullopt);
}

// from: the row that the list's own focus mark is on; where keys lead without one is the system's business.
// arrived: hears where the key has led to.
void Walk::MoveInList(int list, size_t rows, std::optional<size_t> from, const std::function<void(size_t)>& arrived) {
    user_.Click(list);
    if (!from) return;
    const Key key = dice_.Pick<Key>({Key::Up, Key::Down, Key::Home, Key::End});
    user_.Press(key);
    const size_t last = rows - 1;
    if (key == Key::Home) arrived(0);
    if (key == Key::End) arrived(last);
    if (key == Key::Up) arrived(*from == 0 ? 0 : *from - 1);
    if (key == Key::Down) arrived(std::min(*from + 1, last));
}

void Walk::MoveInProfiles() {
    model_.MoveKeyboard(Place::Profiles);
    MoveInList(id::Profiles, model_.ProfileNames().size(), user_.Get<ui::ListView>(id::Profiles).FocusedRow(),
               [this](size_t row) {
                   if (row == model_.SelectedProfile()) return;
                   model_.SelectProfile(row);
                   model_.OpenProfile();
               });
}

void Walk::ClickRow() {
    if (model_.Rows().empty()) return;
    const size_t row = dice_.Below(model_.Rows().size());
    model_.MoveKeyboard(Place::Rules);
    user_.ClickRow(id::Rules, row);
    model_.ClickRow(row);
}

void Walk::ToggleRowSelection() {
    if (model_.Rows().empty()) return;
    const size_t row = dice_.Below(model_.Rows().size());
    model_.MoveKeyboard(Place::Rules);
    user_.ClickRow(id::Rules, row, Held::Control);
    model_.ToggleRowSelection(row);
}

void Walk::ClickBelowRows() {
    model_.MoveKeyboard(Place::Rules);
    user_.ClickBelowRows(id::Rules);
    model_.ClickBelowRows();
}

void Walk::MoveInRules() {
    model_.MoveKeyboard(Place::Rules);
    MoveInList(id::Rules, model_.Rows().size(), model_.FocusedRow(), [this](size_t row) { model_.ClickRow(row); });
}

void Walk::ToggleCheck() {
    if (model_.Rows().empty()) return;
    const size_t row = dice_.Below(model_.Rows().size());
    model_.MoveKeyboard(Place::Rules);
    user_.ClickCheckBox(id::Rules, row);
    model_.ToggleCheck(row);
}

void Walk::PressSpace() {
    model_.MoveKeyboard(Place::Rules);
    user_.Click(id::Rules);
    user_.Press(Key::Space);
    if (const auto row = model_.FocusedRow()) model_.PressSpace(*row);
}

void Walk::RightClick() {
    if (model_.Rows().empty()) return;
    const size_t row = dice_.Below(model_.Rows().size());
    const size_t column = dice_.Below(headers.size());
    model_.MoveKeyboard(Place::Rules);
    model_.RightClickRow(row);
    if (column == extraColumn) {
        user_.Expect<errors::WarningBox>([this](errors::WarningBox& box) {
            EXPECT_EQ(box.Caption(), headers[extraColumn]);
            user_.Press(Key::Escape);
        });
    } else {
        const Row& shown = model_.Rows()[row];
        std::wstring text = shown.cells[column];
        if (column == masksColumn) {
            text.clear();
            for (const std::wstring& mask : model_.Opened()->rules.at(shown.rule).masks) text += L"\r\n" + mask;
        }
        user_.ExpectBox(text, ui::box::Ok | ui::box::InformationIcon, ui::IdOk, headers[column]);
    }
    user_.RightClickCell(id::Rules, row, column);
    model_.WindowOpens();
}

void Walk::SearchRules() {
    const std::wstring text =
        dice_.Chance(50) ? L"" : dice_.Pick(Texts{L"r", L"REPORT", L"mail", L"\x0416", L"\x00C4", L"%", L"zz"});
    model_.MoveKeyboard(Place::Search);
    user_.Type(id::Search, text);
    model_.TypeSearch(text);
}

}  // namespace tests::model
