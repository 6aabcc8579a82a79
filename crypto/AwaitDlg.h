// Shown while the library opens a context, which blocks the program for a while.
#pragma once

#include "errors/ProgramTitle.h"
#include "ui/Controls.h"
#include "ui/Dialog.h"

namespace crypto {

class AwaitDlg : public ui::Dialog {
  public:
    AwaitDlg(ui::Screen& screen, ui::Dialog& parent)
        : Dialog(screen, &parent, {.size = {190, 34}, .systemMenu = false}, errors::ProgramTitle) {}

  private:
    void OnInitDialog() override;

    ui::Label text_{*this,
                    1150,
                    {7, 8, 176, 18},
                    L"Please, wait, cryptocontext initialization can take up to 30 seconds."};
};

}  // namespace crypto
