// Times one click into a list of the program that has 100,000 rows, beside the same click into a list of the system
// with as many rows whose owner answers nothing. Prints lines for the table.
#include <windows.h>

#include <commctrl.h>

#include <functional>
#include <stdexcept>

#include "bench/Measuring.h"
#include "platform/win32/Win32Machine.h"
#include "ui/Dialog.h"
#include "ui/ListView.h"
#include "ui/win32/Win32Screen.h"

namespace {

constexpr size_t rowCount = 100'000;
constexpr int list = 1030;

// What is done in the dialog once it is shown.
std::function<void(HWND)> inDialog;

void CALLBACK LookForDialog(HWND /*none*/, UINT /*message*/, UINT_PTR timer, DWORD /*time*/) {
    const HWND dialog = FindWindowW(nullptr, L"Rows");
    if (dialog == nullptr || IsWindowVisible(dialog) == FALSE) return;
    KillTimer(nullptr, timer);
    inDialog(dialog);
    PostMessageW(dialog, WM_COMMAND, IDCANCEL, 0);
}

class Rows final : public ui::Dialog {
  public:
    explicit Rows(ui::Screen& screen) : Dialog(screen, nullptr, {.size = {300, 200}}, L"Rows") {
        rows_.SetCells([](size_t row, size_t) { return std::to_wstring(row); });
    }

  private:
    void OnInitDialog() override {
        rows_.SetColumns({{L"", 90}});
        rows_.SetRows(std::vector<bool>(rowCount));
    }

    ui::ListView rows_{*this, list, {7, 7, 140, 180}, {.checkBoxes = true}};
};

HWND MakeBareList(HWND dialog, HWND like) {
    const auto style = static_cast<DWORD>(GetWindowLongPtrW(like, GWL_STYLE));
    const HWND window =
        CreateWindowExW(0, WC_LISTVIEWW, L"", style, 300, 10, 200, 300, dialog, nullptr, nullptr, nullptr);
    SendMessageW(window, LVM_SETCALLBACKMASK, LVIS_STATEIMAGEMASK, 0);
    SendMessageW(window, LVM_SETEXTENDEDLISTVIEWSTYLE, 0, SendMessageW(like, LVM_GETEXTENDEDLISTVIEWSTYLE, 0, 0));
    LVCOLUMNW column{};
    column.mask = LVCF_WIDTH;
    column.cx = 90;
    SendMessageW(window, LVM_INSERTCOLUMNW, 0, reinterpret_cast<LPARAM>(&column));
    SendMessageW(window, LVM_SETITEMCOUNT, rowCount, 0);
    return window;
}

// The button goes up while the list waits for that.
double Click(HWND window, int y, WPARAM keys) {
    const LPARAM place = MAKELPARAM(60, y);
    return bench::Milliseconds([=] {
        PostMessageW(window, WM_LBUTTONUP, keys, place);
        SendMessageW(window, WM_LBUTTONDOWN, MK_LBUTTON | keys, place);
    });
}

LRESULT SelectedRow(HWND window) {
    constexpr auto beforeFirst = static_cast<WPARAM>(-1);
    return SendMessageW(window, LVM_GETNEXTITEM, beforeFirst, LVNI_SELECTED);
}

}  // namespace

int main() {
    platform::win32::Win32Machine machine;
    ui::win32::Win32Screen screen(machine.ScreenMetrics);
    bench::Pairs one;
    inDialog = [&](HWND dialog) {
        const HWND ours = GetDlgItem(dialog, list);
        const HWND bare = MakeBareList(dialog, ours);
        for (int round = 0; round < 7; ++round) {
            const int y = 40 + 20 * round;
            SetFocus(bare);
            const double reference = Click(bare, y, 0);
            SetFocus(ours);
            one.Add(Click(ours, y, 0), reference);
            if (SelectedRow(ours) != SelectedRow(bare) || SelectedRow(ours) < round)
                throw std::runtime_error("the click missed");
        }
    };
    Rows rows(screen);
    SetTimer(nullptr, 0, USER_TIMER_MINIMUM, LookForDialog);
    rows.DoModal();
    one.Print("click into a list", "100,000 rows", "ms");
    return 0;
}
