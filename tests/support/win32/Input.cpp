#include "tests/support/win32/Input.h"

#include <shlobj.h>

#include <algorithm>
#include <array>

namespace tests::input {
namespace {

// Holds Shift, Ctrl, Alt or AltGr down.
class HeldKey {
  public:
    explicit HeldKey(Held held) {
        GetKeyboardState(before_.data());
        std::array<BYTE, 256> pressed = before_;
        constexpr BYTE Down = 0x80;
        for (const int key : {VK_SHIFT, VK_LSHIFT, VK_RSHIFT, VK_CONTROL, VK_LCONTROL, VK_RCONTROL, VK_MENU})
            pressed.at(static_cast<size_t>(key)) = 0;
        if (held == Held::Shift) pressed[VK_SHIFT] = pressed[VK_LSHIFT] = Down;
        const bool altGr = held == Held::AltGr;
        if (held == Held::Control || altGr) pressed[VK_CONTROL] = pressed[VK_LCONTROL] = Down;
        if (held == Held::Alt || altGr) pressed[VK_MENU] = Down;
        SetKeyboardState(pressed.data());
    }
    ~HeldKey() { SetKeyboardState(before_.data()); }
    HeldKey(const HeldKey&) = delete;
    HeldKey& operator=(const HeldKey&) = delete;

  private:
    std::array<BYTE, 256> before_{};
};

WPARAM MouseFlag(Held held) {
    if (held == Held::Shift) return MK_SHIFT;
    return held == Held::Control ? MK_CONTROL : 0;
}

LPARAM Packed(POINT at) {
    return MAKELPARAM(at.x, at.y);
}

LPARAM KeyStroke(WPARAM key, bool up) {
    constexpr LPARAM UpBits = static_cast<LPARAM>(0xC0000000);
    const LPARAM scanCode = static_cast<LPARAM>(MapVirtualKeyW(static_cast<UINT>(key), MAPVK_VK_TO_VSC)) << 16;
    constexpr LPARAM AltBit = 0x20000000;
    const bool alt = GetKeyState(VK_MENU) < 0 && GetKeyState(VK_CONTROL) >= 0;
    return 1 | scanCode | (up ? UpBits : 0) | (alt ? AltBit : 0);
}

void Work(MSG& message) {
    const HWND root = GetAncestor(message.hwnd, GA_ROOT);
    if (root != nullptr && IsDialogMessageW(root, &message) != FALSE) return;
    TranslateMessage(&message);
    DispatchMessageW(&message);
}

}  // namespace

void Settle() {
    MSG message{};
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE) != FALSE) Work(message);
}

void Click(HWND window, POINT at, Held held) {
    const HeldKey key(held);
    PostMessageW(window, WM_MOUSEMOVE, MouseFlag(held), Packed(at));
    PostMessageW(window, WM_LBUTTONDOWN, MK_LBUTTON | MouseFlag(held), Packed(at));
    PostMessageW(window, WM_LBUTTONUP, MouseFlag(held), Packed(at));
    Settle();
}

void DoubleClick(HWND window, POINT at) {
    Click(window, at);
    if (IsWindowEnabled(window) == FALSE || IsWindowVisible(window) == FALSE) return;
    PostMessageW(window, WM_LBUTTONDBLCLK, MK_LBUTTON, Packed(at));
    PostMessageW(window, WM_LBUTTONUP, 0, Packed(at));
    Settle();
}

void RightClick(HWND window, POINT at) {
    PostMessageW(window, WM_MOUSEMOVE, 0, Packed(at));
    PostMessageW(window, WM_RBUTTONDOWN, MK_RBUTTON, Packed(at));
    PostMessageW(window, WM_RBUTTONUP, 0, Packed(at));
    Settle();
}

POINT CenterOf(HWND window) {
    RECT area{};
    GetClientRect(window, &area);
    return {area.right / 2, area.bottom / 2};
}

void Press(HWND dialog, Key key, Held held) {
    const HeldKey modifier(held);
    const auto virtualKey = static_cast<WPARAM>(CodeOf(key));
    const bool isSystemKey = held == Held::Alt || key == Key::F10;
    for (const bool up : {false, true}) {
        const HWND focus = GetFocus();
        const bool ours = focus != nullptr && (focus == dialog || IsChild(dialog, focus) != FALSE);
        if (up && !ours) return;  // the key went down in a window that is no more
        MSG message{};
        message.hwnd = ours ? focus : dialog;
        message.message = isSystemKey ? (up ? WM_SYSKEYUP : WM_SYSKEYDOWN) : (up ? WM_KEYUP : WM_KEYDOWN);
        message.wParam = virtualKey;
        message.lParam = KeyStroke(virtualKey, up);
        Work(message);
        Settle();
    }
}

void Type(HWND window, wchar_t unit) {
    PostMessageW(window, WM_CHAR, unit, 1);
    Settle();
}

void Paste(HWND edit, const std::wstring& text) {
    if (OpenClipboard(edit) == FALSE) return;
    EmptyClipboard();
    const HGLOBAL memory = GlobalAlloc(GMEM_MOVEABLE, (text.size() + 1) * sizeof(wchar_t));
    auto* const units = static_cast<wchar_t*>(GlobalLock(memory));
    std::copy(text.begin(), text.end(), units);
    units[text.size()] = L'\0';
    GlobalUnlock(memory);
    SetClipboardData(CF_UNICODETEXT, memory);
    CloseClipboard();
    PostMessageW(edit, WM_PASTE, 0, 0);
    Settle();
}

void Drop(HWND control, const std::wstring& path) {
    const HWND dialog = GetParent(control);
    POINT place = CenterOf(control);
    MapWindowPoints(control, dialog, &place, 1);
    // The path and an empty one behind it end the list.
    const size_t bytes = sizeof(DROPFILES) + (path.size() + 2) * sizeof(wchar_t);
    const HGLOBAL memory = GlobalAlloc(GHND, bytes);
    auto* const dropped = static_cast<DROPFILES*>(GlobalLock(memory));
    dropped->pFiles = sizeof(DROPFILES);
    dropped->pt = place;
    dropped->fWide = TRUE;
    std::copy(path.begin(), path.end(), reinterpret_cast<wchar_t*>(dropped + 1));
    GlobalUnlock(memory);
    PostMessageW(dialog, WM_DROPFILES, reinterpret_cast<WPARAM>(memory), 0);
    Settle();
}

void Focus(HWND dialog, HWND control) {
    const HWND focus = GetFocus();
    if (focus == control || IsChild(control, focus) != FALSE) return;
    SendMessageW(dialog, WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(control), TRUE);
    Settle();
}

}  // namespace tests::input
