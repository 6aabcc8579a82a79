// System texts that do not depend on the machine.
#pragma once

#include <map>
#include <string>

#include "platform/Machine.h"

namespace platform::memory {

// Knows the texts of the usual codes, in English and ended as the system ends them.
class MemorySystemMessages final : public SystemMessages {
  public:
    MemorySystemMessages();
    // An empty text: the system has none.
    void SetSystemText(Win32Code code, std::wstring text) { system_[code] = std::move(text); }
    void SetInternetText(Win32Code code, std::wstring text) { internet_[code] = std::move(text); }

    std::wstring SystemText(Win32Code code) const override { return Find(system_, code); }
    std::wstring InternetText(Win32Code code) const override { return Find(internet_, code); }

  private:
    using Texts = std::map<Win32Code, std::wstring>;
    static std::wstring Find(const Texts& texts, Win32Code code);

    Texts system_;
    Texts internet_;
};

}  // namespace platform::memory
