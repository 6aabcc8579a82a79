#include "tests/editors/RuleEditor.h"

#include "config/Operations.h"
#include "errors/MessageBoxes.h"

namespace tests {
namespace {

std::wstring Seeing(const ui::Control& control) {
    if (const auto* edit = dynamic_cast<const ui::Edit*>(&control))
        return edit->Text() + (edit->IsReadOnly() ? L" (for reading)" : L"");
    if (const auto* button = dynamic_cast<const ui::IconButton*>(&control))
        return button->Tooltip() + L" (icon " + std::to_wstring(static_cast<int>(button->Icon())) + L")";
    const auto* choice = dynamic_cast<const ui::ChoiceControl*>(&control);
    if (choice == nullptr) return control.Text();
    std::wstring items;
    for (const std::wstring& item : choice->Items()) items += item + L"|";
    return items + L" " + choice->SelectedItem();
}

}  // namespace

RuleEditorTest::RuleEditorTest() {
    Seed("[HKEY_LOCAL_MACHINE\\SOFTWARE\\TALVERON\\morcelservice]\n");
    for (const wchar_t* folder : {L"C:\\In", L"C:\\Out", L"C:\\Error", L"C:\\Second"}) files_.AddFolder(folder);
    profile_.Name = L"Alpha";
    profile_.ZCSProfile = {L"Office", L"Bank", L"Tax"};
}

std::optional<config::Rule> RuleEditorTest::Edit(const config::Rule& rule,
                                                 const std::function<void(ui::Dialog&)>& script) {
    editors::CAddRule dialog(
        editorServices_, nullptr, profile_, [this] { return suggestions_; }, rule, memory_);
    user_.Expect<editors::CAddRule>(script);
    if (dialog.DoModal() == ui::IdOk) return dialog.Result();
    EXPECT_EQ(dialog.Result(), config::Rule());
    return std::nullopt;
}

config::Rule RuleEditorTest::PlainRule(const std::wstring& operation) {
    config::Rule rule;
    rule.Operation = operation;
    rule.ZCSProfile = L"Bank";
    rule.PathIn = L"C:\\In";
    rule.PathOut = L"C:\\Out";
    rule.PathError = L"C:\\Error";
    rule.Descryption = L"first\r\nsecond";
    rule.Masks = {L"*.txt"};
    return rule;
}

config::Rule RuleEditorTest::FullRule(const std::wstring& operation) {
    config::Rule rule = PlainRule(operation);
    rule.ResignProfile = L"Tax";
    rule.PathOut2 = L"C:\\Second";
    rule.Mask = L"*.old";
    rule.DelExt = L"del";
    rule.AddExt = L"add";
    rule.Folders = L"%d";
    rule.Copyfolders = L"%c";
    rule.ArchName = L"archive";
    rule.ExecName = L"C:\\run.exe";
    rule.Certificates = {L"CN=Anna", L"CN=Boris", L"CN=Clara"};
    rule.Masks = {L"*.txt", L"*.pdf"};
    rule.InFormatDet = 1;
    rule.OutFormatDet = 1;
    rule.SignerLists = {{L"chiefs", {L"CN=Dora"}}, {L"clerks", {L"CN=Egon", L"CN=Fritz"}}};
    rule.ZipFile = 2;
    rule.ArchCount = 11;
    rule.ArchSize = 22;
    rule.ArchTimeout = 33;
    rule.ExecTimeout = 44;
    return rule;
}

void RuleEditorTest::ChooseOperation(std::wstring_view code) {
    user_.Choose(ruleid::Operation, static_cast<int>(config::OperationIndex(code).value()));
}

void RuleEditorTest::ExpectErrBox(const std::wstring& text, ui::Icon icon) {
    user_.Expect<errors::ErrBox>([this, text, icon](errors::ErrBox&) {
        EXPECT_EQ(user_.Get<ui::Picture>(boxid::ErrorPicture).Icon(), icon);
        EXPECT_EQ(user_.Text(boxid::ErrorText), text);
        user_.Press(Key::Enter);
    });
}

std::vector<std::wstring> RuleEditorTest::OperationCodes() {
    std::vector<std::wstring> codes;
    for (const config::Operation& operation : config::Operations()) codes.emplace_back(operation.code);
    return codes;
}

RuleEditorTest::Seen RuleEditorTest::Look(const ui::Dialog& dialog) {
    Seen seen;
    for (const ui::Control* control : dialog.Controls()) {
        std::wstring& sight = seen[control->Id()];
        sight = control->IsVisible() ? Seeing(*control) : L"hidden";
        if (control->IsVisible() && !control->IsEnabled()) sight += L" (disabled)";
    }
    return seen;
}

}  // namespace tests
