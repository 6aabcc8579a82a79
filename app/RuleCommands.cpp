#include "app/RuleCommands.h"

#include <algorithm>
#include <iterator>
#include <optional>
#include <ranges>
#include <unordered_set>

#include "config/ExchangeFormat.h"
#include "config/ReportingFile.h"
#include "errors/MessageBoxes.h"

namespace app {
namespace {

std::optional<std::wstring> PickRulesFile(const config::Services& services, const ui::Dialog* owner,
                                          ui::FilePickerKind kind, const std::wstring& proposal = {}) {
    return services.Screen.PickFile(owner, config::ExchangeFilePicker(kind, L"Profiles", L"prx", proposal));
}

}  // namespace

std::vector<std::wstring> SuggestedMasks(const config::GlobalSettings& settings, std::span<const config::Rule> rules) {
    std::unordered_set<std::wstring> known;
    const auto offer = [&known](std::vector<std::wstring>& masks, const std::wstring& mask) {
        if (!mask.empty() && known.insert(mask).second) masks.push_back(mask);
    };
    std::vector<std::wstring> ofExtensions;
    for (const std::wstring* extension : {&settings.SigExt, &settings.DsigExt, &settings.EncExt, &settings.B64Ext,
                                          &settings.HashExt, &settings.VerifyFileExt})
        offer(ofExtensions, L"*." + *extension);
    for (const std::wstring& extension : settings.ExtExt) offer(ofExtensions, L"*." + extension);

    std::vector<std::wstring> masks;  // of the rules, the last one first: a mask stands where it is used last
    for (const config::Rule& rule : rules | std::views::reverse)
        for (const std::wstring& mask : rule.Masks | std::views::reverse) offer(masks, mask);
    std::reverse(masks.begin(), masks.end());
    masks.insert(masks.end(), ofExtensions.begin(), ofExtensions.end());
    return masks;
}

void MoveRule(std::vector<config::Rule>& rules, size_t from, size_t to) {
    const auto at = [&rules](size_t position) { return rules.begin() + static_cast<std::ptrdiff_t>(position); };
    if (from < to) {
        std::rotate(at(from), at(from + 1), at(to + 1));
    } else {
        std::rotate(at(to), at(from), at(from + 1));
    }
}

void MoveRulesToFirstCsProfile(config::ServiceProfile& profile, std::span<const std::wstring> removed) {
    if (profile.ZCSProfile.empty()) return;
    const std::wstring& first = profile.ZCSProfile.front();
    for (config::Rule& rule : profile.Rules)
        for (config::Rule::Text* used : {&rule.ZCSProfile, &rule.ResignProfile})
            if (std::find(removed.begin(), removed.end(), *used) != removed.end()) *used = first;
}

void ExportRules(const config::Services& services, const ui::Dialog* owner, const config::ServiceProfile& profile) {
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
