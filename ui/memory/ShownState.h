// What a window in memory shows of those parts of a dialog that only the program changes, as far as the
// window was told of them: a part that changed without telling is stale, and would be on a real screen, too.
#pragma once

#include <map>
#include <string>
#include <utility>
#include <vector>

#include "ui/Dialog.h"
#include "ui/Window.h"

namespace ui::memory {

class ShownState {
  public:
    // The window has just been made: it shows everything.
    void ShowAll(const Dialog& dialog);
    void Show(const Control& control, Aspect aspect);
    void Show(const Dialog& dialog, DialogAspect aspect);

    // What the window shows otherwise than it is, in words; nothing before ShowAll.
    std::vector<std::string> Stale(const Dialog& dialog) const;

  private:
    std::map<std::pair<const Control*, Aspect>, std::wstring> controls_;
    std::map<DialogAspect, std::wstring> dialog_;
};

}  // namespace ui::memory
