// What the walk does in the settings dialogs.
#include <gtest/gtest.h>

#include <algorithm>

#include "settings/ConfigPage.h"
#include "tests/model/Walk.h"
#include "tests/settings/SettingsTest.h"

namespace tests::model {
namespace {

struct Field {
    int control;
    std::wstring name;
    std::wstring whenEmpty;
};

const std::vector<Field>& Fields() {
    static const std::vector<Field> fields{
        {extid::Signed, L"SigExt", L"Please, choose extension for files with attached signature."},
        {extid::Detached, L"DsigExt", L"Please, choose extension for files with detached signature."},
        {extid::Encrypted, L"EncExt", L"Please, choose extension for encrypted files."},
        {extid::Base64, L"B64Ext", L"Please, choose extension for b64 files."},
        {extid::Hash, L"HashExt", L"Please, choose extension for hash files."},
        {extid::Report, L"VerifyFileExt", L"Please, choose extension for files with signature verification report."},
        {extid::Zip, L"ZIPArchiveExt", L""},
        {extid::Gzip, L"GZIPArchiveExt", L""}};
    return fields;
}

}  // namespace

void Walk::EditLogSettings() {
    std::wstring path = std::get<std::wstring>(model_.Settings()[L"LogPath"]);
    int32_t size = std::get<int32_t>(model_.Settings()[L"Log filesize"]);
    user_.Expect<settings::CConflictDlg>([&](settings::CConflictDlg&) {
        EXPECT_EQ(user_.Text(logid::Path), path);
        EXPECT_EQ(user_.Text(logid::Size), std::to_wstring(size));
        if (dice_.Chance(60)) {
            path = dice_.Pick(Texts{L"C:\\Logs", L"C:\\In", L"C:\\Missing", L"Logs", L""});
            user_.Type(logid::Path, path);
        }
        if (dice_.Chance(60)) {
            const auto typed = static_cast<int32_t>(dice_.Below(2000));
            user_.Paste(logid::Size, std::to_wstring(typed));
            size = std::max(400, typed);
            EXPECT_EQ(user_.Text(logid::Size), std::to_wstring(size));
        }
        LeaveLogSettings(path, size);
    });
    ButtonOrMenu(id::LogPath, command::LogPath)();
    model_.WindowOpens();
}

void Walk::LeaveLogSettings(const std::wstring& path, int32_t size) {
    if (dice_.Chance(25)) return user_.Press(Key::Escape);
    const bool accepted = path == L"C:\\Logs" || path == L"C:\\In";
    if (!accepted) user_.ExpectBoxBeginning(L"Opening file " + path + L".\r\nError 0x", ui::box::ErrorIcon, ui::IdOk);
    user_.Click(ui::IdOk);
    if (!accepted) return user_.Click(ui::IdCancel);
    model_.Settings()[L"LogPath"] = path;
    model_.Settings()[L"Log filesize"] = size;
    model_.MarkChanged();
}

struct Walk::ExtensionForm {
    std::vector<std::wstring> texts;
    Texts additional;       // as the list shows them
    Texts applied;          // as they were when they were last applied
    std::wstring selected;  // empty: none
    bool modified = false;

