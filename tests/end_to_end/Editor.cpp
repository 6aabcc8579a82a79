#include "tests/end_to_end/Editor.h"

#include <commctrl.h>
#include <psapi.h>

#include <algorithm>
#include <functional>
#include <stdexcept>

#include "errors/MessageBoxes.h"

namespace tests {
namespace {

constexpr DWORD patience = 10'000;  // milliseconds; far beyond what anything here takes
constexpr int boxTextId = 0xFFFF;

struct Search {
    DWORD process;
    std::function<bool(HWND)> wanted;
    HWND found;
};

BOOL CALLBACK Look(HWND window, LPARAM parameter) {
    auto* search = reinterpret_cast<Search*>(parameter);
    DWORD process = 0;
    GetWindowThreadProcessId(window, &process);
    if (process != search->process || !IsWindowVisible(window) || !search->wanted(window)) return TRUE;
    search->found = window;
    return FALSE;
}

std::wstring Title(HWND window) {
    std::wstring title(256, L'\0');
    title.resize(static_cast<size_t>(GetWindowTextW(window, title.data(), static_cast<int>(title.size()))));
    return title;
}

HWND WaitFor(const PROCESS_INFORMATION& process, const std::function<bool(HWND)>& wanted) {
    const ULONGLONG end = GetTickCount64() + patience;
    while (GetTickCount64() < end) {
        Search search{process.dwProcessId, wanted, nullptr};
        EnumWindows(Look, reinterpret_cast<LPARAM>(&search));
        if (search.found != nullptr) return search.found;
        if (WaitForSingleObject(process.hProcess, 20) == WAIT_OBJECT_0) return nullptr;
    }
    return nullptr;
}

// Memory in the other process for one list view item and its text.
class RemoteItem {
  public:
    explicit RemoteItem(HANDLE process)
        : process_(process),
          memory_(static_cast<char*>(VirtualAllocEx(process, nullptr, 4096, MEM_COMMIT, PAGE_READWRITE))) {}
    ~RemoteItem() { VirtualFreeEx(process_, memory_, 0, MEM_RELEASE); }
    RemoteItem(const RemoteItem&) = delete;
    RemoteItem& operator=(const RemoteItem&) = delete;

    void Select(HWND list, int row) const {
        LVITEMW item{};
        item.stateMask = LVIS_SELECTED | LVIS_FOCUSED;
        SetState(list, -1, item);
        item.state = item.stateMask;
        SetState(list, row, item);
    }

    std::wstring Cell(HWND list, int row, int column) const {
        constexpr size_t textOffset = 256;
        std::wstring text(1024, L'\0');
        LVITEMW item{};
        item.iSubItem = column;
        item.cchTextMax = static_cast<int>(text.size());
        item.pszText = reinterpret_cast<wchar_t*>(memory_ + textOffset);
        WriteProcessMemory(process_, memory_, &item, sizeof item, nullptr);
        const auto length = static_cast<size_t>(
            SendMessageW(list, LVM_GETITEMTEXTW, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(memory_)));
        ReadProcessMemory(process_, memory_ + textOffset, text.data(), text.size() * sizeof(wchar_t), nullptr);
        text.resize(length);
        return text;
    }

  private:
    void SetState(HWND list, int row, const LVITEMW& item) const {
        WriteProcessMemory(process_, memory_, &item, sizeof item, nullptr);
        SendMessageW(list, LVM_SETITEMSTATE, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(memory_));
    }

