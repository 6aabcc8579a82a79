#include "ui/win32/ImageList.h"

#include "ui/win32/IconLoader.h"
#include "ui/win32/SystemFunctions.h"

namespace ui::win32 {
namespace {

constexpr const wchar_t* ControlsDll = L"comctl32.dll";

}  // namespace

void ImageListDeleter::operator()(HIMAGELIST list) const {
    static const auto destroy = SystemFunction<BOOL WINAPI(HIMAGELIST)>(ControlsDll, "ImageList_Destroy");
    if (destroy != nullptr) destroy(list);
}

ImageListHandle MakeImageList(std::span<const Icon> icons, int pixels) {
    static const auto create =
        SystemFunction<HIMAGELIST WINAPI(int, int, UINT, int, int)>(ControlsDll, "ImageList_Create");
    static const auto replaceIcon =
        SystemFunction<int WINAPI(HIMAGELIST, int, HICON)>(ControlsDll, "ImageList_ReplaceIcon");
    if (create == nullptr || replaceIcon == nullptr) return {};
    ImageListHandle list(create(pixels, pixels, ILC_COLOR32 | ILC_MASK, static_cast<int>(icons.size()), 0));
    if (list == nullptr) return {};
    constexpr int AtTheEnd = -1;
    for (const Icon icon : icons) {
        const IconHandle picture = LoadPicture(icon, pixels);
        if (picture == nullptr || replaceIcon(list.get(), AtTheEnd, picture.get()) < 0) return {};
    }
    return list;
}

}  // namespace ui::win32
