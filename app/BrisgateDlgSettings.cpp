// The main dialog's commands on the settings that all profiles share.
#include "app/BrisgateDlg.h"
#include "settings/ConfigPage.h"
#include "settings/ConflictDlg.h"

namespace app {

void CBrisgateDlg::EditLogSettings() {
    config::GlobalSettings& all = configuration_.Settings;
    settings::CConflictDlg dialog(services_, this, all.LogPath, all.LogFilesize);
    if (dialog.DoModal() != ui::IdOk) return;
    all.LogPath = dialog.LogPath();
    all.LogFilesize = dialog.LogFilesize();
    changed_ = true;
}

void CBrisgateDlg::EditExtensions() {
    settings::CConfigPage dialog(services_.Screen, this, configuration_.Settings);
    if (dialog.DoModal() != ui::IdOk) return;
    configuration_.Settings = dialog.Result();
    changed_ = true;
}

}  // namespace app
