#include "errors/ErrBox.h"

namespace errors {

ErrBox::ErrBox(ui::Screen& screen, ui::Dialog* owner, std::wstring text, ui::Icon icon)
    : Dialog(screen, owner, {.size = {220, 62}, .guidePage = L"messages"}, L"Error"),
      icon_(*this, 1150, {7, 8, 22, 21}, icon),
      text_(*this, 1151, {36, 10, 177, 24}, std::move(text)) {}

}  // namespace errors
