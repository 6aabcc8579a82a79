#include "tests/support/TestFiles.h"

#include "platform/memory/MemoryFiles.h"

namespace tests {
namespace {

class FilesInMemory final : public TestFiles {
  public:
    FilesInMemory() { files_.AddFolder(Folder()); }
    platform::Files& Files() override { return files_; }
    std::wstring Folder() const override { return L"C:\\Temp\\BrisgateTests"; }

  private:
    platform::memory::MemoryFiles files_;
};

}  // namespace

std::unique_ptr<TestFiles> MakeTestFiles() {
    return std::make_unique<FilesInMemory>();
}

}  // namespace tests
