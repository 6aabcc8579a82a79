#include "editors/OperationShape.h"

#include <algorithm>
#include <stdexcept>

namespace editors {
namespace {

using config::Rule;
using enum Option;

constexpr std::array<Option, RowCount> archiveIfAny{None, ArchiveIfAny};
constexpr std::array<Option, RowCount> archiveKind{None, ArchiveKind};
constexpr std::array<Option, RowCount> resignOptions{InputFormat, OutputFormat, NewSignatureProfile};
constexpr std::array<Option, RowCount> moveOptions{DeleteExtension, AddExtension, AccountingFormat,
                                                   AccountingCopyFormat};
constexpr std::array<Option, RowCount> packOptions{FileCount, ArchiveSize, ArchiveTimeout, ArchiveNames};
constexpr std::array<Option, RowCount> execOptions{ExecutionTimeout};

constexpr std::array<OperationShape, 24> shapes{{
    {.code = L"ENCR", .action = Action::Recipients, .options = archiveIfAny},
    {.code = L"DECR", .options = archiveIfAny},
    {.code = L"HASH"},
    {.code = L"B64E", .storeProfile = false},
    {.code = L"B64D", .storeProfile = false},
    {.code = L"SIGN"},
    {.code = L"CHCK", .action = Action::SignerLists},
    {.code = L"CHKX", .action = Action::SignerLists},
    {.code = L"MOVE", .action = Action::SecondFolder, .storeProfile = false, .options = moveOptions},
    {.code = L"DELE", .storeProfile = false, .outputFolder = false},
    {.code = L"LENC", .action = Action::Recipients, .options = archiveIfAny},
    {.code = L"LDEC", .options = archiveIfAny},
    {.code = L"CDSG"},
    {.code = L"DSIG"},
    {.code = L"DCHK", .action = Action::SignerLists},
    {.code = L"DELS"},
    {.code = L"RESG", .action = Action::SignerLists, .options = resignOptions},
    {.code = L"SGEN", .action = Action::Recipients, .options = archiveIfAny},
    {.code = L"DCCX", .action = Action::SignerLists, .options = archiveIfAny},
    {.code = L"ARCH", .storeProfile = false, .options = archiveKind},
    {.code = L"UNAR", .storeProfile = false, .options = archiveKind},
    {.code = L"PACK", .storeProfile = false, .options = packOptions},
    {.code = L"UNPK", .storeProfile = false},
    {.code = L"EXEC", .action = Action::Executable, .storeProfile = false, .options = execOptions},
}};

constexpr std::array<OptionField, 15> fields{{
    {None, L"", Input::None},
    {InputFormat, L"Input signature format:", Input::List},
    {OutputFormat, L"Output signature format:", Input::List},
    {NewSignatureProfile, L"New signature profile:", Input::List},
    {ArchiveIfAny, L"Use archivation:", Input::List},
    {ArchiveKind, L"Use archivation:", Input::List},
    {DeleteExtension, L"Delete extension:", Input::Text, &Rule::DelExt},
    {AddExtension, L"Add extension:", Input::Text, &Rule::AddExt},
    {AccountingFormat, L"Accounting format:", Input::Text, &Rule::Folders},
    {AccountingCopyFormat, L"Accounting copy format:", Input::Text, &Rule::Copyfolders},
    {FileCount, L"File count:", Input::Number, nullptr, &Rule::ArchCount},
    {ArchiveSize, L"Archive size (KB.):", Input::Number, nullptr, &Rule::ArchSize},
    {ArchiveTimeout, L"Archivation timeout (min.):", Input::Number, nullptr, &Rule::ArchTimeout},
    {ArchiveNames, L"Archives name format:", Input::Text, &Rule::ArchName},
    {ExecutionTimeout, L"Execution timeout (min.):", Input::Number, nullptr, &Rule::ExecTimeout},
}};

constexpr std::array<ActionLook, 5> looks{{
    {.action = Action::None,
     .icon = ui::Icon::Recipients,
     .tooltip = L"Add recipients",
     .fieldName = L"Recipients"},
    {.action = Action::Recipients,
     .icon = ui::Icon::Recipients,
     .tooltip = L"Add recipients",
     .fieldName = L"Recipients",
     .isEnabled = true},
    {.action = Action::SignerLists,
     .icon = ui::Icon::Recipients,
     .tooltip = L"Add signers",
     .fieldName = L"Signer lists",
     .isEnabled = true},
    {.action = Action::SecondFolder,
     .icon = ui::Icon::Folder,
     .tooltip = L"Second Output folder ",
     .fieldName = L"Second Output folder",
     .isEnabled = true,
     .takesPath = true},
    {.action = Action::Executable,
     .icon = ui::Icon::Executable,
     .tooltip = L"Executable file:",
     .fieldName = L"Executable file",
     .isEnabled = true,
     .takesPath = true},
}};

template <class Table, class Matches>
const auto& Entry(const Table& table, Matches matches) {
    const auto found = std::find_if(table.begin(), table.end(), matches);
    if (found == table.end()) throw std::out_of_range("editors: no such entry in a table of the rule editor");
    return *found;
}

}  // namespace

const OperationShape& ShapeOf(std::wstring_view code) {
    static constexpr OperationShape nothingSelected{};
    if (code.empty()) return nothingSelected;
    return Entry(shapes, [code](const OperationShape& shape) { return shape.code == code; });
}

const OptionField& FieldOf(Option option) {
    return Entry(fields, [option](const OptionField& field) { return field.option == option; });
}

const ActionLook& LookOf(Action action) {
    return Entry(looks, [action](const ActionLook& look) { return look.action == action; });
}

}  // namespace editors
