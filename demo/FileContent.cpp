#include "demo/FileContent.h"

#include <span>
#include <stdexcept>

namespace demo {
namespace {

void Check(platform::Win32Code code) {
    if (code != platform::code::Success) throw std::runtime_error("cannot read the file, code " + std::to_string(code));
}

}  // namespace

std::string FileContent(platform::Files& files, const std::wstring& path) {
    platform::FileHandle file = platform::FileHandle::None;
    uint64_t size = 0;
    uint32_t bytesRead = 0;
    Check(files.Open(path, file));
    Check(files.Size(file, size));
    std::string content(size, '\0');
    Check(files.Read(file, std::as_writable_bytes(std::span(content)), bytesRead));
    Check(files.Close(file));
    content.resize(bytesRead);
    return content;
}

}  // namespace demo
