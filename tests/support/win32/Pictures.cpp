#include "tests/support/win32/Pictures.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cwctype>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <string>
#include <string_view>
#include <utility>

#include "platform/win32/Resolution.h"
#include "ui/win32/ControlMirror.h"

namespace tests {
namespace {

using ui::Icon;

// RuleAdd is drawn in rule_add.ico.
std::filesystem::path FileOf(Icon icon) {
    std::wstring file;
    for (const wchar_t letter : std::wstring_view(ui::NameOf(icon))) {
        if (!file.empty() && std::iswupper(letter) != 0) file += L'_';
        file += static_cast<wchar_t>(std::towlower(letter));
    }
    return L"resources\\icons\\" + file + L".ico";
}

// A bitmap in memory that can be drawn on and read.
class Canvas {
  public:
    explicit Canvas(ui::Size size) : size_(size), device_(CreateCompatibleDC(nullptr)) {
        BITMAPINFO format{};
        format.bmiHeader.biSize = sizeof format.bmiHeader;
        format.bmiHeader.biWidth = size.width;
        format.bmiHeader.biHeight = -size.height;  // top row first
        format.bmiHeader.biPlanes = 1;
        format.bmiHeader.biBitCount = 32;
        void* content = nullptr;
        bitmap_ = CreateDIBSection(device_, &format, DIB_RGB_COLORS, &content, nullptr, 0);
        content_ = static_cast<uint32_t*>(content);
        before_ = SelectObject(device_, bitmap_);
    }
    ~Canvas() {
        SelectObject(device_, before_);
        DeleteObject(bitmap_);
        DeleteDC(device_);
    }
    Canvas(const Canvas&) = delete;
    Canvas& operator=(const Canvas&) = delete;

    HDC Device() const { return device_; }
    uint32_t* begin() const { return content_; }
    uint32_t* end() const { return content_ + size_.width * size_.height; }

    void Draw(HICON icon, int size) const {
        DrawIconEx(device_, (size_.width - size) / 2, (size_.height - size) / 2, icon, size, size, 0, nullptr,
                   DI_NORMAL);
    }
    Points Look() const {
        GdiFlush();
        Points points{size_, {begin(), end()}};
        for (uint32_t& color : points.colors) color &= White;
        return points;
    }

  private:
    const ui::Size size_;
    const HDC device_;
    HBITMAP bitmap_ = nullptr;
    uint32_t* content_ = nullptr;
    HGDIOBJ before_ = nullptr;
};

// A painting with an icon over its middle.
Points WithIconOver(const Points& painting, HICON icon, int size) {
    const Canvas canvas(painting.size);
    std::copy(painting.colors.begin(), painting.colors.end(), canvas.begin());
    canvas.Draw(icon, size);
    return canvas.Look();
}

}  // namespace

Points PaintingOf(HWND window) {
    RECT area{};
    GetClientRect(window, &area);
    const Canvas canvas({area.right, area.bottom});
    SendMessageW(window, WM_PRINTCLIENT, reinterpret_cast<WPARAM>(canvas.Device()), PRF_CLIENT | PRF_ERASEBKGND);
    return canvas.Look();
}

Points PointsOf(HICON icon, uint32_t ground) {
    ICONINFO parts{};
    if (icon == nullptr || GetIconInfo(icon, &parts) == FALSE) return {};
    BITMAP mask{};
    GetObjectW(parts.hbmMask, sizeof mask, &mask);
    DeleteObject(parts.hbmMask);
    DeleteObject(parts.hbmColor);
    const Canvas canvas({mask.bmWidth, mask.bmWidth});
    std::fill(canvas.begin(), canvas.end(), ground);
    canvas.Draw(icon, mask.bmWidth);
    return canvas.Look();
}

std::set<int> DrawnSizes(Icon icon) {
    std::ifstream file(FileOf(icon), std::ios::binary);
    const std::string bytes{std::istreambuf_iterator<char>(file), {}};
    constexpr size_t header = 6;
    constexpr size_t entry = 16;
    std::set<int> sizes;
    for (size_t i = 0; bytes.size() > header && i < static_cast<unsigned char>(bytes[4]); ++i)
        sizes.insert(static_cast<unsigned char>(bytes.at(header + i * entry)));
    return sizes;
}

ui::win32::IconHandle LoadDrawing(Icon icon, int size) {
    const std::filesystem::path file = FileOf(icon);
    const HANDLE drawing = LoadImageW(nullptr, file.c_str(), IMAGE_ICON, size, size, LR_LOADFROMFILE);
    EXPECT_NE(nullptr, drawing) << file.string();
    return ui::win32::IconHandle(static_cast<HICON>(drawing));
}

const Points& DrawingOf(Icon icon, int size) {
    static std::map<std::pair<Icon, int>, Points> known;
    const auto [place, isNew] = known.try_emplace({icon, size});
    if (isNew && icon != Icon::None) place->second = PointsOf(LoadDrawing(icon, size).get());
    return place->second;
}

bool PaintsDrawing(HWND window, ui::IconButton& button, Icon icon) {
    const Points painting = PaintingOf(window);
    // A button without a picture would paint its text.
    const std::wstring text = ui::win32::TextOf(window);
    const Icon before = button.Icon();
    button.SetIcon(Icon::None);
    SetWindowTextW(window, L"");
    const Points bare = PaintingOf(window);
    SetWindowTextW(window, text.c_str());
    button.SetIcon(before);

    const int size = ui::win32::ButtonPictureSizeFor(bare.size, platform::win32::DpiOf(window));
    const ui::win32::IconHandle drawing = LoadDrawing(icon, size);
    const ui::win32::IconHandle pale = ui::win32::FadedPicture(drawing.get());
    const Points expected = WithIconOver(bare, button.IsEnabled() ? drawing.get() : pale.get(), size);
    return expected == painting && expected != bare;
}

const std::vector<Icon>& AllPictures() {
    static const std::vector<Icon> all = [] {
        std::vector<Icon> icons;
        for (size_t number = 1; number < ui::IconNames.size(); ++number) icons.push_back(static_cast<Icon>(number));
        return icons;
    }();
    return all;
}

}  // namespace tests
