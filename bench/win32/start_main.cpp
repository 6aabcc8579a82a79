// Times the start of the editor up to a window that answers, beside an empty dialog program and one that
// makes a window like the editor's with bare calls, all built with the same flags, in turn; then the memory
// that each holds while nothing happens. Prints lines for the table.
#include <windows.h>

#include <psapi.h>

#include <filesystem>
#include <optional>
#include <stdexcept>
#include <string>

#include "bench/Measuring.h"

namespace {

constexpr int rounds = 15;
constexpr DWORD patience = 30'000;  // milliseconds
constexpr UINT answerTime = 5'000;

struct Program {
    std::wstring file;
    std::wstring title;
};

const Program editor{L"brisgate.exe", L"ZEMA AC QLD Service - configuration"};
const Program emptyDialog{L"brisgate_empty_dialog.exe", L"Empty dialog"};
const Program bareWindow{L"brisgate_bare_window.exe", L"Bare window"};

class Process {
  public:
    explicit Process(const Program& program) : title_(program.title) {
        std::wstring command = L"\"" + std::filesystem::absolute(program.file).wstring() + L"\"";
        STARTUPINFOW startup{};
        startup.cb = sizeof startup;
        if (CreateProcessW(nullptr, command.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &startup,
                           &process_) == FALSE)
            throw std::runtime_error("a program does not start");
    }
    ~Process() {
        TerminateProcess(process_.hProcess, 1);
        WaitForSingleObject(process_.hProcess, patience);
        CloseHandle(process_.hThread);
        CloseHandle(process_.hProcess);
    }
    Process(const Process&) = delete;
    Process& operator=(const Process&) = delete;

    // Until the window is there and has worked off what it had to do.
    void WaitUntilUsable() const {
        const ULONGLONG end = GetTickCount64() + patience;
        while (GetTickCount64() < end) {
            const HWND window = FindWindowW(nullptr, title_.c_str());
            DWORD_PTR answer = 0;
            if (window != nullptr && IsWindowVisible(window) != FALSE &&
                SendMessageTimeoutW(window, WM_NULL, 0, 0, SMTO_NORMAL, answerTime, &answer) != 0)
                return;
            Sleep(1);
        }
        throw std::runtime_error("a window does not appear");
    }

    double IdleKilobytes() const {
        WaitForInputIdle(process_.hProcess, patience);
        Sleep(500);  // drawing goes on for a moment behind the system's back
        PROCESS_MEMORY_COUNTERS memory{};
        memory.cb = sizeof memory;
        if (K32GetProcessMemoryInfo(process_.hProcess, &memory, sizeof memory) == FALSE)
            throw std::runtime_error("no memory figures");
        return static_cast<double>(memory.WorkingSetSize) / 1024.0;
    }

  private:
    const std::wstring title_;
    PROCESS_INFORMATION process_{};
};

double StartMilliseconds(const Program& program) {
    std::optional<Process> process;
    return bench::Milliseconds([&] {
        process.emplace(program);
        process->WaitUntilUsable();
    });
}

}  // namespace

int main() {
    StartMilliseconds(editor);  // brings the files into the system's cache
    StartMilliseconds(emptyDialog);
    StartMilliseconds(bareWindow);
    bench::Pairs starts;
    bench::Pairs bareStarts;
    bench::Pairs memory;
    for (int round = 0; round < rounds; ++round) {
        const double ours = StartMilliseconds(editor);
        starts.Add(ours, StartMilliseconds(emptyDialog));
        bareStarts.Add(ours, StartMilliseconds(bareWindow));
    }
    for (int round = 0; round < 3; ++round) {
        const auto idle = [](const Program& program) {
            const Process process(program);
            process.WaitUntilUsable();
            return process.IdleKilobytes();
        };
        memory.Add(idle(editor), idle(emptyDialog));
    }
    starts.Print("start to usable window", "demo", "ms");
    bareStarts.Print("start, beside a like window made bare", "demo", "ms");
    memory.Print("idle memory", "demo", "KB");
    return 0;
}
