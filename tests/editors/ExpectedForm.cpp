#include "tests/editors/ExpectedForm.h"

#include <set>

#include "ui/Icons.h"

namespace tests {
namespace {

using Codes = std::set<std::wstring>;

const Codes recipientOperations{L"ENCR", L"LENC", L"SGEN"};
const Codes signerOperations{L"CHCK", L"CHKX", L"DCHK", L"RESG", L"DCCX"};
const Codes archiveOrNot{L"ENCR", L"DECR", L"LENC", L"LDEC", L"SGEN", L"DCCX"};
const Codes archiveAlways{L"ARCH", L"UNAR"};
const Codes withoutStoreProfile{L"MOVE", L"DELE", L"B64E", L"B64D", L"ARCH", L"UNAR", L"PACK", L"UNPK", L"EXEC"};

constexpr wchar_t formats[] = L"Attached signature|Detached signature| ";
constexpr wchar_t hidden[] = L"hidden";

bool Holds(const Codes& codes, const std::wstring& code) {
    return codes.contains(code);
}

std::wstring Format(bool detached) {
    return std::wstring(formats) + (detached ? L"Detached signature" : L"Attached signature");
}

std::wstring WithIcon(const wchar_t* tooltip, ui::Icon icon) {
    return std::wstring(tooltip) + L" (icon " + std::to_wstring(static_cast<int>(icon)) + L")";
}

}  // namespace

bool ExpectedForm::HasRecipients() const {
    return Holds(recipientOperations, operation_);
}
bool ExpectedForm::HasSigners() const {
    return Holds(signerOperations, operation_);
}
bool ExpectedForm::HasArchive() const {
    return OffersNo() || Holds(archiveAlways, operation_);
}
bool ExpectedForm::OffersNo() const {
    return Holds(archiveOrNot, operation_);
}
bool ExpectedForm::HasStoreProfile() const {
    return !Holds(withoutStoreProfile, operation_);
}

void ExpectedForm::ChangeTo(const std::wstring& operation) {
    const std::wstring before = operation_;
    operation_ = operation;
    if (before == operation) return;

    if (!HasRecipients()) recipients = 0;
    if (!HasSigners() && !Is(L"EXEC")) signerLists = 0;
    if (Is(L"DELE") || before == L"DELE") pathOut.clear();
    StartOptions();
    CarryArchive(before);
}

// What moving, packing, executing and resigning ask for starts anew each time. The new signature profile is
// the exception: it stays what it was.
void ExpectedForm::StartOptions() {
    path = L"";
    if (Is(L"MOVE")) rowA = rowB = rowC = rowD = L"";
    if (Is(L"PACK")) {
        rowA = rowB = rowC = L"0";
        rowD = L"";
    }
    if (Is(L"EXEC")) rowA = L"0";
    if (Is(L"RESG")) inDetached = outDetached = false;
}

// An archive is remembered by its kind, however many operations without one lie between. Two steps forget it:
// from an operation with an archive straight to moving, and to resigning, which has the list for its formats.
void ExpectedForm::CarryArchive(const std::wstring& before) {
    const bool comesFromArchive = Holds(archiveOrNot, before) || Holds(archiveAlways, before);
    if (Is(L"RESG") || (Is(L"MOVE") && comesFromArchive)) archive.clear();
    if (OffersNo() && archive.empty()) archive = L"No";
    if (Holds(archiveAlways, operation_) && archive != L"GZIP archivation") archive = L"ZIP archivation";
}

std::wstring ExpectedForm::ActionButton() const {
    if (Is(L"MOVE")) return WithIcon(L"Second Output folder ", ui::Icon::Folder);
    if (Is(L"EXEC")) return WithIcon(L"Executable file:", ui::Icon::Executable);
    if (HasSigners()) return WithIcon(L"Add signers", ui::Icon::Recipients);
    return WithIcon(L"Add recipients", ui::Icon::Recipients) + (HasRecipients() ? L"" : L" (disabled)");
}

std::wstring ExpectedForm::ActionField() const {
    if (Is(L"MOVE") || Is(L"EXEC")) return path;
    const size_t count = HasRecipients() ? recipients : HasSigners() ? signerLists : 0;
    return std::to_wstring(count) + L" (for reading)";
}

ExpectedForm::Seen ExpectedForm::Shown() const {
    const std::wstring unlessDelete = Is(L"DELE") ? L" (disabled)" : L"";
    Seen seen{
        {1104, HasStoreProfile() ? L"CS profile: " : L""},
        {1051, HasStoreProfile() ? L"Office|Bank|Tax| " + csProfile : hidden},
        {1043, WithIcon(L"Output folder", ui::Icon::FolderOut) + unlessDelete},
        {1046, pathOut + unlessDelete},
        {1050, ActionButton()},
        {1049, ActionField()},
    };
    for (const int label : {1108, 1109, 1110, 1138}) seen[label] = L"";
    for (const int input : {1105, 1130, 1139, 1106, 1131, 1140, 1107, 1136, 1141, 1137}) seen[input] = hidden;
    ShowRows(seen);
    return seen;
}

void ExpectedForm::ShowRows(Seen& seen) const {
    const auto show = [&seen](int label, const wchar_t* text, int input, const std::wstring& content) {
        seen[label] = text;
        seen[input] = content;
    };
    if (HasArchive())
        show(1109, L"Use archivation:", 1106,
             (OffersNo() ? L"No|ZIP archivation|GZIP archivation| " : L"ZIP archivation|GZIP archivation| ") + archive);
    if (Is(L"RESG")) {
        show(1108, L"Input signature format:", 1105, Format(inDetached));
        show(1109, L"Output signature format:", 1106, Format(outDetached));
        show(1110, L"New signature profile:", 1107, L"Office|Bank|Tax| " + newProfile);
    }
    if (Is(L"MOVE")) {
        show(1108, L"Delete extension:", 1130, rowA);
        show(1109, L"Add extension:", 1131, rowB);
        show(1110, L"Accounting format:", 1136, rowC);
        show(1138, L"Accounting copy format:", 1137, rowD);
    }
    if (Is(L"PACK")) {
        show(1108, L"File count:", 1139, rowA);
        show(1109, L"Archive size (KB.):", 1140, rowB);
        show(1110, L"Archivation timeout (min.):", 1141, rowC);
        show(1138, L"Archives name format:", 1137, rowD);
    }
    if (Is(L"EXEC")) show(1108, L"Execution timeout (min.):", 1139, rowA);
}

}  // namespace tests
