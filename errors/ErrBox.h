// A small modal box titled "Error": an icon, a text and one button.
#pragma once

#include <string>

#include "ui/Controls.h"
#include "ui/Dialog.h"

namespace errors {

class ErrBox : public ui::Dialog {
  public:
    ErrBox(ui::Screen& screen, ui::Dialog* owner, std::wstring text, ui::Icon icon);

  private:
    ui::Picture icon_;
    ui::Label text_;
    ui::Button ok_{*this, ui::IdOk, {163, 41, 50, 14}, L"OK"};
};

}  // namespace errors
