// Files that are exchanged with other machines: chosen in the system's pickers, read and written whole, with
// a report for every step that fails.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "config/Services.h"
#include "platform/Machine.h"
#include "ui/Screen.h"

namespace config {

// The bytes of a file, whatever they are.
class FileContent {
  public:
    FileContent() = default;
    // The block holds at least length bytes.
    FileContent(std::unique_ptr<std::byte[]> block, size_t length) : block_(std::move(block)), length_(length) {}

    // Lives as long as the content.
    std::string_view Bytes() const;

  private:
    std::unique_ptr<std::byte[]> block_;
    size_t length_ = 0;
};

inline constexpr std::wstring_view MemoryRefused = L"Memory allocation";

// One file on its way from opening to closing. Each step reports its failure and returns whether it
// succeeded; a file that a failure leaves open is closed without another report.
class ReportingFile {
  public:
    // owner: none, or the dialog that the reports belong to.
    ReportingFile(const Services& services, const ui::Dialog* owner, std::wstring path)
        : services_(services),
          owner_(owner),
          path_(std::move(path)) {}
    ~ReportingFile();
    ReportingFile(const ReportingFile&) = delete;
    ReportingFile& operator=(const ReportingFile&) = delete;

    [[nodiscard]] bool Open();    // for reading; must exist
    [[nodiscard]] bool Create();  // for writing; replaces an old one
    // refusal: what is reported when there is no memory for the content.
    [[nodiscard]] bool ReadAll(FileContent& content, std::wstring_view refusal = MemoryRefused);
    [[nodiscard]] bool Write(std::string_view bytes);
    [[nodiscard]] bool Close();

  private:
    bool Succeeded(platform::Win32Code code, std::wstring_view operation) const;

    const Services services_;
    const ui::Dialog* owner_;
    const std::wstring path_;
    platform::FileHandle file_ = platform::FileHandle::None;
};

// Nothing: a step failed and has been reported.
std::optional<FileContent> ReadWholeFile(const Services& services, const ui::Dialog* owner, const std::wstring& path,
                                         std::wstring_view refusal = MemoryRefused);
// False: a step failed and has been reported; what was written stays.
bool WriteWholeFile(const Services& services, const ui::Dialog* owner, const std::wstring& path,
                    std::string_view bytes);

// Offers the files of one kind, named by its plural and its extension, and all files. proposal: the path or
// name shown at first; may be empty.
ui::FilePicker ExchangeFilePicker(ui::FilePickerKind kind, std::wstring_view plural, const std::wstring& extension,
                                  const std::wstring& proposal = {});

}  // namespace config
