// brisgate-drive.exe: hands for scripts. It reads one command a line and answers each with one line, "ok ..."
// or "failed ...". Commands work on the window that was looked for last.
#include <windows.h>

#include <commctrl.h>

#include <iostream>
#include <map>
#include <sstream>
#include <stdexcept>
#include <string>
#include <vector>

namespace {

constexpr ULONGLONG patience = 20'000;  // milliseconds until a window that does not come is given up
constexpr DWORD pause = 20;             // milliseconds between two looks

std::wstring ToWide(const std::string& utf8) {
    std::wstring text(utf8.size(), L'\0');
    text.resize(static_cast<size_t>(MultiByteToWideChar(CP_UTF8, 0, utf8.data(), static_cast<int>(utf8.size()),
                                                        text.data(), static_cast<int>(text.size()))));
    return text;
}

std::string Rest(std::istream& arguments) {
    std::string rest;
    std::getline(arguments >> std::ws, rest);
    return rest;
}

struct Search {
    std::wstring title;
    HWND known;  // one that is not meant
    HWND found = nullptr;
};

// What can be used: of windows of the same title, the one that the others wait for.
BOOL CALLBACK Look(HWND window, LPARAM parameter) {
    auto& search = *reinterpret_cast<Search*>(parameter);
    std::wstring text(256, L'\0');
    text.resize(static_cast<size_t>(GetWindowTextW(window, text.data(), static_cast<int>(text.size()))));
    if (text != search.title || window == search.known || IsWindowVisible(window) == FALSE ||
        IsWindowEnabled(window) == FALSE)
        return TRUE;
    search.found = window;
    return FALSE;
}

// Until it holds.
template <class Condition>
void Wait(const Condition& holds) {
    const ULONGLONG end = GetTickCount64() + patience;
    while (!holds()) {
        if (GetTickCount64() > end) throw std::runtime_error("that does not happen");
        Sleep(pause);
    }
}

class Hands {
  public:
    std::string Do(const std::string& line) {
        std::istringstream arguments(line);
        std::string verb;
        arguments >> verb;
        static const std::map<std::string, std::string (Hands::*)(std::istream&)> verbs{
            {"opened", &Hands::Opened},   {"leave", &Hands::Leave},
            {"gone", &Hands::Gone},       {"press", &Hands::Press},
            {"choose", &Hands::Choose},   {"type", &Hands::Type},
            {"click", &Hands::Click},     {"doubleclick", &Hands::DoubleClick},
            {"details", &Hands::Details}, {"check", &Hands::Check},
            {"menu", &Hands::Menu},       {"system", &Hands::System},
            {"place", &Hands::Place}};
        const auto known = verbs.find(verb);
        if (known == verbs.end()) throw std::runtime_error("no such command");
        return (this->*known->second)(arguments);
    }

  private:
    // opened TITLE: another window than that before, shown and enabled; it may have no time to answer.
    std::string Opened(std::istream& arguments) {
        Search search{ToWide(Rest(arguments)), window_};
        Wait([&search] {
            EnumWindows(Look, reinterpret_cast<LPARAM>(&search));
            return search.found != nullptr;
        });
        before_.push_back(window_);
        window_ = search.found;
        SetForegroundWindow(window_);
        SetCursorPos(0, 0);  // where the mouse lights nothing up
        return {};
    }

    // leave ID: presses a button that closes the window, and turns to the one that was there before.
    std::string Leave(std::istream& arguments) {
        Press(arguments);
        return Gone(arguments);
    }

    // gone: the window closes by itself, in favour of the one before.
    std::string Gone(std::istream& /*arguments*/) {
        Wait([this] { return IsWindow(window_) == FALSE; });
        window_ = before_.back();
        before_.pop_back();
        return {};
    }

    // press ID: a button.
    std::string Press(std::istream& arguments) {
        PostMessageW(Control(arguments), BM_CLICK, 0, 0);
        return {};
    }

    // choose ID INDEX: an item of a combo box.
    std::string Choose(std::istream& arguments) {
        const HWND combo = Control(arguments);
        SendMessageW(combo, CB_SETCURSEL, static_cast<WPARAM>(Number(arguments)), 0);
        PostMessageW(window_, WM_COMMAND, MAKEWPARAM(GetDlgCtrlID(combo), CBN_SELCHANGE),
                     reinterpret_cast<LPARAM>(combo));
        return {};
    }

    // type ID TEXT: replaces the content of an edit.
    std::string Type(std::istream& arguments) {
        const HWND edit = Control(arguments);
        SendMessageW(edit, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(ToWide(Rest(arguments)).c_str()));
        return {};
    }

