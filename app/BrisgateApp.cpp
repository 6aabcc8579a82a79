#include "app/BrisgateApp.h"

#include <exception>
#include <new>

#include "app/BrisgateDlg.h"
#include "config/RegistryStore.h"
#include "errors/ErrorReport.h"
#include "errors/MessageBoxes.h"
#include "text/Format.h"

namespace app {
namespace {

class HeldLock {
  public:
    explicit HeldLock(platform::InstanceLock& lock) : lock_(lock) {}
    ~HeldLock() { lock_.Release(); }
    HeldLock(const HeldLock&) = delete;
    HeldLock& operator=(const HeldLock&) = delete;

  private:
    platform::InstanceLock& lock_;
};

void ShowFatal(ui::Screen& screen, const std::wstring& reason) {
    errors::PlainMessageBox(screen, nullptr, text::Format(L"The program has to end.\r\n%s", reason),
                            ui::box::Ok | ui::box::ErrorIcon);
}

}  // namespace

CBrisgateApp::CBrisgateApp(const platform::Machine& machine, ui::Screen& screen, platform::Guide& guide)
    : machine_(machine),
      screen_(screen),
      memoryBox_(screen) {
    screen_.SetFailureHandler([this](const ui::Dialog& dialog, const ui::ScreenError* failure) {
        if (failure == nullptr) return memoryBox_.CommandEnded(dialog);
        errors::ErrorReporter(machine_, screen_)
            .ErrorReport({.owner = &dialog},
                         {.code = failure->Code(), .operation = failure->Operation(), .argument = {}});
    });
    screen_.SetGuideHandler([this, &guide](const ui::Dialog& dialog) {
        if (guide.Show(dialog.Style().guidePage) != platform::code::Success)
            errors::Warn(screen_, &dialog,
                         L"The guide cannot be opened. It belongs into the folder \"guide\" beside the program.");
    });
}

CBrisgateApp::~CBrisgateApp() {
    screen_.SetFailureHandler({});
    screen_.SetGuideHandler({});
}

void CBrisgateApp::InitInstance() {
    try {
        Run();
    } catch (const std::bad_alloc&) {
        memoryBox_.ProgramEnds();
    }
}

void CBrisgateApp::Run() {
    try {
        if (!TakeInstanceLock()) return;
        const HeldLock lock(machine_.InstanceLock);
        RunMainDialog();
    } catch (const std::bad_alloc&) {
        throw;
    } catch (const std::exception& exception) {
        ShowFatal(screen_, machine_.CodePage.ToWide(exception.what()));
    }
}

bool CBrisgateApp::TakeInstanceLock() {
    if (machine_.InstanceLock.IsHeldByAnother(errors::ProgramTitle)) {
        errors::Warn(screen_, nullptr, text::Format(L"%s allready started", errors::ProgramTitle));
        return false;
    }
    const platform::Win32Code code = machine_.InstanceLock.Acquire(errors::ProgramTitle);
    if (code == platform::code::Success) return true;
    errors::ErrorReporter(machine_, screen_)
        .ErrorReport({}, {.code = code, .operation = L"Create programm process mutex", .argument = {}});
    return false;
}

void CBrisgateApp::RunMainDialog() {
    const errors::ErrorReporter reporter(machine_, screen_);
    config::RegistryStore registry(machine_, reporter);
    const config::Services services{machine_, screen_, reporter, registry};
    CBrisgateDlg(services).DoModal();
}

}  // namespace app
