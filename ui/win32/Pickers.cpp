#include "ui/win32/Pickers.h"

#include <cderr.h>
#include <commdlg.h>
#include <objbase.h>
#include <shobjidl.h>

#include <algorithm>
#include <memory>

namespace ui::win32 {
namespace {

// The system's dialogs are made of components that need this for as long as they are open.
class ComponentScope {
  public:
    ComponentScope()
        : entered_(SUCCEEDED(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED | COINIT_DISABLE_OLE1DDE))) {}
    ~ComponentScope() {
        if (entered_) CoUninitialize();
    }
    ComponentScope(const ComponentScope&) = delete;
    ComponentScope& operator=(const ComponentScope&) = delete;

  private:
    const bool entered_;
};

struct Releaser {
    void operator()(IUnknown* component) const { component->Release(); }
};
template <class Interface>
using Component = std::unique_ptr<Interface, Releaser>;

struct TaskMemoryDeleter {
    void operator()(wchar_t* text) const { CoTaskMemFree(text); }
};

Component<IFileDialog> MakeFileDialog() {
    void* made = nullptr;
    CoCreateInstance(CLSID_FileOpenDialog, nullptr, CLSCTX_INPROC_SERVER, IID_IFileDialog, &made);
    return Component<IFileDialog>(static_cast<IFileDialog*>(made));
}

std::optional<std::wstring> PathOf(IShellItem& item) {
    wchar_t* name = nullptr;
    if (FAILED(item.GetDisplayName(SIGDN_FILESYSPATH, &name))) return std::nullopt;
    const std::unique_ptr<wchar_t, TaskMemoryDeleter> path(name);
    return std::wstring(path.get());
}

// A pattern is no extension that the system could append.
const wchar_t* Extension(const std::wstring& extension) {
    return extension.empty() || extension.find_first_of(L"*?.") != std::wstring::npos ? nullptr
                                                                                      : extension.c_str();
}

// Name and pattern of each filter, each ended by a zero; one more zero ends it all as a C text.
std::wstring FilterOf(const FilePicker& picker) {
    if (picker.filterName.empty()) return {};
    std::wstring filters = picker.filterName + L'\0' + picker.filterPattern + L'\0';
    for (const FileFilter& filter : picker.furtherFilters)
        filters += filter.name + L'\0' + filter.pattern + L'\0';
    return filters;
}

}  // namespace

std::optional<std::wstring> PickFolder(HWND owner) {
    const ComponentScope scope;
    const Component<IFileDialog> dialog = MakeFileDialog();
    if (dialog == nullptr) return std::nullopt;
    dialog->SetOptions(FOS_PICKFOLDERS | FOS_FORCEFILESYSTEM | FOS_PATHMUSTEXIST | FOS_NOCHANGEDIR);
    if (dialog->Show(owner) != S_OK) return std::nullopt;
    IShellItem* chosen = nullptr;
    if (FAILED(dialog->GetResult(&chosen))) return std::nullopt;
    const Component<IShellItem> item(chosen);
    return PathOf(*item);
}

std::optional<std::wstring> PickFile(HWND owner, const FilePicker& picker) {
    constexpr size_t LongestPath = 32768;
    const ComponentScope scope;
    const std::wstring filter = FilterOf(picker);
    std::wstring path(LongestPath, L'\0');
    const size_t known = std::min(picker.initialPath.size(), LongestPath - 1);
    std::copy_n(picker.initialPath.begin(), known, path.begin());

    OPENFILENAMEW request{};
    request.lStructSize = sizeof request;
    request.hwndOwner = owner;
    request.lpstrFilter = filter.empty() ? nullptr : filter.c_str();
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
    if (chosen == FALSE) return std::nullopt;
    return std::wstring(path.c_str());
}

}  // namespace ui::win32
