// A resizable box for long texts, such as an error stack or the details of a rule.
#pragma once

#include <string>

#include "ui/Controls.h"
#include "ui/Dialog.h"

namespace errors {

class WarningBox : public ui::Dialog {
  public:
    enum class Kind { Warning, Error, Information };  // decides the window icon

    // title: empty shows as "Warning:".
    WarningBox(ui::Screen& screen, ui::Dialog* owner, Kind kind, const std::wstring& text,
               const std::wstring& title = {});

    ui::Size MinimumTrackSize() const override;

  private:
    void OnInitDialog() override;

    const Kind kind_;
    ui::Edit text_{*this,
                   1160,
                   {7, 7, 306, 150, ui::GrowBoth},
                   {.readOnly = true, .multiLine = true, .scrollBars = true}};
    ui::Button continue_{*this, ui::IdOk, {209, 164, 50, 14, ui::MoveBoth}, L"Continue"};
    ui::Button close_{*this, ui::IdCancel, {263, 164, 50, 14, ui::MoveBoth}, L"OK"};
};

}  // namespace errors
