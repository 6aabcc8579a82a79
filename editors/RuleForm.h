// The rule editor's form as plain values: what the user has put in, without any control. Filled from a rule
// when the editor opens, changed by the user and by a change of operation, read out again on OK.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "config/Operations.h"
#include "config/Records.h"
#include "ui/Icons.h"

namespace editors {

inline constexpr size_t RowA = 0, RowB = 1, RowC = 2, RowD = 3;
inline constexpr size_t RowCount = config::OptionRows;

struct RuleForm {
    std::wstring Operation;               // a code; empty: none selected
    std::optional<size_t> CsProfile = 0;  // an index of the profile's CS profiles
    std::wstring Descryption;
    std::wstring PathIn;
    std::wstring PathOut;
    std::wstring PathError;
    std::wstring ActionPath;  // second output folder or executable, where the operation has one

    // For each row what its controls hold, shown or not.
    std::array<std::wstring, RowCount> Texts;
    std::array<int32_t, RowD> Numbers{};  // row D has no number and no list
    std::array<std::optional<size_t>, RowD> Choices{0, 0, 0};
    const config::Option* ListInRowB = nullptr;  // whose choice row B holds, shown or not; null: forgotten

    std::vector<std::wstring> Masks;
    std::vector<config::CertificateRef> Recipients;
    std::vector<config::SignerListEntry> SignerLists;

    bool operator==(const RuleForm&) const = default;
};

// Folders and other paths count as not set when they are empty or the text "0".
bool IsSet(std::wstring_view path);

// What the form holds when it opens on the rule. A rule without an operation is a new one: the form is empty,
// whatever else the rule holds. An unknown operation is shown as the first one.
RuleForm FormFromRule(const config::Rule& rule, const std::vector<std::wstring>& csProfiles);

// The rule that a form without fault describes: switched on, and empty in every field that its operation does
// not use, whatever the form still holds.
config::Rule RuleFromForm(const RuleForm& form, const std::vector<std::wstring>& csProfiles);

// The form's operation has just been changed from the previous one (which may be the same): drops what does
// not go over to it.
void ChangeOperation(RuleForm& form, const std::wstring& previous);

// The operation that is selected; without one there is nothing to ask for. Throws std::out_of_range for a
// code that is not in the operation table.
const config::Operation& OperationOf(const RuleForm& form);

// What the action field shows: the path, or how many recipients or signer lists there are.
std::wstring ActionText(const RuleForm& form);

// What the list of an option offers.
std::vector<std::wstring> ChoicesOf(const config::Option& option, const std::vector<std::wstring>& csProfiles);

// The look of the action button, which gets what the operation holds, and of its field.
struct ActionLook {
    config::Holds holds = config::Holds::Nothing;
    ui::Icon icon = ui::Icon::Recipients;
    std::wstring_view tooltip = L"Add recipients";
    std::wstring_view fieldName = L"Recipients";
    bool takesPath = false;  // the field holds a path and can be typed in; else it shows a number
};

const ActionLook& LookOf(config::Holds holds);

}  // namespace editors
