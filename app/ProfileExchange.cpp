#include "app/ProfileExchange.h"

#include <iterator>
#include <optional>
#include <string>

#include "config/ExchangeFile.h"
#include "config/ExchangeFiles.h"
#include "errors/MessageBoxes.h"

namespace app {
namespace {

std::optional<std::wstring> PickRulesFile(const config::Services& services, const ui::Dialog* owner,
                                          ui::FilePickerKind kind, const std::wstring& proposal = {}) {
    return services.Screen.PickFile(owner, config::ExchangeFilePicker(kind, L"Profiles", L"prx", proposal));
}

}  // namespace

void ExportRules(const config::Services& services, const ui::Dialog* owner,
                 const config::ServiceProfile& profile) {
    if (profile.Rules.empty()) return errors::Warn(services.Screen, owner, L"Profile contains no rules.");
    const std::string text = config::ExchangeText(profile.Rules, services.Machine.CodePage);
    const auto path = PickRulesFile(services, owner, ui::FilePickerKind::Save, profile.Name);
    if (!path) return;
    const ui::WaitCursor wait(services.Screen);
    config::WriteWholeFile(services, owner, *path, text);
}

bool ImportRules(const config::Services& services, const ui::Dialog* owner, config::ServiceProfile& profile) {
    const auto path = PickRulesFile(services, owner, ui::FilePickerKind::Open);
    if (!path) return false;
    const ui::WaitCursor wait(services.Screen);
    const auto content = config::ReadWholeFile(services, owner, *path);
    if (!content) return false;
    config::ExchangedRules exchanged = config::ParseExchangeText(content->Bytes(), services.Machine.CodePage);
    profile.Rules.insert(profile.Rules.end(), std::make_move_iterator(exchanged.rules.begin()),
                         std::make_move_iterator(exchanged.rules.end()));
    return exchanged.anyRecord;
}

}  // namespace app
