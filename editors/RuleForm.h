// The rule editor's form as plain values: what the user has put in, without any control. Filled from a rule
// when the editor opens, changed by the user and by a change of operation, read out again on OK.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "config/Records.h"
#include "editors/OperationShape.h"

namespace editors {

struct RuleForm {
    std::wstring Operation;  // a code; empty: none selected
    int StoreProfile = 0;    // an index of the profile's store profiles, or -1
    std::wstring Descryption;
    std::wstring PathIn;
    std::wstring PathOut;
    std::wstring PathError;
    std::wstring ActionPath;  // second output folder or executable, where the action takes a path

    // For each row what its controls hold, shown or not.
    std::array<std::wstring, RowCount> Texts;
    std::array<int32_t, RowD> Numbers{};  // row D has no number and no list
    std::array<int, RowD> Choices{};      // selected indexes, or -1
    Option ListInRowB = Option::None;     // the list whose choice row B holds, shown or not; None: forgotten

    std::vector<std::wstring> Masks;
    std::vector<config::CertificateRef> Recipients;
    std::vector<config::SignerListEntry> SignerLists;

    bool operator==(const RuleForm&) const = default;
};

// Folders and other paths count as not set when they are empty or the text "0".
bool IsSet(const std::wstring& path);

// What the form holds when it opens on the rule. A rule without an operation is a new one: the form is empty,
// whatever else the rule holds. An unknown operation is shown as the first one.
RuleForm OpenedForm(const config::Rule& rule, const std::vector<std::wstring>& storeProfiles);

// The form's operation has just been changed from the previous one (which may be the same): drops what does
// not go over to it.
void TakeOverOperation(RuleForm& form, const std::wstring& previous);

// What the action field shows: the path, or how many recipients or signer lists there are.
std::wstring ActionText(const RuleForm& form);

// What the list of an option offers.
std::vector<std::wstring> ChoicesOf(Option option, const std::vector<std::wstring>& storeProfiles);

}  // namespace editors
