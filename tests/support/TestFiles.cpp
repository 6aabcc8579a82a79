#include "tests/support/TestFiles.h"

#include <gtest/gtest.h>

#include <span>

namespace tests {

using platform::FileHandle;
namespace code = platform::code;

void TestFiles::Put(const std::wstring& path, std::string_view bytes) {
    FileHandle file = FileHandle::None;
    uint32_t written = 0;
    ASSERT_EQ(Files().Create(path, file), code::Success);
    EXPECT_EQ(Files().Write(file, std::as_bytes(std::span(bytes)), written), code::Success);
    EXPECT_EQ(Files().Close(file), code::Success);
}

std::optional<std::string> TestFiles::Content(const std::wstring& path) {
    FileHandle file = FileHandle::None;
    if (Files().Open(path, file) != code::Success) return std::nullopt;
    uint64_t size = 0;
    uint32_t length = 0;
    EXPECT_EQ(Files().Size(file, size), code::Success);
    std::string bytes(static_cast<size_t>(size), '\0');
    EXPECT_EQ(Files().Read(file, std::as_writable_bytes(std::span(bytes)), length), code::Success);
    EXPECT_EQ(Files().Close(file), code::Success);
    return bytes;
}

}  // namespace tests
