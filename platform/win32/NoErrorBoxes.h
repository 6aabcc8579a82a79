// Keeps the system from boxes of its own while one lives: that a medium is missing, or a library damaged.
#pragma once

#include <windows.h>

namespace platform::win32 {

class NoErrorBoxes {
  public:
    NoErrorBoxes() { SetThreadErrorMode(SEM_FAILCRITICALERRORS | SEM_NOOPENFILEERRORBOX, &former_); }
    ~NoErrorBoxes() { SetThreadErrorMode(former_, nullptr); }
    NoErrorBoxes(const NoErrorBoxes&) = delete;
    NoErrorBoxes& operator=(const NoErrorBoxes&) = delete;

  private:
    DWORD former_ = 0;
};

}  // namespace platform::win32
