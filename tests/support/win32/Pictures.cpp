#include "tests/support/win32/Pictures.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <string>
#include <utility>

#include "ui/win32/ControlMirror.h"
#include "ui/win32/SystemFunctions.h"

namespace tests {
namespace {

using ui::Icon;

const std::map<Icon, std::wstring> Files{
    {Icon::App, L"app"},
    {Icon::Save, L"save"},
    {Icon::LogSettings, L"log_settings"},
    {Icon::RuleAdd, L"rule_add"},
    {Icon::RuleCopy, L"rule_copy"},
    {Icon::RuleEdit, L"rule_edit"},
    {Icon::RuleDelete, L"rule_delete"},
    {Icon::RuleFirst, L"rule_first"},
    {Icon::RuleUp, L"rule_up"},
    {Icon::RuleDown, L"rule_down"},
    {Icon::RuleLast, L"rule_last"},
    {Icon::ProfileAdd, L"profile_add"},
    {Icon::ProfileEdit, L"profile_edit"},
    {Icon::ProfileDelete, L"profile_delete"},
    {Icon::RulesExport, L"rules_export"},
    {Icon::RulesImport, L"rules_import"},
    {Icon::Warning, L"warning"},
    {Icon::Error, L"error"},
    {Icon::Information, L"information"},
    {Icon::FolderIn, L"folder_in"},
    {Icon::FolderOut, L"folder_out"},
    {Icon::FolderError, L"folder_error"},
    {Icon::Folder, L"folder"},
    {Icon::Recipients, L"recipients"},
    {Icon::Signers, L"signers"},
    {Icon::Executable, L"executable"},
    {Icon::MaskAdd, L"mask_add"},
    {Icon::MaskEdit, L"mask_edit"},
    {Icon::MaskDelete, L"mask_delete"},
    {Icon::ItemAdd, L"item_add"},
    {Icon::ItemDelete, L"item_delete"},
    {Icon::MoveDown, L"arrow_down_move"},
    {Icon::MoveUp, L"arrow_up_remove"},
    {Icon::SortDescending, L"sort_descending"},
    {Icon::SortAscending, L"sort_ascending"},
};

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
    SendMessageW(window, WM_PRINTCLIENT, reinterpret_cast<WPARAM>(canvas.Device()),
                 PRF_CLIENT | PRF_ERASEBKGND);
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
    std::ifstream file(std::filesystem::path(L"resources\\icons\\" + Files.at(icon) + L".ico"),
                       std::ios::binary);
    const std::string bytes{std::istreambuf_iterator<char>(file), {}};
    constexpr size_t header = 6;
    constexpr size_t entry = 16;
    std::set<int> sizes;
    for (size_t i = 0; bytes.size() > header && i < static_cast<unsigned char>(bytes[4]); ++i)
        sizes.insert(static_cast<unsigned char>(bytes.at(header + i * entry)));
    return sizes;
}

ui::win32::IconHandle LoadDrawing(Icon icon, int size) {
    const std::wstring file = L"resources\\icons\\" + Files.at(icon) + L".ico";
    const HANDLE drawing = LoadImageW(nullptr, file.c_str(), IMAGE_ICON, size, size, LR_LOADFROMFILE);
    EXPECT_NE(nullptr, drawing) << testing::PrintToString(file);
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

    const int size = ui::win32::ButtonPictureSizeFor(bare.size, ui::win32::DpiOf(window));
    const ui::win32::IconHandle drawing = LoadDrawing(icon, size);
    const ui::win32::IconHandle pale = ui::win32::FadedPicture(drawing.get());
    const Points expected = WithIconOver(bare, button.IsEnabled() ? drawing.get() : pale.get(), size);
    return expected == painting && expected != bare;
}

const std::vector<Icon>& AllPictures() {
    static const std::vector<Icon> all = [] {
        std::vector<Icon> icons;
        for (const auto& [icon, file] : Files) icons.push_back(icon);
        return icons;
    }();
    return all;
}

}  // namespace tests
