// What the rule editor looks like for each operation: what its action button does and which options stand in
// the rows A to D. Everything that the form shows, enables and labels follows from here.
#pragma once

#include <array>
#include <cstddef>
#include <string_view>

#include "config/Records.h"
#include "ui/Icons.h"

namespace editors {

enum class Action { None, Recipients, SignerLists, SecondFolder, Executable };

enum class Option {
    None,
    InputFormat,
    OutputFormat,
    NewSignatureProfile,
    ArchiveIfAny,  // "No" or a kind of archive
    ArchiveKind,   // always an archive
    DeleteExtension,
    AddExtension,
    AccountingFormat,
    AccountingCopyFormat,
    FileCount,
    ArchiveSize,
    ArchiveTimeout,
    ArchiveNames,
    ExecutionTimeout,
};

inline constexpr size_t RowA = 0, RowB = 1, RowC = 2, RowD = 3;
inline constexpr size_t RowCount = 4;

struct OperationShape {
    std::wstring_view code;
    Action action = Action::None;
    bool storeProfile = true;                // asks for a store profile
    bool outputFolder = true;                // has results that need a place
    std::array<Option, RowCount> options{};  // in the rows A to D
};

// An empty code: no operation is selected, and there is nothing to ask for. Throws std::out_of_range for a
// code that is not in the operation table.
const OperationShape& ShapeOf(std::wstring_view code);

// The control with which an option is set; those of one row share one place.
enum class Input { None, List, Text, Number };

struct OptionField {
    Option option = Option::None;
    std::wstring_view label;
    Input input = Input::None;
    // The rule's field behind a text or a number. Lists have their own way into the rule.
    std::wstring config::Rule::*text = nullptr;
    int32_t config::Rule::*number = nullptr;
};

const OptionField& FieldOf(Option option);

// The look of the action button and its field.
struct ActionLook {
    Action action = Action::None;
    ui::Icon icon = ui::Icon::None;
    std::wstring_view tooltip;
    std::wstring_view fieldName;
    bool isEnabled = false;
    bool takesPath = false;  // the field holds a path and can be typed in; else it shows a number
};

const ActionLook& LookOf(Action action);

}  // namespace editors
