#include "platform/win32/Win32CryptoLibrary.h"

#include <windows.h>

#include <algorithm>
#include <array>

namespace platform::win32 {
namespace {

// The library's exports, with the platform's own calling convention. A context is a pointer to the library.
using GetErrorTextFunction = uint32_t(uint32_t code, char* buffer, uint32_t size);
using GetErrorLineFunction = uint32_t(void* context, char** errorText, char** sourceFile, int32_t* line,
                                      char** data);
using FreeMemFunction = void(void* memory);

// A text that the library handed out and wants back.
class LibraryText {
  public:
    explicit LibraryText(FreeMemFunction* release) : release_(release) {}
    ~LibraryText() {
        if (text_ != nullptr) release_(text_);
    }
    LibraryText(const LibraryText&) = delete;
    LibraryText& operator=(const LibraryText&) = delete;

    char** Receive() { return &text_; }
    std::string Copy() const { return text_ == nullptr ? std::string() : std::string(text_); }

  private:
    FreeMemFunction* release_;
    char* text_ = nullptr;
};

}  // namespace

void* Win32CryptoLibrary::Library() const {
    constexpr const wchar_t* name = L"\\morcel1.dll";
    if (library_ != nullptr) return library_;
    Win32Code error = code::Success;
    Module module = LoadCode(ProgramFolder() + name, error);
    if (!module) module = LoadCode(SystemFolder() + name, error);
    library_ = module.release();
    return library_;
}

std::string Win32CryptoLibrary::ErrorText(LibraryCode code) const {
    void* const library = Library();
    if (library == nullptr) return {};
    auto* const getErrorText = FindExport<GetErrorTextFunction>(library, "KSEAL_GetErrorText");
    if (getErrorText == nullptr) return {};
    std::array<char, 1024> buffer{};
    getErrorText(code, buffer.data(), static_cast<uint32_t>(buffer.size()));
    return {buffer.begin(), std::find(buffer.begin(), buffer.end(), '\0')};
}

std::optional<LibraryErrorEntry> Win32CryptoLibrary::NextError(LibraryContext context) const {
    void* const library = Library();
    if (library == nullptr) return std::nullopt;
    auto* const getErrorLine = FindExport<GetErrorLineFunction>(library, "KSEAL_GetErrorLineEx");
    auto* const freeMem = FindExport<FreeMemFunction>(library, "KSEAL_FreeMem");
    if (getErrorLine == nullptr || freeMem == nullptr) return std::nullopt;

    LibraryText errorText(freeMem);
    LibraryText sourceFile(freeMem);
    LibraryText data(freeMem);
    int32_t line = 0;
    const uint32_t answer = getErrorLine(reinterpret_cast<void*>(context), errorText.Receive(),
                                         sourceFile.Receive(), &line, data.Receive());
    if (answer != 0) return std::nullopt;
    return LibraryErrorEntry{errorText.Copy(), sourceFile.Copy(), line, data.Copy()};
}

}  // namespace platform::win32
