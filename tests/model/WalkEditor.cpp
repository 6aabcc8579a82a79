// What the walk does in the rule editor.
#include <gtest/gtest.h>

#include "editors/AddRule.h"
#include "editors/MaskList.h"
#include "errors/MessageBoxes.h"
#include "tests/editors/RuleEditor.h"
#include "tests/model/Walk.h"

namespace tests::model {
namespace {

using editors::AddMask;
using editors::CAddRule;
const Texts existingFolders{L"C:\\In", L"C:\\Out", L"C:\\Error", L"C:\\Second"};

// The controls behind the values that an operation asks for by itself.
int ControlOf(const std::wstring& value) {
    static const std::map<std::wstring, int> controls{
        {L"Path Out 2", ruleid::ActionField}, {L"ExecName", ruleid::ActionField}, {L"DelExt", ruleid::TextA},
        {L"AddExt", ruleid::TextB},           {L"Folders", ruleid::TextC},        {L"Copyfolders", ruleid::TextD},
        {L"ArchName", ruleid::TextD},         {L"ArchCount", ruleid::NumberA},    {L"ArchSize", ruleid::NumberB},
        {L"ArchTimeout", ruleid::NumberC},    {L"ExecTimeout", ruleid::NumberA},  {L"In format det", ruleid::ListA},
        {L"Out format det", ruleid::ListB},   {L"ZipFile", ruleid::ListB},        {L"ResignProfile", ruleid::ListC}};
    return controls.at(value);
}

std::wstring RandomFolder(Dice& dice) {
    return dice.Chance(92) ? dice.Pick(existingFolders) : dice.Pick(Texts{L"", L"0", L"C:\\Missing", L"In"});
}

}  // namespace

std::optional<Rule> Walk::RunEditor(const Rule& rule, const std::function<void()>& open) {
    const bool isNew = rule.Operation().empty();
    EditorForm form(rule, model_.Opened()->CsProfiles());
    if (!isNew) rememberedStore_ = form.store;
    std::optional<Rule> finished;
    user_.Expect<CAddRule>([&](CAddRule& editor) {
        EXPECT_EQ(editor.Caption(), isNew ? L"Add rule" : L"Edit rule");
        FillEditor(form);
        finished = LeaveEditor(form);
    });
    open();
    model_.WindowOpens();
    return finished;
}

void Walk::FillEditor(EditorForm& form) {
    const bool isEmpty = form.values.masks.empty();
    if (dice_.Chance(isEmpty ? 90 : 40)) ChooseOperation(form);
    if (dice_.Chance(40)) PutOwnValues(form);
    if (isEmpty || dice_.Chance(60)) PutCommonValues(form);
    if (dice_.Chance(40)) ChooseCertificates(form);
    if (dice_.Chance(40)) ChooseCsProfile(form);
    if (isEmpty || dice_.Chance(30)) ChangeMasks(form);
    if (form.values.recipients.empty() && dice_.Chance(90)) ChooseCertificates(form);
}

void Walk::ChooseOperation(EditorForm& form) {
    const size_t index = dice_.Below(std::size(OperationNames));
    const std::wstring before = form.operation;
    user_.Choose(ruleid::Operation, static_cast<int>(index));
    form.ChangeOperation(std::wstring(OperationNames[index].code));
    if (form.operation == before) return;
    PutOwnValues(form);
    PutCommonValues(form);
}

void Walk::PutOwnValues(EditorForm& form) {
    for (const std::wstring& name : form.OwnTexts()) {
        std::wstring& value = form.values.text[name];
        if (name == L"ResignProfile") {
            const size_t count = form.csProfiles.size();
            const size_t index = dice_.Below(count + 1);
            value = count == 0 ? L"" : form.csProfiles[index % count];
            if (count > 0) user_.Choose(ControlOf(name), static_cast<int>(index % count));
            continue;
        }
        const bool isFolder = name == L"Path Out 2";
        value = isFolder ? RandomFolder(dice_) : dice_.Pick(Texts{L"", L"doc", L"%Y", L"C:\\run.exe", L"\x0436"});
        user_.Type(ControlOf(name), value);
    }
    for (const std::wstring& name : form.OwnNumbers()) {
        int32_t& value = form.values.number[name];
        const bool isList = IsOneOf(form.operation, L"PACK EXEC") == false;
        const bool startsAtOne = name == L"ZipFile" && !form.OffersNoArchive();
        const size_t choices = name == L"ZipFile" && form.OffersNoArchive() ? 3 : 2;
        const auto chosen = static_cast<int32_t>(dice_.Below(isList ? choices : 1000));
        value = startsAtOne ? chosen + 1 : chosen;
        isList ? user_.Choose(ControlOf(name), chosen) : user_.Paste(ControlOf(name), std::to_wstring(chosen));
    }
}

void Walk::PutCommonValues(EditorForm& form) {
    const auto put = [&](int control, const wchar_t* name, const std::wstring& text) {
        user_.Type(control, text);
        form.values.text[name] = text;
    };
    put(ruleid::PathIn, L"Path In", RandomFolder(dice_));
    if (!form.Is(L"DELE")) put(ruleid::PathOut, L"Path Out", RandomFolder(dice_));
    put(ruleid::PathError, L"Path Error", RandomFolder(dice_));
    put(ruleid::Description, L"Descryption",
        dice_.Pick(Texts{L"", L"new report", L"Mail", L"\x0436", L"\x00E4nderung", L"100 %"}));
    if (!dice_.Chance(5)) return;
    user_.Paste(ruleid::Description, std::wstring(600, L'x'));
    form.values.text[L"Descryption"] = std::wstring(519, L'x');
}

void Walk::ChooseCsProfile(EditorForm& form) {
    const size_t count = form.csProfiles.size();
    if (!form.HasStoreProfile() || count == 0) return;
    const auto index = static_cast<int>(dice_.Below(count));
    const bool isNew = index != rememberedStore_;
    bool refused = false;
    const auto giveUp = [&](const wchar_t* text, auto& list) {
        if (!isNew || refused || list.empty()) return;
        refused = dice_.Chance(40);
        user_.ExpectBox(text, boxes::Question, refused ? ui::IdNo : ui::IdYes);
        if (!refused) list.clear();
    };
    giveUp(L"Recipients field must be clean to change CS profile.\r\nDelete all recipients from rule?",
           form.values.recipients);
    giveUp(L"Signers field must be clean to change CS profile.\r\nDelete all signer lists from rule?",
           form.values.signerLists);
    user_.Choose(ruleid::CsProfile, index);
    form.store = refused ? rememberedStore_ : index;
    if (!refused && isNew) rememberedStore_ = index;
    if (form.store >= static_cast<int>(count)) form.store = -1;
}

void Walk::ChangeMasks(EditorForm& form) {
    Texts& masks = form.values.masks;
    const bool isNew = masks.empty() || dice_.Chance(50);
    const size_t row = masks.empty() ? 0 : dice_.Below(masks.size());
    if (!masks.empty()) user_.ClickRow(ruleid::Masks, row);
    if (!isNew && dice_.Chance(40)) {
        user_.ExpectBox(L"Delete 1 mask(s)?", boxes::Question, ui::IdYes);
        user_.Click(ruleid::DeleteMask);
        masks.erase(masks.begin() + static_cast<std::ptrdiff_t>(row));
        return;
    }
    const std::wstring mask = dice_.Pick(Texts{L"*.doc", L"*.p7s", L" ", L"*.\x0436", L"a;b", L""});
    user_.Expect<AddMask>([&](AddMask&) {
        EXPECT_EQ(user_.Get<ui::EditableCombo>(ruleid::MaskCombo).Items(), model_.SuggestedMasks());
        EXPECT_EQ(user_.Text(ruleid::MaskCombo), isNew ? L"" : masks[row]);
        user_.Type(ruleid::MaskCombo, mask);
        user_.Click(mask.empty() ? ui::IdCancel : ui::IdOk);
    });
    user_.Click(isNew ? ruleid::AddMask : ruleid::EditMask);
    if (mask.empty()) return;
    if (isNew) masks.emplace_back();
    masks[isNew ? masks.size() - 1 : row] = mask;
}

void Walk::ChooseCertificates(EditorForm& form) {
    if (!form.HasRecipients() && !form.HasSigners()) return;
    certificates_.recipients.reset();
    certificates_.signerLists.reset();
    if (dice_.Chance(85)) {
        certificates_.recipients = PreparedCertificates::Recipients(dice_.Below(3));
        certificates_.signerLists = PreparedCertificates::SignerLists(dice_.Below(3));
    }
    user_.Click(ruleid::ActionButton);
    if (form.HasRecipients() && certificates_.recipients) form.values.recipients = *certificates_.recipients;
    if (!form.HasSigners() || !certificates_.signerLists) return;
    form.values.signerLists.clear();
    for (const config::SignerListEntry& list : *certificates_.signerLists)
        form.values.signerLists.emplace_back(list.Name, list.Signers);
}

std::optional<Rule> Walk::LeaveEditor(const EditorForm& form) {
    if (dice_.Chance(12)) {
        user_.Press(Key::Escape);
        return std::nullopt;
    }
    const auto refusal = form.FirstRefusal(existingFolders);
    if (!refusal) {
        user_.Click(ui::IdOk);
        return form.Finished();
    }
    using Telling = EditorForm::Telling;
    if (refusal->telling == Telling::MessageBox)
        user_.ExpectBox(refusal->text, ui::box::Ok | ui::box::ExclamationIcon, ui::IdOk);
    if (refusal->telling == Telling::Report)
        user_.ExpectBoxBeginning(refusal->text, ui::box::Ok | ui::box::ErrorIcon, ui::IdOk);
    if (refusal->telling == Telling::ErrorBox)
        user_.Expect<errors::ErrBox>([&](errors::ErrBox&) {
            EXPECT_EQ(user_.Text(boxid::ErrorText), refusal->text);
            user_.Click(ui::IdOk);
        });
    user_.Click(ui::IdOk);
    user_.Click(ui::IdCancel);
    return std::nullopt;
}

}  // namespace tests::model
