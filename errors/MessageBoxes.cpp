#include "errors/MessageBoxes.h"

#include "platform/Machine.h"

namespace errors {
namespace {

ui::Icon IconOf(WarningBox::Kind kind) {
    switch (kind) {
        case WarningBox::Kind::Error:
            return ui::Icon::Error;
        case WarningBox::Kind::Information:
            return ui::Icon::Information;
        case WarningBox::Kind::Warning:
            break;
    }
    return ui::Icon::Warning;
}

}  // namespace

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

void MemoryBox::CommandEnded(const ui::Dialog& dialog) const {
    screen_.ShowMessageBox(&dialog, commandEnded_, caption_, ui::box::Ok | ui::box::ErrorIcon);
}

void MemoryBox::ProgramEnds() const {
    screen_.ShowMessageBox(nullptr, programEnds_, caption_, ui::box::Ok | ui::box::ErrorIcon);
}

ErrBox::ErrBox(ui::Screen& screen, ui::Dialog* owner, std::wstring text, ui::Icon icon)
    : Dialog(screen, owner, {.size = {220, 62}, .guidePage = L"messages"}, L"Error"),
      icon_(*this, 1150, {7, 8, 22, 21}, icon),
      text_(*this, 1151, {36, 10, 177, 24}, std::move(text)) {}

WarningBox::WarningBox(ui::Screen& screen, ui::Dialog* owner, Kind kind, const std::wstring& text,
                       const std::wstring& title)
    : Dialog(screen, owner, {.size = {320, 185}, .guidePage = L"messages", .resizable = true},
             title.empty() ? L"Warning:" : title),
      kind_(kind) {
    text_.SetText(text);
    text_.SetName(Caption());
    continue_.Enable(false);
    continue_.Show(false);
}

void WarningBox::OnInitDialog() {
    SetIcon(IconOf(kind_));
    close_.SetFocus();  // Enter and Space close the box; in the text they would do nothing
}

ui::Size WarningBox::MinimumTrackSize() const {
    const platform::ScreenMetrics& metrics = Screen().Metrics();
    const ui::Rect& button = close_.Bounds();
    return {2 * (metrics.VerticalScrollBarWidth(Dpi()) + 3 * button.width),
            2 * (metrics.VerticalScrollArrowHeight(Dpi()) + 5 * button.height)};
}

}  // namespace errors
