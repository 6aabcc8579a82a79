#include "ui/win32/DroppedFiles.h"

namespace ui::win32 {

POINT DroppedFiles::Place() const {
    POINT place{};
    DragQueryPoint(drop_, &place);
    return place;
}

std::wstring DroppedFiles::FirstPath() const {
    std::wstring path(size_t{DragQueryFileW(drop_, 0, nullptr, 0)} + 1, L'\0');
    const UINT length = DragQueryFileW(drop_, 0, path.data(), static_cast<UINT>(path.size()));
    path.resize(length);
    return path;
}

void AcceptDrops(HWND window) {
    constexpr UINT CopyGlobalData = 0x0049;
    // The drop itself, and what carries the files from a program without an administrator's rights.
    for (const UINT message : {UINT{WM_DROPFILES}, UINT{WM_COPYDATA}, CopyGlobalData})
        ChangeWindowMessageFilterEx(window, message, MSGFLT_ALLOW, nullptr);
    DragAcceptFiles(window, TRUE);
}

}  // namespace ui::win32
