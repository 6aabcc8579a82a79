#include "ui/win32/IconLoader.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <vector>

#include "platform/win32/Module.h"
#include "platform/win32/Resolution.h"

namespace ui::win32 {
namespace {

struct BitmapDeleter {
    void operator()(HBITMAP bitmap) const { DeleteObject(bitmap); }
};
using BitmapHandle = std::unique_ptr<std::remove_pointer_t<HBITMAP>, BitmapDeleter>;

// Draws in the colour that the system has for texts of disabled controls: what is dark takes it, what is
// light goes towards the ground, but never so far that it cannot be seen.
class Fading {
  public:
    uint32_t operator()(uint32_t pixel) const {
        constexpr uint32_t Whole = 100;
        const uint32_t light = (Part(pixel >> 16) * 30 + Part(pixel >> 8) * 59 + Part(pixel) * 11) / 100;
        const uint32_t ground = light * MostGround / 0xFF;
        uint32_t faded = pixel & 0xFF000000;
        for (const int shift : {0, 8, 16})
            faded |= (Part(ground_ >> shift) * ground + Part(ink_ >> shift) * (Whole - ground)) / Whole << shift;
        return faded;
    }

  private:
    static constexpr uint32_t MostGround = 75;  // per cent
    static uint32_t Part(uint32_t color) { return color & 0xFF; }
    // The system's colours have red where pixels have blue.
    static uint32_t SystemColor(int index) {
        const COLORREF color = GetSysColor(index);
        return RGB(GetBValue(color), GetGValue(color), GetRValue(color));
    }

    const uint32_t ink_ = SystemColor(COLOR_GRAYTEXT);
    const uint32_t ground_ = SystemColor(COLOR_BTNFACE);
};

BitmapHandle Faded(HDC canvas, HBITMAP picture) {
    BITMAP shape{};
    GetObjectW(picture, sizeof shape, &shape);
    BITMAPINFO format{};
    format.bmiHeader.biSize = sizeof format.bmiHeader;
    format.bmiHeader.biWidth = shape.bmWidth;
    format.bmiHeader.biHeight = -shape.bmHeight;  // top row first
    format.bmiHeader.biPlanes = 1;
    format.bmiHeader.biBitCount = 32;
    const auto rows = static_cast<UINT>(shape.bmHeight);
    std::vector<uint32_t> pixels(static_cast<size_t>(shape.bmWidth) * rows);
    if (GetDIBits(canvas, picture, 0, rows, pixels.data(), &format, DIB_RGB_COLORS) < shape.bmHeight) return {};
    std::transform(pixels.begin(), pixels.end(), pixels.begin(), Fading());
    void* content = nullptr;
    BitmapHandle faded(CreateDIBSection(canvas, &format, DIB_RGB_COLORS, &content, nullptr, 0));
    if (faded != nullptr) std::copy(pixels.begin(), pixels.end(), static_cast<uint32_t*>(content));
    return faded;
}

}  // namespace

IconHandle LoadPicture(Icon icon, int pixels) {
    const HANDLE image =
        LoadImageW(GetModuleHandleW(nullptr), NameOf(icon), IMAGE_ICON, pixels, pixels, LR_DEFAULTCOLOR);
    return IconHandle(static_cast<HICON>(image));
}

IconHandle FadedPicture(HICON icon) {
    ICONINFO parts{};
    GetIconInfo(icon, &parts);
    const BitmapHandle mask(parts.hbmMask);
    const BitmapHandle color(parts.hbmColor);
    const BitmapHandle faded = Faded(platform::win32::ScreenCanvas().Handle(), parts.hbmColor);
    if (faded == nullptr) return {};
    parts.hbmColor = faded.get();
    return IconHandle(CreateIconIndirect(&parts));
}

IconHandle EmptyPicture() {
    constexpr std::array Keep{BYTE{0xFF}, BYTE{0xFF}};  // a row has whole words
    constexpr std::array<BYTE, Keep.size()> Nothing{};
    return IconHandle(CreateIcon(GetModuleHandleW(nullptr), 1, 1, 1, 1, Keep.data(), Nothing.data()));
}

namespace {

int Largest(std::span<const int> sizes, int room) {
    for (const int size : sizes)
        if (size <= room) return size;
    return sizes.back();
}

int LargestDrawn(int room) {
    constexpr std::array Drawn{96, 80, 64, 56, 48, 40, 32, 24, 20, 16};
    return Largest(Drawn, room);
}

}  // namespace

int PictureSizeFor(Size control) {
    return LargestDrawn(std::min(control.width, control.height));
}

int ButtonPictureSizeFor(Size control, uint32_t dpi) {
    constexpr int NormalDpi = 96;
    constexpr std::array AtNormalResolution{32, 24, 16};
    const int scale = static_cast<int>(dpi);
    const int room = std::min(control.width, control.height) * 4 / 5;
    const int normal = Largest(AtNormalResolution, room * NormalDpi / scale);
    return LargestDrawn(std::min(normal * scale / NormalDpi, room));
}

namespace {

using platform::win32::SystemFunction;

// Only list views ask for image lists, and their class comes from the same DLL: the functions are there.
constexpr const wchar_t* ControlsDll = L"comctl32.dll";

}  // namespace

void ImageListDeleter::operator()(HIMAGELIST list) const {
    static const auto destroy = SystemFunction<BOOL WINAPI(HIMAGELIST)>(ControlsDll, "ImageList_Destroy");
    destroy(list);
}

ImageListHandle MakeImageList(std::span<const Icon> icons, int pixels) {
    static const auto create =
        SystemFunction<HIMAGELIST WINAPI(int, int, UINT, int, int)>(ControlsDll, "ImageList_Create");
    static const auto replaceIcon =
        SystemFunction<int WINAPI(HIMAGELIST, int, HICON)>(ControlsDll, "ImageList_ReplaceIcon");
    ImageListHandle list(create(pixels, pixels, ILC_COLOR32 | ILC_MASK, static_cast<int>(icons.size()), 0));
    constexpr int AtTheEnd = -1;
    for (const Icon icon : icons) {
        const IconHandle picture = LoadPicture(icon, pixels);
        if (replaceIcon(list.get(), AtTheEnd, picture.get()) < 0) return {};
    }
    return list;
}

}  // namespace ui::win32
