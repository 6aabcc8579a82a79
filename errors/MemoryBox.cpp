#include "errors/MemoryBox.h"

namespace errors {

void MemoryBox::CommandEnded(const ui::Dialog& dialog) const {
    screen_.ShowMessageBox(&dialog, commandEnded_, caption_, ui::box::Ok | ui::box::ErrorIcon);
}

void MemoryBox::ProgramEnds() const {
    screen_.ShowMessageBox(nullptr, programEnds_, caption_, ui::box::Ok | ui::box::ErrorIcon);
}

}  // namespace errors