    HANDLE process_;
    char* memory_;
};

}  // namespace

Editor::Editor(const std::wstring& program) {
    std::wstring command = L"\"" + program + L"\"";
    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    if (!CreateProcessW(nullptr, command.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &startup, &process_))
        throw std::runtime_error("the editor does not start");
}

Editor::~Editor() {
    if (WaitForSingleObject(process_.hProcess, 0) != WAIT_OBJECT_0) {
        TerminateProcess(process_.hProcess, 1);
        WaitForSingleObject(process_.hProcess, patience);
    }
    CloseHandle(process_.hThread);
    CloseHandle(process_.hProcess);
}

HWND Editor::WaitForWindow(const std::wstring& title) const {
    return WaitFor(process_, [&title](HWND window) { return Title(window) == title; });
}

HWND Editor::MainWindow() const {
    return WaitFor(process_, [](HWND window) {
        const HWND rules = GetDlgItem(window, id::Rules);
        return Title(window) == errors::ProgramTitle && rules != nullptr && IsWindowEnabled(rules);
    });
}

HWND Editor::WaitForBox() const {
    return WaitFor(process_, [](HWND window) {
        return Title(window) == errors::ProgramTitle && GetDlgItem(window, id::Rules) == nullptr;
    });
}

std::vector<std::wstring> Editor::Modules() const {
    std::vector<HMODULE> modules(1024);
    DWORD needed = 0;
    if (!EnumProcessModules(process_.hProcess, modules.data(), static_cast<DWORD>(modules.size() * sizeof(HMODULE)),
                            &needed))
        throw std::runtime_error("the program does not tell its modules");
    modules.resize(std::min(modules.size(), needed / sizeof(HMODULE)));
    std::vector<std::wstring> files;
    for (const HMODULE module : modules) {
        std::wstring file(32768, L'\0');
        file.resize(GetModuleFileNameExW(process_.hProcess, module, file.data(), static_cast<DWORD>(file.size())));
        files.push_back(file);
    }
    return files;
}

bool Editor::WaitForEnd() const {
    return WaitForSingleObject(process_.hProcess, patience) == WAIT_OBJECT_0;
}

void Editor::Press(HWND window, int id) {
    PostMessageW(GetDlgItem(window, id), BM_CLICK, 0, 0);
}

std::wstring Editor::TextOf(HWND window, int id) {
    std::wstring text(1024, L'\0');
    text.resize(static_cast<size_t>(
        SendMessageW(GetDlgItem(window, id), WM_GETTEXT, text.size(), reinterpret_cast<LPARAM>(text.data()))));
    return text;
}

std::wstring Editor::BoxText(HWND box) {
    return TextOf(box, boxTextId);
}

std::vector<std::vector<std::wstring>> Editor::Rows(HWND window, int listId, int columns) const {
    const HWND list = GetDlgItem(window, listId);
    const RemoteItem item(process_.hProcess);
    std::vector<std::vector<std::wstring>> rows(static_cast<size_t>(SendMessageW(list, LVM_GETITEMCOUNT, 0, 0)));
    for (size_t row = 0; row < rows.size(); ++row)
        for (int column = 0; column < columns; ++column)
            rows[row].push_back(item.Cell(list, static_cast<int>(row), column));
    return rows;
}

void Editor::SelectRow(HWND window, int listId, int row) const {
    RemoteItem(process_.hProcess).Select(GetDlgItem(window, listId), row);
}

bool Editor::WaitForRows(HWND window, int listId, int count) const {
    const HWND list = GetDlgItem(window, listId);
    return WaitUntil([&] { return SendMessageW(list, LVM_GETITEMCOUNT, 0, 0) == count; });
}

bool Editor::WaitForText(HWND window, int id, const std::wstring& text) const {
    return WaitUntil([&] { return TextOf(window, id) == text; });
}

bool Editor::WaitUntilGone(HWND window) const {
    return WaitUntil([window] { return IsWindow(window) == FALSE; });
}

bool Editor::WaitUntil(const std::function<bool()>& holds) const {
    const ULONGLONG end = GetTickCount64() + patience;
    while (!holds()) {
        if (GetTickCount64() > end || WaitForSingleObject(process_.hProcess, 20) == WAIT_OBJECT_0) return false;
    }
    return true;
}

}  // namespace tests
