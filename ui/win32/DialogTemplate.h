// A dialog's declarations in the form in which the system's dialog manager takes them.
#pragma once

#include <windows.h>

#include <cstdint>
#include <string_view>
#include <vector>

#include "ui/Dialog.h"

namespace ui::win32 {

class DialogTemplate {
  public:
    explicit DialogTemplate(const Dialog& dialog);

    const DLGTEMPLATE* Data() const { return reinterpret_cast<const DLGTEMPLATE*>(words_.data()); }

  private:
    void AddHeader(const Dialog& dialog);
    void AddControl(Control& control);
    void AddWord(int value) { words_.push_back(static_cast<uint16_t>(value)); }
    void AddLong(uint32_t value);
    void AddText(std::wstring_view text);
    void AlignToLong();

    std::vector<uint16_t> words_;
};

}  // namespace ui::win32
