// A dialog's declarations in the form in which the system's dialog manager takes them.
#pragma once

#include <windows.h>

#include <cstdint>
#include <string_view>
#include <vector>

#include "ui/Dialog.h"
#include "ui/win32/WindowKinds.h"

namespace ui::win32 {

// The number of the invisible text right before a control that needs one; controls have lower numbers.
inline int AccessibleLabelId(const Control& control) {
    constexpr int BeyondControls = 0x4000;
    return BeyondControls + control.Id();
}

inline constexpr int DialogFontPoints = 8;

class DialogTemplate {
  public:
    explicit DialogTemplate(const Dialog& dialog);

    const DLGTEMPLATE* Data() const { return reinterpret_cast<const DLGTEMPLATE*>(words_.data()); }

  private:
    void AddHeader(const Dialog& dialog, int items);
    void AddAccessibleLabel(const Control& control);
    void AddControl(Control& control);
    void AddItem(const WindowKind& kind, DWORD state, const Place& place, int id, std::wstring_view text);
    void AddWord(int value) { words_.push_back(static_cast<uint16_t>(value)); }
    void AddPlace(const Place& place);
    void AddLong(uint32_t value);
    void AddText(std::wstring_view text);
    void AlignToLong();

    std::vector<uint16_t> words_;
};

}  // namespace ui::win32
