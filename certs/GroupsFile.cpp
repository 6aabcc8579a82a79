#include "certs/GroupsFile.h"

#include <algorithm>

#include "config/ReportingFile.h"
#include "text/Format.h"
#include "text/Trim.h"

namespace certs {
namespace {

constexpr wchar_t extension[] = L"grx";

ui::FilePicker GroupsFilePicker(ui::FilePickerKind kind, const std::wstring& proposal) {
    return config::ExchangeFilePicker(kind, L"User groups files", extension, proposal);
}

std::wstring NewGroupIn(const std::wstring& folder) {
    std::wstring path(text::TrimRight(folder, L"\\/"));
    if (!path.empty()) path += L'\\';
    return path + text::Format(L"New group.%s", extension);
}

}  // namespace

ui::FilePicker GroupsFileToOpen(const std::wstring& lastPath, const std::wstring& folder) {
    ui::FilePicker picker = GroupsFilePicker(ui::FilePickerKind::Open, lastPath);
    if (lastPath.empty()) picker.initialFolder = folder;
    return picker;
}

ui::FilePicker GroupsFileToSave(const std::wstring& lastPath, const std::wstring& folder) {
    return GroupsFilePicker(ui::FilePickerKind::Save, lastPath.empty() ? NewGroupIn(folder) : lastPath);
}

void ReadGroupLines(std::string_view bytes, const std::function<void(std::string_view line)>& take) {
    constexpr std::string_view lineEnd = "\r\n";
    std::string_view rest = bytes.substr(0, std::min(bytes.find('\0'), bytes.size()));
    for (size_t end = rest.find(lineEnd); end != std::string_view::npos; end = rest.find(lineEnd)) {
        const std::string_view line = rest.substr(0, end);
        if (line.find('=') != std::string_view::npos) take(line);
        rest.remove_prefix(end + lineEnd.size());
    }
}

bool ReadGroupsFile(const config::Services& services, const ui::Dialog* owner, const std::wstring& path,
                    const std::function<void(std::wstring_view name)>& take) {
    const platform::CodePage& codePage = services.Machine.CodePage;
    // Kept: only files whose path the code page can express can be read.
    const std::wstring known = codePage.ToWide(codePage.ToAnsi(path));
    const auto content = config::ReadWholeFile(services, owner, known, L"Reading file %s");
    if (!content) return false;
    ReadGroupLines(content->Bytes(), [&](std::string_view line) { take(codePage.ToWide(line)); });
    return true;
}

bool WriteGroupsFile(const config::Services& services, const ui::Dialog* owner, const std::wstring& path,
                     std::span<const std::wstring_view> names) {
    config::ReportingFile file(services, owner, path);
    if (!file.Create()) return false;
    const bool written = std::all_of(names.begin(), names.end(), [&](std::wstring_view name) {
        return file.Write(services.Machine.CodePage.ToAnsi(name)) && file.Write("\r\n");
    });
    return written && file.Close();
}

}  // namespace certs
