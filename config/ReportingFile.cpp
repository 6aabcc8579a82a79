#include "config/ReportingFile.h"

#include <limits>
#include <span>

#include "text/Format.h"

namespace config {
namespace {

namespace code = platform::code;

constexpr platform::Win32Code diskFull = 112;

// What one call of the system can read, in bytes.
constexpr uint64_t largestRead = std::numeric_limits<uint32_t>::max();

}  // namespace

std::string_view FileContent::Bytes() const {
    return {reinterpret_cast<const char*>(block_.get()), length_};
}

ReportingFile::~ReportingFile() {
    if (file_ != platform::FileHandle::None) static_cast<void>(services_.Machine.Files.Close(file_));
}

bool ReportingFile::Open() {
    return Succeeded(services_.Machine.Files.Open(path_, file_), L"Opening file %s");
}

bool ReportingFile::Create() {
    return Succeeded(services_.Machine.Files.Create(path_, file_), L"Creating file %s");
}

bool ReportingFile::ReadAll(FileContent& content, std::wstring_view refusal) {
    platform::Files& files = services_.Machine.Files;
    uint64_t size = 0;
    if (!Succeeded(files.Size(file_, size), L"Getting size of file %s")) return false;

    if (size > largestRead) return Succeeded(code::NotEnoughMemory, refusal);
    const size_t room = static_cast<size_t>(size) + 1;  // for a zero byte after the content
    platform::Win32Code error = code::Success;
    std::unique_ptr<std::byte[]> block = services_.Machine.Memory.Allocate(room, error);
    if (!block) return Succeeded(error, refusal);

    uint32_t length = 0;  // less than the size where the file has shrunk meanwhile
    if (!Succeeded(files.Read(file_, {block.get(), room - 1}, length), L"Reading file %s")) return false;
    block[length] = std::byte{0};
    content = FileContent(std::move(block), length);
    return true;
}

bool ReportingFile::Write(std::string_view bytes) {
    uint32_t written = 0;
    const platform::Win32Code result = services_.Machine.Files.Write(file_, std::as_bytes(std::span(bytes)), written);
    // The system writes all or fails. Were it ever to write less, the user must not take the file for whole.
    const bool cutShort = result == code::Success && written < bytes.size();
    return Succeeded(cutShort ? diskFull : result, L"Writing file %s");
}

bool ReportingFile::Close() {
    const platform::FileHandle file = file_;
    file_ = platform::FileHandle::None;
    return Succeeded(services_.Machine.Files.Close(file), L"Closing file %s");
}

bool ReportingFile::Succeeded(platform::Win32Code code, std::wstring_view operation) const {
    if (code == code::Success) return true;
    services_.Errors.ErrorReport({.owner = owner_}, {.code = code, .operation = operation, .argument = path_});
    return false;
}

std::optional<FileContent> ReadWholeFile(const Services& services, const ui::Dialog* owner, const std::wstring& path,
                                         std::wstring_view refusal) {
    ReportingFile file(services, owner, path);
    FileContent content;
    if (!file.Open() || !file.ReadAll(content, refusal) || !file.Close()) return std::nullopt;
    return content;
}

bool WriteWholeFile(const Services& services, const ui::Dialog* owner, const std::wstring& path,
                    std::string_view bytes) {
    ReportingFile file(services, owner, path);
    return file.Create() && file.Write(bytes) && file.Close();
}

ui::FilePicker ExchangeFilePicker(ui::FilePickerKind kind, std::wstring_view plural, const std::wstring& extension,
                                  const std::wstring& proposal) {
    return {.kind = kind,
            .filterName = text::Format(L"%s (*.%s)", plural, extension),
            .filterPattern = L"*." + extension,
            .defaultExtension = extension,
            .initialPath = proposal,
            .furtherFilters = {{L"All files (*.*)", L"*.*"}}};
}

}  // namespace config
