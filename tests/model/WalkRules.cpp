// The walk's commands on rules.
#include <gtest/gtest.h>

#include "tests/app/MainWindow.h"
#include "tests/model/Walk.h"

namespace tests::model {
namespace {

constexpr wchar_t exchangeFile[] = L"C:\\In\\rules.prx";

}  // namespace

void Walk::AddRule() {
    if (const auto rule = RunEditor(Rule(), ButtonOrMenu(id::AddRule, command::AddRule))) model_.AddRule(*rule);
}

void Walk::CopyRule() {
    ButtonOrMenu(id::CopyRule, command::CopyRule)();
    model_.CopyRule();
}

void Walk::EditSelected(const std::function<void()>& gesture) {
    const auto row = model_.FirstSelectedRow();
    if (!row) return gesture();
    const Rule rule = model_.Opened()->rules.at(*row);
    if (const auto edited = RunEditor(rule, gesture)) model_.ReplaceRule(*row, *edited);
}

void Walk::EditRule() {
    EditSelected(ButtonOrMenu(id::EditRule, command::EditRule));
}

void Walk::EditByDoubleClick() {
    if (model_.Rows().empty()) return;
    const size_t row = dice_.Below(model_.Rows().size());
    model_.MoveKeyboard(Place::Rules);
    model_.ClickRow(row);
    model_.CommandIsGiven();
    EditSelected([this, row] { user_.DoubleClickRow(id::Rules, row); });
}

void Walk::DeleteRules() {
    const auto pressDelete = [this] {
        model_.MoveKeyboard(Place::Rules);
        model_.CommandIsGiven();
        user_.Click(id::Rules);
        user_.Press(Key::Delete);
    };
    const auto gesture = dice_.Chance(30) ? pressDelete : ButtonOrMenu(id::DeleteRule, command::DeleteRule);
    const size_t rows = model_.SelectedRows();
    if (rows == 0) return gesture();
    const int answer = dice_.Chance(60) ? ui::IdYes : ui::IdNo;
    user_.ExpectBox(L"Delete " + std::to_wstring(rows) + L" rule(s)?", boxes::Question, answer);
    gesture();
    model_.WindowOpens();
    if (answer == ui::IdYes) model_.DeleteRules();
}

void Walk::MakeFirst() {
    ButtonOrMenu(id::MakeFirst, command::MakeFirst)();
    model_.MakeFirst();
}

void Walk::MoveUp() {
    ButtonOrMenu(id::MoveUp, command::MoveUp)();
    model_.MoveUp();
}

void Walk::MoveDown() {
    ButtonOrMenu(id::MoveDown, command::MoveDown)();
    model_.MoveDown();
}

void Walk::MakeLast() {
    ButtonOrMenu(id::MakeLast, command::MakeLast)();
    model_.MakeLast();
}

// The file is written from the rules as they are once their check boxes have been taken over; while a search
// hides some, only a click on the button does that.
void Walk::ExportRules() {
    const bool confirmed = dice_.Chance(80);
    const bool byMenu = dice_.Chance(50);
    byMenu ? model_.CommandIsGiven() : model_.MoveKeyboard(Place::Elsewhere);
    const std::vector<Rule>& rules = model_.Opened()->rules;
    if (rules.empty()) {
        user_.ExpectBox(L"Profile contains no rules.", ui::box::Ok | ui::box::ExclamationIcon, ui::IdOk);
    } else {
        user_.ExpectFilePicker(ui::FilePickerKind::Save,
                               confirmed ? std::optional<std::wstring>(exchangeFile) : std::nullopt);
        if (confirmed) exported_.emplace();
        if (confirmed)
            for (const Rule& rule : rules) exported_->push_back(Exchanged(rule));
    }
    byMenu ? user_.ChooseMenu(command::ExportRules) : user_.Click(id::ExportRules);
    model_.WindowOpens();
}

void Walk::ImportRules() {
    constexpr size_t many = 20;
    const bool confirmed = exported_.has_value() && model_.Opened()->rules.size() < many && dice_.Chance(80);
    user_.ExpectFilePicker(ui::FilePickerKind::Open,
                           confirmed ? std::optional<std::wstring>(exchangeFile) : std::nullopt);
    ButtonOrMenu(id::ImportRules, command::ImportRules)();
    model_.WindowOpens();
    if (confirmed) model_.ImportRules(*exported_);
}

}  // namespace tests::model
