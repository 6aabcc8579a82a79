// This machine, as the program is given it.
#pragma once

#include "platform/Machine.h"
#include "platform/win32/Win32CodePage.h"
#include "platform/win32/Win32CryptoLibrary.h"
#include "platform/win32/Win32Files.h"
#include "platform/win32/Win32InstanceLock.h"
#include "platform/win32/Win32Parts.h"
#include "platform/win32/Win32Registry.h"
#include "platform/win32/Win32SystemMessages.h"

namespace platform::win32 {

// Owns the parts to which Machine refers.
struct Win32Machine {
    Win32Machine() = default;
    Win32Machine(const Win32Machine&) = delete;
    Win32Machine& operator=(const Win32Machine&) = delete;
    ~Win32Machine() = default;

    Win32Registry Registry;
    Win32Files Files;
    Win32CodePage CodePage;
    Win32SystemMessages SystemMessages;
    Win32Clock Clock;
    Win32InstanceLock InstanceLock;
    Win32ScreenMetrics ScreenMetrics;
    Win32Memory Memory;
    Win32CryptoLibrary CryptoLibrary;

    platform::Machine Machine{Registry,     Files,         CodePage, SystemMessages, Clock,
                              InstanceLock, ScreenMetrics, Memory,   CryptoLibrary};
};

}  // namespace platform::win32
