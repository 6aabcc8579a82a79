#include "errors/WarningBox.h"

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
