#include "editors/RuleChecks.h"

#include <array>

#include "platform/Paths.h"

namespace editors {
namespace {

using enum Refusal::Shown;
using Found = std::optional<Refusal>;

Found RequirePath(const std::wstring& path, FormField field, const wchar_t* text, ui::Icon icon) {
    if (IsSet(path)) return std::nullopt;
    return Refusal{.field = field, .shown = ErrorBox, .text = text, .icon = icon};
}

Found RequireFolder(const std::wstring& path, FormField field, const wchar_t* text, platform::Files& files) {
    const platform::Win32Code code =
        platform::NamesADriveOrServer(path) ? files.CheckPathExists(path) : platform::code::PathNotFound;
    if (code == platform::code::Success) return std::nullopt;
    // Kept: the system's "file exists" is no reason that could be reported, and yet no folder.
    if (code == platform::code::FileExists) return Refusal{.field = field, .shown = Silence};
    return Refusal{.field = field, .shown = Report, .text = text, .code = code, .path = path};
}

Found CheckOperation(const RuleForm& form, platform::Files&) {
    if (!form.Operation.empty()) return std::nullopt;
    return Refusal{.field = FormField::Operation, .text = L"No operation selected."};
}

Found CheckInputIsSet(const RuleForm& form, platform::Files&) {
    return RequirePath(form.PathIn, FormField::PathIn, L"No Input folder selected.", ui::Icon::FolderIn);
}

Found CheckOutputIsSet(const RuleForm& form, platform::Files&) {
    if (!OperationOf(form).hasOutputFolder) return std::nullopt;
    return RequirePath(form.PathOut, FormField::PathOut, L"No Output folder selected.", ui::Icon::FolderOut);
}

Found CheckErrorIsSet(const RuleForm& form, platform::Files&) {
    return RequirePath(form.PathError, FormField::PathError, L"No Error folder selected.", ui::Icon::FolderError);
}

Found CheckInput(const RuleForm& form, platform::Files& files) {
    return RequireFolder(form.PathIn, FormField::PathIn, L"Bad Input folder.", files);
}

Found CheckOutput(const RuleForm& form, platform::Files& files) {
    if (!OperationOf(form).hasOutputFolder) return std::nullopt;
    return RequireFolder(form.PathOut, FormField::PathOut, L"Bad Output folder.", files);
}

Found CheckError(const RuleForm& form, platform::Files& files) {
    return RequireFolder(form.PathError, FormField::PathError, L"Bad Error folder.", files);
}

Found CheckMasks(const RuleForm& form, platform::Files&) {
    if (!form.Masks.empty()) return std::nullopt;
    return Refusal{.field = FormField::Masks, .text = L"No Mask selected."};
}

Found CheckRecipients(const RuleForm& form, platform::Files&) {
    if (OperationOf(form).holds != config::Holds::Recipients || !form.Recipients.empty()) return std::nullopt;
    return Refusal{.field = FormField::ActionButton,
                   .shown = ErrorBox,
                   .text = L"No certificate is selected for operation.",
                   .icon = ui::Icon::Recipients};
}

Found CheckSecondFolder(const RuleForm& form, platform::Files& files) {
    if (OperationOf(form).holds != config::Holds::SecondFolder || !IsSet(form.ActionPath)) return std::nullopt;
    return RequireFolder(form.ActionPath, FormField::ActionPath, L"Bad Second Output folder.", files);
}

Found CheckExecutable(const RuleForm& form, platform::Files&) {
    if (OperationOf(form).holds != config::Holds::Executable) return std::nullopt;
    return RequirePath(form.ActionPath, FormField::ActionPath, L"Executable file is not set.", ui::Icon::Executable);
}

constexpr std::array inOrder{CheckOperation,  CheckInputIsSet,   CheckOutputIsSet, CheckErrorIsSet,
                             CheckInput,      CheckOutput,       CheckError,       CheckMasks,
                             CheckRecipients, CheckSecondFolder, CheckExecutable};

}  // namespace

std::optional<Refusal> Validate(const RuleForm& form, platform::Files& files) {
    for (const auto check : inOrder)
        if (auto refusal = check(form, files)) return refusal;
    return std::nullopt;
}

}  // namespace editors
