#include "ui/memory/ShownState.h"

#include <array>
#include <optional>
#include <utility>

#include "ui/Choices.h"
#include "ui/Controls.h"
#include "ui/ListView.h"

namespace ui::memory {
namespace {

constexpr std::array ofControls{std::pair{Aspect::Text, "text"},         std::pair{Aspect::Name, "name"},
                                std::pair{Aspect::Enabled, "enabled"},   std::pair{Aspect::Visible, "visible"},
                                std::pair{Aspect::Tooltip, "tooltip"},   std::pair{Aspect::Icon, "icon"},
                                std::pair{Aspect::ReadOnly, "readonly"}, std::pair{Aspect::Cue, "cue"},
                                std::pair{Aspect::Items, "items"},       std::pair{Aspect::Columns, "columns"},
                                std::pair{Aspect::RowChecks, "checks"}};
constexpr std::array ofDialogs{std::pair{DialogAspect::Caption, "caption"}, std::pair{DialogAspect::Icon, "icon"},
                               std::pair{DialogAspect::MenuBar, "menu bar"},
                               std::pair{DialogAspect::SystemMenu, "system menu"}};

std::wstring InWords(bool yes) {
    return yes ? L"yes" : L"no";
}

std::wstring InWords(Icon icon) {
    return std::to_wstring(static_cast<int>(icon));
}

std::wstring InWords(const std::vector<MenuItem>& items) {
    std::wstring words;
    for (const MenuItem& item : items)
        words += std::to_wstring(item.command) + L' ' + item.text + L' ' + InWords(item.enabled) + L'\n';
    return words;
}

std::wstring InWords(const std::vector<Column>& columns) {
    std::wstring words;
    for (const Column& column : columns)
        words += column.header + L' ' + std::to_wstring(column.width) + L' ' +
                 std::to_wstring(static_cast<int>(column.arrow)) + L'\n';
    return words;
}

std::wstring ChecksIn(const ListView& list) {
    std::wstring checks;
    for (size_t row = 0; row < list.RowCount(); ++row) checks += list.IsChecked(row) ? L'x' : L'-';
    return checks;
}

std::optional<std::wstring> TextIn(const Control& control) {
    const bool isTheUsers =
        dynamic_cast<const Edit*>(&control) != nullptr || dynamic_cast<const ChoiceControl*>(&control) != nullptr;
    return isTheUsers ? std::nullopt : std::optional(control.Text());
}

std::optional<std::wstring> IconIn(const Control& control) {
    if (const auto* const button = dynamic_cast<const IconButton*>(&control)) return InWords(button->Icon());
    if (const auto* const picture = dynamic_cast<const Picture*>(&control)) return InWords(picture->Icon());
    return std::nullopt;
}

std::optional<std::wstring> ItemsIn(const Control& control) {
    const auto* const choice = dynamic_cast<const ChoiceControl*>(&control);
    if (choice == nullptr) return std::nullopt;
    std::wstring words;
    for (const std::wstring& item : choice->Items()) words += item + L'\n';
    return words;
}

// Nothing where the control has no such part, or the user changes it as well.
std::optional<std::wstring> PartOf(const Control& control, Aspect aspect) {
    const auto* const edit = dynamic_cast<const Edit*>(&control);
    const auto* const list = dynamic_cast<const ListView*>(&control);
    switch (aspect) {
        case Aspect::Text:
            return TextIn(control);
        case Aspect::Name:
            return control.Name();
        case Aspect::Enabled:
            return InWords(control.IsEnabled());
        case Aspect::Visible:
            return InWords(control.IsVisible());
        case Aspect::Tooltip:
            return control.Tooltip();
        case Aspect::Icon:
            return IconIn(control);
        case Aspect::ReadOnly:
            return edit == nullptr ? std::nullopt : std::optional(InWords(edit->IsReadOnly()));
        case Aspect::Cue:
            return edit == nullptr ? std::nullopt : std::optional(edit->Cue());
        case Aspect::Items:
            return ItemsIn(control);
        case Aspect::Columns:
            return list == nullptr ? std::nullopt : std::optional(InWords(list->Columns()));
        case Aspect::RowChecks:
            return list == nullptr ? std::nullopt : std::optional(ChecksIn(*list));
        default:
            return std::nullopt;
    }
}

std::wstring PartOf(const Dialog& dialog, DialogAspect aspect) {
    switch (aspect) {
        case DialogAspect::Caption:
            return dialog.Caption();
        case DialogAspect::Icon:
            return InWords(dialog.Icon());
        case DialogAspect::SystemMenu:
            return InWords(dialog.SystemMenuEntries());
        case DialogAspect::MenuBar:
            break;
        default:
            return {};
    }
    std::wstring words;
    for (const Menu& menu : dialog.MenuBar()) words += menu.title + L'\n' + InWords(menu.items);
    return words;
}

}  // namespace

void ShownState::ShowAll(const Dialog& dialog) {
    for (const auto& [aspect, name] : ofDialogs) Show(dialog, aspect);
    for (const Control* control : dialog.Controls())
        for (const auto& [aspect, name] : ofControls) Show(*control, aspect);
}

void ShownState::Show(const Control& control, Aspect aspect) {
    if (aspect == Aspect::Rows) return Show(control, Aspect::RowChecks);  // new rows come with their boxes
    if (auto part = PartOf(control, aspect)) controls_[{&control, aspect}] = std::move(*part);
}

void ShownState::Show(const Dialog& dialog, DialogAspect aspect) {
    dialog_[aspect] = PartOf(dialog, aspect);
}

std::vector<std::string> ShownState::Stale(const Dialog& dialog) const {
    std::vector<std::string> stale;
    for (const Control* control : dialog.Controls())
        for (const auto& [aspect, name] : ofControls) {
            const auto shown = controls_.find({control, aspect});
            if (shown != controls_.end() && PartOf(*control, aspect) != shown->second)
                stale.push_back(name + (" of control " + std::to_string(control->Id())));
        }
    for (const auto& [aspect, name] : ofDialogs) {
        const auto shown = dialog_.find(aspect);
        if (shown != dialog_.end() && PartOf(dialog, aspect) != shown->second)
            stale.push_back(name + std::string(" of the dialog"));
    }
    return stale;
}

}  // namespace ui::memory
