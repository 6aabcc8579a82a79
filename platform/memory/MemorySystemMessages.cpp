#include "platform/memory/MemorySystemMessages.h"

namespace platform::memory {

MemorySystemMessages::MemorySystemMessages()
    : system_{
          {2, L"The system cannot find the file specified.\r\n"},
          {3, L"The system cannot find the path specified.\r\n"},
          {5, L"Access is denied.\r\n"},
          {6, L"The handle is invalid.\r\n"},
          {8, L"Not enough memory resources are available to process this command.\r\n"},
          {13, L"The data is invalid.\r\n"},
          {32, L"The process cannot access the file because it is being used by another process.\r\n"},
          {80, L"The file exists.\r\n"},
          {87, L"The parameter is incorrect.\r\n"},
          {112, L"There is not enough space on the disk.\r\n"},
          {126, L"The specified module could not be found.\r\n"},
          {127, L"The specified procedure could not be found.\r\n"},
          {234, L"More data is available.\r\n"},
          {259, L"No more data is available.\r\n"},
          {1018, L"Illegal operation attempted on a registry key that has been marked for deletion.\r\n"},
      },
      internet_{
          {12002, L"The operation timed out\r\n"},
          {12007, L"The server name or address could not be resolved\r\n"},
      } {}

std::wstring MemorySystemMessages::Find(const Texts& texts, Win32Code code) {
    const auto found = texts.find(code);
    return found == texts.end() ? std::wstring() : found->second;
}

}  // namespace platform::memory
