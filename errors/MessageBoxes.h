// The boxes with which the program asks, hints, refuses and shows long texts.
#pragma once

#include <cstdint>
#include <string>

#include "ui/Controls.h"
#include "ui/Dialog.h"
#include "ui/Screen.h"

namespace errors {

// The program's title: the caption of its windows and message boxes and the name of its single-instance lock.
inline constexpr wchar_t ProgramTitle[] = L"ZEMA AC QLD Service - configuration";

// Shows the text under the program's title and returns the button pressed. owner: none, or the dialog it
// belongs to.
int PlainMessageBox(ui::Screen& screen, const ui::Dialog* owner, const std::wstring& text, uint32_t flags);

// A Yes/No question with No as the default; true for Yes.
bool Confirm(ui::Screen& screen, const ui::Dialog* owner, const std::wstring& question);

// The same with Yes as the default.
bool Propose(ui::Screen& screen, const ui::Dialog* owner, const std::wstring& question);

// The same as a warning: with the exclamation icon, and No as the default.
bool ConfirmRisk(ui::Screen& screen, const ui::Dialog* owner, const std::wstring& question);

// A hint or refusal with the exclamation icon.
void Warn(ui::Screen& screen, const ui::Dialog* owner, const std::wstring& text);

// Reports that memory has run out, which has to work when there is none left: all that is shown was made
// beforehand.
class MemoryBox {
  public:
    explicit MemoryBox(ui::Screen& screen) : screen_(screen) {}

    // The command ended where it was, and its dialog goes on.
    void CommandEnded(const ui::Dialog& dialog) const;
    void ProgramEnds() const;

  private:
    ui::Screen& screen_;
    const std::wstring caption_ = ProgramTitle;
    const std::wstring commandEnded_ = L"There is not enough memory. The command has not been completed.";
    const std::wstring programEnds_ = L"The program has to end.\r\nThere is not enough memory.";
};

// A small modal box titled "Error": an icon, a text and one button.
class ErrBox : public ui::Dialog {
  public:
    ErrBox(ui::Screen& screen, ui::Dialog* owner, std::wstring text, ui::Icon icon);

  private:
    ui::Picture icon_;
    ui::Label text_;
    ui::Button ok_{*this, ui::IdOk, {163, 41, 50, 14}, L"OK"};
};

// A resizable box for long texts, such as an error stack or the details of a rule.
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
    ui::Edit text_{
        *this, 1160, {7, 7, 306, 150, ui::GrowBoth}, {.readOnly = true, .multiLine = true, .scrollBars = true}};
    ui::Button continue_{*this, ui::IdOk, {209, 164, 50, 14, ui::MoveBoth}, L"Continue"};
    ui::Button close_{*this, ui::IdCancel, {263, 164, 50, 14, ui::MoveBoth}, L"OK"};
};

}  // namespace errors
