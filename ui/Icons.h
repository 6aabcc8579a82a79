// The pictures that the program carries; each is a resource of the same name in several sizes.
#pragma once

namespace ui {

enum class Icon {
    None,
    App,
    Save,
    LogSettings,
    RuleAdd,
    RuleCopy,
    RuleEdit,
    RuleDelete,
    RuleFirst,
    RuleUp,
    RuleDown,
    RuleLast,
    ProfileAdd,
    ProfileEdit,
    ProfileDelete,
    RulesExport,
    RulesImport,
    Warning,
    Error,
    Information,
    FolderIn,
    FolderOut,
    FolderError,
    Folder,
    Recipients,
    Signers,
    Executable,
    MaskAdd,
    MaskEdit,
    MaskDelete,
    ItemAdd,
    ItemDelete,
    MoveDown,
    MoveUp,
    SortDescending,
    SortAscending,
};

}  // namespace ui
