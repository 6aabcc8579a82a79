// The program from its start to its end: one running copy, the main dialog, and what is told when all else
// fails.
#pragma once

#include "platform/Machine.h"
#include "ui/Screen.h"

namespace app {

class CBrisgateApp {
  public:
    CBrisgateApp(const platform::Machine& machine, ui::Screen& screen) : machine_(machine), screen_(screen) {}

    // Returns when the program is to end. No exception leaves it: what arrives here is shown in one error
    // box.
    void InitInstance();

  private:
    bool TakeInstanceLock();
    void RunMainDialog();

    const platform::Machine& machine_;
    ui::Screen& screen_;
};

}  // namespace app
