#include "tests/model/EditorForm.h"

#include <algorithm>

namespace tests::model {
namespace {

bool IsUnset(const std::wstring& path) {
    return path.empty() || path == L"0";
}

// The last of equal names; the first name when there is none.
int IndexOf(const std::wstring& name, const Texts& names) {
    for (size_t i = names.size(); i-- > 0;)
        if (names[i] == name) return static_cast<int>(i);
    return 0;
}

}  // namespace

EditorForm::EditorForm(const Rule& rule, const Texts& storeProfilesOfProfile) : csProfiles(storeProfilesOfProfile) {
    if (rule.Operation().empty()) return;
    operation = rule.Operation();
    store = IndexOf(rule.text.at(L"ZCSProfile"), csProfiles);
    values = rule;
    if (!HasRecipients()) values.recipients.clear();
    if (!HasSigners()) values.signerLists.clear();
    if (Is(L"DELE")) values.text[L"Path Out"] = L"";
    for (const wchar_t* path : {L"Path Out 2", L"ExecName"})
        if (values.text[path] == L"0") values.text[path] = L"";
    values.text[L"ResignProfile"] = StoreName(IndexOf(rule.text.at(L"ResignProfile"), csProfiles));
    for (const wchar_t* format : {L"In format det", L"Out format det"})
        values.number[format] = rule.number.at(format) == 1 ? 1 : 0;
}

Texts EditorForm::OwnTexts() const {
    if (Is(L"MOVE")) return {L"Path Out 2", L"DelExt", L"AddExt", L"Folders", L"Copyfolders"};
    if (Is(L"PACK")) return {L"ArchName"};
    if (Is(L"EXEC")) return {L"ExecName"};
    return Is(L"RESG") ? Texts{L"ResignProfile"} : Texts{};
}

Texts EditorForm::OwnNumbers() const {
    if (Is(L"PACK")) return {L"ArchCount", L"ArchSize", L"ArchTimeout"};
    if (Is(L"EXEC")) return {L"ExecTimeout"};
    if (Is(L"RESG")) return {L"In format det", L"Out format det"};
    return HasArchive() ? Texts{L"ZipFile"} : Texts{};
}

void EditorForm::ChangeOperation(const std::wstring& code) {
    if (code == operation) return;
    const bool hadNoOutput = Is(L"DELE");
    operation = code;
    if (hadNoOutput || Is(L"DELE")) values.text[L"Path Out"] = L"";
    if (!HasRecipients()) values.recipients.clear();
    if (!HasSigners()) values.signerLists.clear();
}

std::optional<EditorForm::Refusal> EditorForm::CheckFolder(const std::wstring& folder, const Texts& existingFolders) {
    if (std::find(existingFolders.begin(), existingFolders.end(), folder) != existingFolders.end()) return std::nullopt;
    return Refusal{Telling::Report, L"Opening file " + folder + L".\r\nError 0x"};
}

std::optional<EditorForm::Refusal> EditorForm::FirstRefusal(const Texts& existingFolders) const {
    const auto unset = [](const wchar_t* text) { return Refusal{Telling::ErrorBox, text}; };
    const bool output = !Is(L"DELE");
    if (IsUnset(values.text.at(L"Path In"))) return unset(L"No Input folder selected.");
    if (output && IsUnset(values.text.at(L"Path Out"))) return unset(L"No Output folder selected.");
    if (IsUnset(values.text.at(L"Path Error"))) return unset(L"No Error folder selected.");
    for (const wchar_t* path : {L"Path In", L"Path Out", L"Path Error"})
        if (output || path != std::wstring(L"Path Out"))
            if (auto refusal = CheckFolder(values.text.at(path), existingFolders)) return refusal;
    if (values.masks.empty()) return Refusal{Telling::MessageBox, L"No Mask selected."};
    if (HasRecipients() && values.recipients.empty()) return unset(L"No certificate is selected for operation.");
    const std::wstring& second = values.text.at(L"Path Out 2");
    if (Is(L"MOVE") && !IsUnset(second)) return CheckFolder(second, existingFolders);
    if (Is(L"EXEC") && IsUnset(values.text.at(L"ExecName"))) return unset(L"Executable file is not set.");
    return std::nullopt;
}

std::wstring EditorForm::StoreName(int index) const {
    const bool exists = index >= 0 && index < static_cast<int>(csProfiles.size());
    return exists ? csProfiles[static_cast<size_t>(index)] : L"";
}

Rule EditorForm::Finished() const {
    Rule rule;
    rule.text[L"Operation"] = operation;
    for (const wchar_t* name : {L"Path In", L"Path Out", L"Path Error", L"Descryption"})
        rule.text[name] = values.text.at(name);
    if (HasStoreProfile()) rule.text[L"ZCSProfile"] = StoreName(store);
    for (const std::wstring& name : OwnTexts()) rule.text[name] = values.text.at(name);
    for (const std::wstring& name : OwnNumbers()) rule.number[name] = values.number.at(name);
    rule.number[L"Is on"] = 1;
    rule.masks = values.masks;
    rule.recipients = values.recipients;
    rule.signerLists = values.signerLists;
    return rule;
}

}  // namespace tests::model
