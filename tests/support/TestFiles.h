// The files that the tests of files themselves run against: in memory, or the system's own.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "platform/Machine.h"

namespace tests {

struct TestFiles {
    virtual ~TestFiles() = default;
    virtual platform::Files& Files() = 0;
    // Exists and is empty at first; goes with the object. Without a backslash at the end.
    virtual std::wstring Folder() const = 0;

    std::wstring Path(const std::wstring& name) const { return Folder() + L"\\" + name; }
    // Makes the file, or replaces it.
    void Put(const std::wstring& path, std::string_view bytes);
    // None: there is no such file.
    std::optional<std::string> Content(const std::wstring& path);
};

std::unique_ptr<TestFiles> MakeTestFiles();

}  // namespace tests
