#include "errors/MessageBoxes.h"

#include "errors/ProgramTitle.h"

namespace errors {

int PlainMessageBox(ui::Screen& screen, const ui::Dialog* owner, const std::wstring& text, uint32_t flags) {
    return screen.ShowMessageBox(owner, text, ProgramTitle, flags);
}

bool Confirm(ui::Screen& screen, const ui::Dialog* owner, const std::wstring& question) {
    constexpr uint32_t flags = ui::box::YesNo | ui::box::QuestionIcon | ui::box::SecondIsDefault;
    return PlainMessageBox(screen, owner, question, flags) == ui::IdYes;
}

bool Propose(ui::Screen& screen, const ui::Dialog* owner, const std::wstring& question) {
    return PlainMessageBox(screen, owner, question, ui::box::YesNo | ui::box::QuestionIcon) == ui::IdYes;
}

bool ConfirmRisk(ui::Screen& screen, const ui::Dialog* owner, const std::wstring& question) {
    constexpr uint32_t flags = ui::box::YesNo | ui::box::ExclamationIcon | ui::box::SecondIsDefault;
    return PlainMessageBox(screen, owner, question, flags) == ui::IdYes;
}

void Warn(ui::Screen& screen, const ui::Dialog* owner, const std::wstring& text) {
    PlainMessageBox(screen, owner, text, ui::box::Ok | ui::box::ExclamationIcon);
}

}  // namespace errors
