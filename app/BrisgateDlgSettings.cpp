// The main dialog's commands on the settings that all profiles share.
#include <utility>

#include "app/BrisgateDlg.h"
#include "settings/ConfigPage.h"
#include "settings/ConflictDlg.h"

namespace app {

void CBrisgateDlg::EditLogSettings() {
    config::GlobalSettings& all = configuration_.Settings;
    settings::CConflictDlg dialog(services_, this, all.LogPath, all.LogFilesize);
    if (RunForm(dialog) != ui::IdOk) return;
    all.LogPath = dialog.LogPath();
    all.LogFilesize = dialog.LogFilesize();
    changed_ = true;
}

void CBrisgateDlg::EditExtensions() {
    settings::CConfigPage dialog(services_.Screen, this, configuration_.Settings);
    if (RunForm(dialog) != ui::IdOk) return;
    config::GlobalSettings result = dialog.Result();
    configuration_.Settings = std::move(result);  // all of them or none
    changed_ = true;
}

}  // namespace app
