#include "platform/win32/Win32CodePage.h"

#include <windows.h>

#include <limits>
#include <new>

namespace platform::win32 {
namespace {

int CharacterCount(size_t characters) {
    if (characters > static_cast<size_t>(std::numeric_limits<int>::max())) {
        throw std::bad_alloc();
    }
    return static_cast<int>(characters);
}

// What the page lacks becomes its default character and never a look-alike, which could be another file's or
// another owner's name. Pages that have every character refuse to be told so.
DWORD ConversionFlags() {
    constexpr UINT Gb18030 = 54936;
    const UINT page = GetACP();
    return page == CP_UTF8 || page == Gb18030 ? 0 : WC_NO_BEST_FIT_CHARS;
}

}  // namespace

std::wstring Win32CodePage::ToWide(std::string_view ansi) const {
    if (ansi.empty()) return {};
    const int length = CharacterCount(ansi.size());
    std::wstring wide(ansi.size(), L'\0');  // no code page makes more units than there are bytes
    const int units = MultiByteToWideChar(CP_ACP, 0, ansi.data(), length, wide.data(), length);
    wide.resize(static_cast<size_t>(units));
    return wide;
}

std::string Win32CodePage::ToAnsi(std::wstring_view wide) const {
    if (wide.empty()) return {};
    const int length = CharacterCount(wide.size());
    const DWORD flags = ConversionFlags();
    const int needed = WideCharToMultiByte(CP_ACP, flags, wide.data(), length, nullptr, 0, nullptr, nullptr);
    std::string ansi(static_cast<size_t>(needed), '\0');
    WideCharToMultiByte(CP_ACP, flags, wide.data(), length, ansi.data(), needed, nullptr, nullptr);
    return ansi;
}

}  // namespace platform::win32
