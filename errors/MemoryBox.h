// Telling that memory has run out, which has to work when there is none left: all that is shown was made
// beforehand.
#pragma once

#include <string>

#include "errors/ProgramTitle.h"
#include "ui/Screen.h"

namespace errors {

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

}  // namespace errors
