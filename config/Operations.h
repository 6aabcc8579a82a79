// What a rule can do with a file: the operations, and the options that some of them have. The rule
// editor's form, what a finished rule keeps and how the rule list shows it follow from these rows.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string_view>

#include "config/Records.h"

namespace config {

// The control with which an option is set: a list of fixed choices, a list of the profile's CS profiles, a
// text or a number.
enum class Input { Choice, CsProfile, Text, Number };

// The choices begin with the first stored value; one below it stands for the first choice, too.
struct Option {
    std::wstring_view label;  // as the rule editor shows it
    Input input{};
    Rule::Text Rule::*text = nullptr;              // of a text and of a CS profile
    int32_t Rule::*number = nullptr;               // of a number and of a choice
    std::span<const std::wstring_view> choices{};  // of a choice
    int32_t firstStored = 0;                       // likewise

    bool IsList() const { return input == Input::Choice || input == Input::CsProfile; }
};

// The index of the choice that a rule's number stands for: the first where it stands for none.
size_t ChoiceOf(const Option& option, int32_t stored);
int32_t StoredChoice(const Option& option, size_t index);

inline constexpr std::array<std::wstring_view, 2> SignatureFormats{L"Attached signature", L"Detached signature"};
inline constexpr std::array<std::wstring_view, 3> ArchiveKinds{L"No", L"ZIP archivation", L"GZIP archivation"};

namespace option {
inline constexpr Option InputFormat{L"Input signature format:", Input::Choice, nullptr, &Rule::InFormatDet,
                                    SignatureFormats};
inline constexpr Option OutputFormat{L"Output signature format:", Input::Choice, nullptr, &Rule::OutFormatDet,
                                     SignatureFormats};
inline constexpr Option NewSignatureProfile{L"New signature profile:", Input::CsProfile, &Rule::ResignProfile};
inline constexpr Option ArchiveIfAny{L"Use archivation:", Input::Choice, nullptr, &Rule::ZipFile, ArchiveKinds};
inline constexpr Option ArchiveKind{
    L"Use archivation:", Input::Choice, nullptr, &Rule::ZipFile, std::span(ArchiveKinds).subspan(1), 1};
inline constexpr Option DeleteExtension{L"Delete extension:", Input::Text, &Rule::DelExt};
inline constexpr Option AddExtension{L"Add extension:", Input::Text, &Rule::AddExt};
inline constexpr Option AccountingFormat{L"Accounting format:", Input::Text, &Rule::Folders};
inline constexpr Option AccountingCopyFormat{L"Accounting copy format:", Input::Text, &Rule::Copyfolders};
inline constexpr Option FileCount{L"File count:", Input::Number, nullptr, &Rule::ArchCount};
inline constexpr Option ArchiveSize{L"Archive size (KB.):", Input::Number, nullptr, &Rule::ArchSize};
inline constexpr Option ArchiveTimeout{L"Archivation timeout (min.):", Input::Number, nullptr, &Rule::ArchTimeout};
inline constexpr Option ArchiveNames{L"Archives name format:", Input::Text, &Rule::ArchName};
inline constexpr Option ExecutionTimeout{L"Execution timeout (min.):", Input::Number, nullptr, &Rule::ExecTimeout};
}  // namespace option

// What a rule of the operation holds besides its folders, masks and options.
enum class Holds { Nothing, Recipients, SignerLists, SecondFolder, Executable };

inline constexpr size_t OptionRows = 4;

struct Operation {
    std::wstring_view code;  // as stored in a rule; compared exactly
    std::wstring_view displayName;
    Holds holds = Holds::Nothing;
    bool usesCsProfile = true;
    bool hasOutputFolder = true;
    std::array<const Option*, OptionRows> options{};  // of the rule editor; null: none in this row
};

// In the order in which the rule editor offers them.
std::span<const Operation> Operations();

// Null for an unknown code.
const Operation* FindOperation(std::wstring_view code);
// The index of the code in Operations; nothing for an unknown code.
std::optional<size_t> OperationIndex(std::wstring_view code);

}  // namespace config