    void Sort() {
        std::sort(additional.begin(), additional.end(),
                  [](const std::wstring& a, const std::wstring& b) { return Capitals(a) < Capitals(b); });
    }
};

void Walk::EditExtensions() {
    ExtensionForm form;
    for (const Field& field : Fields()) form.texts.push_back(std::get<std::wstring>(model_.Settings()[field.name]));
    form.additional = form.applied = std::get<Texts>(model_.Settings()[L"ExtExt"]);
    form.Sort();
    user_.Expect<settings::CConfigPage>([&](settings::CConfigPage&) {
        for (size_t i = 0; i < Fields().size(); ++i) EXPECT_EQ(user_.Text(Fields()[i].control), form.texts[i]);
        for (size_t changes = dice_.Below(5); changes > 0; --changes) {
            ChangeExtensions(form);
            EXPECT_EQ(user_.Get<ui::ListBox>(extid::Additional).Items(), form.additional);
        }
        LeaveExtensions(form);
    });
    user_.ChooseMenu(command::Configurations);
    model_.WindowOpens();
}

void Walk::ChangeExtensions(ExtensionForm& form) {
    using Change = void (Walk::*)(ExtensionForm&);
    (this->*dice_.Pick<Change>({&Walk::TypeExtension, &Walk::AddExtension, &Walk::SelectExtension,
                                &Walk::DeleteExtension, &Walk::ApplyExtensions}))(form);
}

void Walk::TypeExtension(ExtensionForm& form) {
    const size_t i = dice_.Below(Fields().size());
    const std::wstring text = dice_.Pick(Texts{L"", L"ext", L"\x0436", L"a b"});
    if (!text.empty() || !form.texts[i].empty()) form.modified = true;
    user_.Type(Fields()[i].control, text);
    form.texts[i] = text;
}

void Walk::AddExtension(ExtensionForm& form) {
    const std::wstring text = dice_.Pick(Texts{L"xml", L"new", L"\x0436", L"doc"});
    user_.Expect<settings::CAddExtDlg>([&](settings::CAddExtDlg&) {
        user_.Type(extid::Asked, L" " + Capitals(text));
        user_.Press(Key::Enter);
    });
    user_.Click(extid::Add);
    const auto isThere = [&](const std::wstring& item) { return Capitals(item) == Capitals(text); };
    if (std::any_of(form.additional.begin(), form.additional.end(), isThere)) return;
    form.additional.push_back(text);
    form.Sort();
    form.modified = true;
}

void Walk::SelectExtension(ExtensionForm& form) {
    if (form.additional.empty()) return;
    const size_t index = dice_.Below(form.additional.size());
    form.selected = form.additional[index];
    user_.Choose(extid::Additional, static_cast<int>(index));
}

void Walk::DeleteExtension(ExtensionForm& form) {
    if (form.selected.empty()) {
        user_.ExpectBox(L"Select list item to delete.", boxes::Hint, ui::IdOk);
        return user_.Click(extid::Delete);
    }
    const int answer = dice_.Chance(70) ? ui::IdYes : ui::IdNo;
    user_.ExpectBox(L"Delete additional extension '" + form.selected + L"'?", boxes::Question, answer);
    user_.Click(extid::Delete);
    if (answer == ui::IdNo) return;
    std::erase(form.additional, form.selected);
    form.selected.clear();
    form.modified = true;
}

void Walk::ApplyExtensions(ExtensionForm& form) {
    std::wstring refusal;
    for (size_t i = Fields().size(); i-- > 0;)
        if (form.texts[i].empty() && !Fields()[i].whenEmpty.empty()) refusal = Fields()[i].whenEmpty;
    if (form.modified && !refusal.empty()) user_.ExpectBox(refusal, boxes::Hint, ui::IdOk);
    user_.Click(extid::Apply);
    if (!form.modified || !refusal.empty()) return;
    form.applied = form.additional;
    form.modified = false;
}

void Walk::LeaveExtensions(const ExtensionForm& form) {
    if (dice_.Chance(25)) return user_.Click(ui::IdCancel);
    if (form.modified) {
        if (dice_.Chance(30)) {
            user_.ExpectBox(boxes::LeaveText, boxes::Question, ui::IdNo);
            user_.Click(ui::IdOk);
        }
        user_.ExpectBox(boxes::LeaveText, boxes::Question, ui::IdYes);
    }
    user_.Click(ui::IdOk);
    for (size_t i = 0; i < Fields().size(); ++i) model_.Settings()[Fields()[i].name] = form.texts[i];
    model_.Settings()[L"ExtExt"] = form.applied;
    model_.MarkChanged();
}

}  // namespace tests::model
