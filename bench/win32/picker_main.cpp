// Times, in the certificate picker, the way from a click on "From local store" to the painted list, beside
// the time that the library (the stand-in) takes for the same search alone. Prints a line for the table.
#include <windows.h>

#include <commctrl.h>

#include <functional>
#include <random>
#include <stdexcept>
#include <string>

#include "bench/Measuring.h"
#include "certs/PreEncryptDlg.h"
#include "crypto/LibrarySearch.h"
#include "demo/StandInLibrary.h"
#include "platform/win32/Win32Machine.h"
#include "ui/win32/Win32Screen.h"

namespace {

namespace kseal = platform::kseal;

constexpr size_t names = 100'000;
constexpr int rounds = 9;
constexpr int fromLocalStore = 1215;
constexpr int candidateList = 1214;

// All different, of 80 to 150 characters.
demo::StandInOwners Owners() {
    std::mt19937 random(7);
    demo::StandInOwners owners;
    owners.Certificates.reserve(names);
    for (size_t i = 0; i < names; ++i) {
        std::string name = "CN=User " + std::to_string(random()) + ",O=Office " + std::to_string(random() % 1000) +
                           ",OU=Department of inner matters,L=Town " + std::to_string(i) + ",C=RU,T=";
        name.append(20 + random() % 50, static_cast<char>('a' + random() % 26));
        owners.Certificates.push_back({.OwnerName = std::move(name)});
    }
    return owners;
}

kseal::Context OpenedContext() {
    kseal::Context context = nullptr;
    if (demo::StandInLibrary::Exports().Initialize("bench", 0, &context) != 0) throw std::runtime_error("no context");
    return context;
}

void SearchDirectly(kseal::Context context) {
    kseal::CertFindRequest request;
    request.SearchWord = 0x100;
    request.FieldsWanted = 132;
    kseal::CertFindResult result;
    const kseal::Exports& library = demo::StandInLibrary::Exports();
    if (library.FindCert(context, &request, &result) != 0 || result.Count != names)
        throw std::runtime_error("the library does not find its names");
    library.FreeFindResult(context, &result);
}

void ClickAndPaint(HWND picker) {
    SendMessageW(GetDlgItem(picker, fromLocalStore), BM_CLICK, 0, 0);
    const HWND list = GetDlgItem(picker, candidateList);
    RedrawWindow(picker, nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
    GdiFlush();
    if (SendMessageW(list, LVM_GETITEMCOUNT, 0, 0) != static_cast<LRESULT>(names) ||
        GetUpdateRect(list, nullptr, FALSE) != FALSE)
        throw std::runtime_error("the list does not show the names");
}

std::function<void(HWND)> inPicker;

// Hears of the picker from its own message loop, once it is there.
void CALLBACK LookForPicker(HWND /*none*/, UINT /*message*/, UINT_PTR timer, DWORD /*time*/) {
    const HWND picker = FindWindowW(nullptr, L"Add recipients");
    if (picker == nullptr || IsWindowVisible(picker) == FALSE) return;
    KillTimer(nullptr, timer);
    UpdateWindow(picker);
    inPicker(picker);
    PostMessageW(picker, WM_COMMAND, IDCANCEL, 0);
}

}  // namespace

int main() {
    platform::win32::Win32Machine machine;
    ui::win32::Win32Screen screen(machine.ScreenMetrics);
    const errors::ErrorReporter reporter(machine.Machine, screen);
    config::RegistryStore store(machine.Machine, reporter);
    const config::Services services{machine.Machine, screen, reporter, store};

    demo::StandInLibrary library;
    library.Serve(Owners());
    const crypto::CryptoContext context(demo::StandInLibrary::Exports(), OpenedContext(), reporter);
    const crypto::PickerSettings settings;
    crypto::LibrarySearch search(services, context, settings);

    bench::Pairs times;
    inPicker = [&](HWND picker) {
        const double ours = bench::Milliseconds([picker] { ClickAndPaint(picker); });
        times.Add(ours, bench::Milliseconds([&context] { SearchDirectly(context.Handle()); }));
    };
    for (int round = 0; round < rounds; ++round) {
        certs::CPreEncryptDlg picker(services, nullptr, search, settings, {});
        SetTimer(nullptr, 0, USER_TIMER_MINIMUM, LookForPicker);
        picker.DoModal();
    }
    times.Print("names from the local store, painted", "100,000 names", "ms");
    return 0;
}