    // click ID ROW, doubleclick ID ROW, details ID ROW COLUMN (the right button), check ID ROW: of a list.
    std::string Click(std::istream& arguments) {
        const HWND list = Control(arguments);
        Mouse(list, WM_LBUTTONDOWN, WM_LBUTTONUP, Cell(list, Number(arguments), 0));
        return {};
    }

    std::string DoubleClick(std::istream& arguments) {
        const HWND list = Control(arguments);
        const LPARAM at = Cell(list, Number(arguments), 0);
        Mouse(list, WM_LBUTTONDOWN, WM_LBUTTONUP, at);
        Mouse(list, WM_LBUTTONDBLCLK, WM_LBUTTONUP, at);
        return {};
    }

    std::string Details(std::istream& arguments) {
        const HWND list = Control(arguments);
        const int row = Number(arguments);
        Mouse(list, WM_RBUTTONDOWN, WM_RBUTTONUP, Cell(list, row, Number(arguments)));
        return {};
    }

    std::string Check(std::istream& arguments) {
        const HWND list = Control(arguments);
        const LPARAM cell = Cell(list, Number(arguments), 0);
        const int insideTheBox = GetSystemMetrics(SM_CXSMICON) / 2;
        Mouse(list, WM_LBUTTONDOWN, WM_LBUTTONUP, MAKELPARAM(insideTheBox, HIWORD(cell)));
        return {};
    }

    // menu COMMAND, system COMMAND: of the menu bar, of the system menu.
    std::string Menu(std::istream& arguments) {
        PostMessageW(window_, WM_COMMAND, static_cast<WPARAM>(Number(arguments)), 0);
        return {};
    }

    std::string System(std::istream& arguments) {
        PostMessageW(window_, WM_SYSCOMMAND, static_cast<WPARAM>(Number(arguments)), 0);
        return {};
    }

    // place: where the window is on the screen, as WIDTHxHEIGHT+X+Y.
    std::string Place(std::istream& /*arguments*/) {
        RECT place{};
        GetWindowRect(window_, &place);
        std::ostringstream text;
        text << place.right - place.left << 'x' << place.bottom - place.top << '+' << place.left << '+' << place.top;
        return text.str();
    }

    static int Number(std::istream& arguments) {
        int number = 0;
        if (!(arguments >> number)) throw std::runtime_error("a number is missing");
        return number;
    }

    HWND Control(std::istream& arguments) const {
        const HWND control = GetDlgItem(window_, Number(arguments));
        if (control == nullptr) throw std::runtime_error("there is no such control");
        return control;
    }

    // The middle of a cell. Everything it asks for can be asked of another process.
    static LPARAM Cell(HWND list, int row, int column) {
        const auto ask = [list](UINT message, WPARAM first, LPARAM second) {
            return static_cast<LPARAM>(SendMessageW(list, message, first, second));
        };
        ask(LVM_ENSUREVISIBLE, static_cast<WPARAM>(row), FALSE);
        RECT header{};
        GetClientRect(reinterpret_cast<HWND>(ask(LVM_GETHEADER, 0, 0)), &header);
        const auto height = [&ask](WPARAM rows) { return HIWORD(ask(LVM_APPROXIMATEVIEWRECT, rows, 0)); };
        const LPARAM rowHeight = height(2) - height(1);
        LPARAM x = ask(LVM_GETCOLUMNWIDTH, static_cast<WPARAM>(column), 0) / 2;
        for (int before = 0; before < column; ++before) x += ask(LVM_GETCOLUMNWIDTH, static_cast<WPARAM>(before), 0);
        const LPARAM y = header.bottom + (row - ask(LVM_GETTOPINDEX, 0, 0)) * rowHeight + rowHeight / 2;
        return MAKELPARAM(x, y);
    }

    static void Mouse(HWND control, UINT down, UINT up, LPARAM at) {
        PostMessageW(control, down, down == WM_RBUTTONDOWN ? MK_RBUTTON : MK_LBUTTON, at);
        PostMessageW(control, up, 0, at);
    }

    HWND window_ = nullptr;
    std::vector<HWND> before_;
};

}  // namespace

int main() {
    Hands hands;
    for (std::string line; std::getline(std::cin, line);) {
        try {
            const std::string answer = hands.Do(line);
            std::cout << "ok " << answer << std::endl;
        } catch (const std::exception& failure) {
            std::cout << "failed " << failure.what() << std::endl;
        }
    }
    return 0;
}
