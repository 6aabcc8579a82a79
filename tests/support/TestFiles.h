// The files that the tests of files themselves run against: in memory, or the system's own.
#pragma once

#include <memory>
#include <string>

#include "platform/Machine.h"

namespace tests {

struct TestFiles {
    virtual ~TestFiles() = default;
    virtual platform::Files& Files() = 0;
    // Exists and is empty at first; goes with the object. Without a backslash at the end.
    virtual std::wstring Folder() const = 0;
};

std::unique_ptr<TestFiles> MakeTestFiles();

}  // namespace tests
