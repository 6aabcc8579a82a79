// ANSI code pages that do not depend on the machine.
#pragma once

#include "platform/Machine.h"

namespace platform::memory {

enum class AnsiCodePage { Western1252, Cyrillic1251 };

// Characters that the chosen page lacks become "?".
class MemoryCodePage final : public CodePage {
  public:
    explicit MemoryCodePage(AnsiCodePage page = AnsiCodePage::Western1252) : page_(page) {}
    void Choose(AnsiCodePage page) { page_ = page; }

    std::wstring ToWide(std::string_view ansi) const override;
    std::string ToAnsi(std::wstring_view wide) const override;

  private:
    AnsiCodePage page_;
};

}  // namespace platform::memory
