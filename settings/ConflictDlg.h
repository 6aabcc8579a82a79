// Sets where the service writes its log and how large a log file may grow.
#pragma once

#include <cstdint>
#include <string>

#include "config/RegistryLayout.h"
#include "config/Services.h"
#include "ui/Controls.h"
#include "ui/Dialog.h"

namespace settings {

class CConflictDlg : public ui::Dialog {
  public:
    // logFilesize: in KB.
    CConflictDlg(const config::Services& services, ui::Dialog* owner, std::wstring logPath, int32_t logFilesize);

    // As given, and replaced by what OK accepts.
    const std::wstring& LogPath() const { return logPath_; }
    int32_t LogFilesize() const { return logFilesize_; }  // in KB

  private:
    void OnInitDialog() override;
    void OnOK() override;

    void PickFolder();
    void CorrectSize();
    bool CheckExists(const std::wstring& path);
    void ReportBadPath(const std::wstring& path, uint32_t code);

    const config::Services services_;
    std::wstring logPath_;
    int32_t logFilesize_;

    ui::Button pick_{*this, 1090, {7, 8, 58, 24}, L"Log path", [this] { PickFolder(); }};
    ui::Edit path_{*this, 1091, {68, 13, 182, 14}, {.longest = config::LongestText}};
    ui::Label sizeLabel_{*this, 1132, {9, 38, 103, 8}, L"Log files size (KB.):"};
    ui::Edit size_{*this, 1133, {114, 37, 40, 14}, {.digitsOnly = true}, [this] { CorrectSize(); }};
    ui::Button ok_{*this, ui::IdOk, {151, 54, 50, 14}, L"OK"};
    ui::Button exit_{*this, ui::IdCancel, {207, 54, 50, 14}, L"Exit"};
};

}  // namespace settings
