// The program from its start to its end: one running copy, the main dialog, and what is shown when all else
// fails.
#pragma once

#include "errors/MessageBoxes.h"
#include "platform/Machine.h"
#include "ui/Screen.h"

namespace app {

class CBrisgateApp {
  public:
    CBrisgateApp(const platform::Machine& machine, ui::Screen& screen, platform::Guide& guide);
    ~CBrisgateApp();
    CBrisgateApp(const CBrisgateApp&) = delete;
    CBrisgateApp& operator=(const CBrisgateApp&) = delete;

    // Returns when the program is to end. No exception leaves it: what arrives here is shown in one error
    // box.
    void InitInstance();

  private:
    void Run();
    bool TakeInstanceLock();
    void RunMainDialog();

    const platform::Machine& machine_;
    ui::Screen& screen_;
    const errors::MemoryBox memoryBox_;
};

}  // namespace app
