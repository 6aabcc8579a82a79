#include "tests/support/TestFiles.h"

#include <windows.h>

#include <filesystem>
#include <system_error>

#include "platform/win32/Win32Machine.h"

namespace tests {
namespace {

class FilesOnDisk final : public TestFiles {
  public:
    FilesOnDisk() {
        Clear();
        std::filesystem::create_directories(folder_);
    }
    ~FilesOnDisk() override { Clear(); }
    FilesOnDisk(const FilesOnDisk&) = delete;
    FilesOnDisk& operator=(const FilesOnDisk&) = delete;

    platform::Files& Files() override { return files_; }
    std::wstring Folder() const override { return folder_.wstring(); }

  private:
    void Clear() const {
        std::error_code ignored;
        std::filesystem::remove_all(folder_, ignored);
    }

    std::filesystem::path folder_ =
        std::filesystem::temp_directory_path() / (L"BrisgateTests" + std::to_wstring(GetCurrentProcessId()));
    platform::win32::Win32Files files_;
};

}  // namespace

std::unique_ptr<TestFiles> MakeTestFiles() {
    return std::make_unique<FilesOnDisk>();
}

}  // namespace tests
