#include "errors/ErrBox.h"

namespace errors {

ErrBox::ErrBox(ui::Screen& screen, ui::Dialog* owner, std::wstring text, ui::Icon icon)
    : Dialog(screen, owner, {.size = {220, 85}}, L"Error"),
      icon_(*this, 1150, {7, 10, 21, 20}, icon),
      text_(*this, 1151, {36, 10, 177, 48}, std::move(text)) {}

}  // namespace errors
