#include "settings/ConflictDlg.h"

#include <algorithm>

#include "config/Records.h"
#include "platform/Paths.h"
#include "text/Numbers.h"

namespace settings {

namespace code = platform::code;

CConflictDlg::CConflictDlg(const config::Services& services, ui::Dialog* owner, std::wstring logPath,
                           int32_t logFilesize)
    : Dialog(services.Screen, owner, {.size = {264, 75}, .guidePage = L"settings"}, L"Log path"),
      services_(services),
      logPath_(std::move(logPath)),
      logFilesize_(logFilesize) {
    path_.SetName(L"Log path");
}

void CConflictDlg::OnInitDialog() {
    path_.SetText(logPath_);
    size_.SetText(text::Decimal(logFilesize_));
    path_.SetFocus();  // on the button before it, Enter would ask for a folder
}

// The field says the number that OK will take, whatever has been typed.
void CConflictDlg::CorrectSize() {
    size_.SetText(text::Decimal(std::max(size_.Number(), config::SmallestLogFilesize)));
}

void CConflictDlg::PickFolder() {
    const auto folder = Screen().PickFolder(this, path_.Text());
    if (!folder) return;
    static_cast<void>(CheckExists(*folder));
    path_.SetText(*folder);  // also one that has just gone, so that it can be put right
}

// False after a report.
bool CConflictDlg::CheckExists(const std::wstring& path) {
    const ui::WaitCursor wait(Screen());  // a server that is gone takes its time
    const platform::Win32Code result = services_.Machine.Files.CheckPathExists(path);
    if (result == code::Success || result == code::FileExists) return true;
    ReportBadPath(path, result);
    return false;
}

void CConflictDlg::ReportBadPath(const std::wstring& path, uint32_t code) {
    std::wstring shownAfter = L"Bad Log path.";
    services_.Errors.ErrorReport({.owner = this}, {.code = code, .operation = L"Opening file %s", .argument = path},
                                 &shownAfter);
}

void CConflictDlg::OnOK() {
    const std::wstring path = path_.Text();
    if (!CheckExists(path)) return path_.SetFocus();
    if (size_.Number() < config::SmallestLogFilesize) {
        Screen().ShowMessageBox(this, L"Log files size must be bigger than 400 KB.",
                                L"ZEMA automized client QLD: Service", ui::box::Ok | ui::box::ExclamationIcon);
        return size_.SetFocus();
    }
    // It exists as seen from the editor's own folder, where the service does not look.
    if (!platform::NamesADriveOrServer(path)) {
        ReportBadPath(path, code::PathNotFound);
        return path_.SetFocus();
    }
    logPath_ = path;
    logFilesize_ = size_.Number();
    EndDialog(ui::IdOk);
}

}  // namespace settings
