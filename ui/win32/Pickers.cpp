#include "ui/win32/Pickers.h"

#include <cderr.h>
#include <commdlg.h>
#include <shlobj.h>
#include <shobjidl.h>

#include <algorithm>
#include <memory>

#include "platform/win32/Length.h"
#include "text/Numbers.h"

namespace ui::win32 {
namespace {

struct Releaser {
    void operator()(IUnknown* component) const { component->Release(); }
};
template <class Interface>
using Component = std::unique_ptr<Interface, Releaser>;

struct TaskMemoryDeleter {
    void operator()(wchar_t* text) const { CoTaskMemFree(text); }
};

void Require(HRESULT result) {
    if (FAILED(result)) throw ScreenError(static_cast<uint32_t>(result), L"Opening the folder dialog");
}

Component<IFileDialog> MakeFileDialog() {
    void* made = nullptr;
    Require(CoCreateInstance(CLSID_FileOpenDialog, nullptr, CLSCTX_INPROC_SERVER, IID_IFileDialog, &made));
    return Component<IFileDialog>(static_cast<IFileDialog*>(made));
}

// Where no folder is named, the system begins where the user was last.
void StartIn(IFileDialog& dialog, const std::wstring& folder) {
    void* found = nullptr;
    if (!folder.empty()) SHCreateItemFromParsingName(folder.c_str(), nullptr, IID_IShellItem, &found);
    const Component<IShellItem> item(static_cast<IShellItem*>(found));
    if (item != nullptr) dialog.SetFolder(item.get());
}

std::wstring PathOf(IShellItem& item) {
    wchar_t* name = nullptr;
    Require(item.GetDisplayName(SIGDN_FILESYSPATH, &name));
    const std::unique_ptr<wchar_t, TaskMemoryDeleter> path(name);
    return path.get();
}

// A pattern is no extension that the system could append.
const wchar_t* Extension(const std::wstring& extension) {
    return extension.empty() || extension.find_first_of(L"*?.") != std::wstring::npos ? nullptr : extension.c_str();
}

// Name and pattern of each filter, each ended by a zero; one more zero ends it all as a C text.
std::wstring FilterOf(const FilePicker& picker) {
    std::wstring filters = picker.filterName + L'\0' + picker.filterPattern + L'\0';
    for (const FileFilter& filter : picker.furtherFilters) filters += filter.name + L'\0' + filter.pattern + L'\0';
    return filters;
}

}  // namespace

std::optional<std::wstring> PickFolder(HWND owner, const std::wstring& folder) {
    const Component<IFileDialog> dialog = MakeFileDialog();
    dialog->SetOptions(FOS_PICKFOLDERS | FOS_FORCEFILESYSTEM | FOS_PATHMUSTEXIST | FOS_NOCHANGEDIR);
    StartIn(*dialog, folder);
    const HRESULT shown = dialog->Show(owner);
    if (shown == HRESULT_FROM_WIN32(ERROR_CANCELLED)) return std::nullopt;
    Require(shown);
    IShellItem* chosen = nullptr;
    Require(dialog->GetResult(&chosen));
    const Component<IShellItem> item(chosen);
    return PathOf(*item);
}

std::optional<std::wstring> PickFile(HWND owner, const FilePicker& picker) {
    constexpr size_t LongestPath = platform::win32::LongestPath;
    const std::wstring filter = FilterOf(picker);
    std::wstring path(LongestPath, L'\0');
    const size_t known = std::min(picker.initialPath.size(), LongestPath - 1);
    std::copy_n(picker.initialPath.begin(), known, path.begin());

    OPENFILENAMEW request{};
    request.lStructSize = sizeof request;
    request.hwndOwner = owner;
    request.lpstrFilter = filter.c_str();
    request.lpstrFile = path.data();
    request.nMaxFile = static_cast<DWORD>(path.size());
    request.lpstrInitialDir = picker.initialFolder.empty() ? nullptr : picker.initialFolder.c_str();
    request.lpstrDefExt = Extension(picker.defaultExtension);
    const bool opens = picker.kind == FilePickerKind::Open;
    request.Flags = OFN_EXPLORER | OFN_PATHMUSTEXIST | OFN_NOCHANGEDIR | OFN_HIDEREADONLY;
    request.Flags |= opens ? OFN_FILEMUSTEXIST : OFN_OVERWRITEPROMPT;
    const auto show = opens ? GetOpenFileNameW : GetSaveFileNameW;
    BOOL chosen = show(&request);
    if (chosen == FALSE && CommDlgExtendedError() == FNERR_INVALIDFILENAME) {
        path.assign(LongestPath, L'\0');  // better no proposal than no dialog
        request.lpstrFile = path.data();
        chosen = show(&request);
    }
    if (chosen != FALSE) return std::wstring(path.c_str());
    // The dialog has codes of its own, which the system has no texts for.
    if (const DWORD error = CommDlgExtendedError(); error != 0)
        throw ScreenError(static_cast<uint32_t>(E_FAIL),
                          L"Opening the file dialog (its error " + text::Decimal(error) + L")");
    return std::nullopt;
}

}  // namespace ui::win32
