// Random configurations of which something cannot be read back, and what loading makes of all the others.
#pragma once

#include <algorithm>
#include <cstdint>
#include <random>
#include <string>
#include <utility>
#include <vector>

#include "config/RoundTrip.h"
#include "tests/config/Fields.h"
#include "tests/config/RandomModel.h"
#include "text/Case.h"

namespace tests {

// As loading gives what has been saved: names in the registry's order, what is missing filled in, no empty
// entries in lists of texts, no rules without an operation.
inline void PutAsLoaded(config::Rule& rule) {
    config::SetLegacyArchiveKind(rule);
    rule.Mask.clear();
    if (rule.Masks.empty()) rule.Masks.emplace_back();
    if (!rule.Certificates.empty() && rule.Operation == L"RESG" && rule.ResignProfile.empty())
        rule.ResignProfile = rule.Certificates[0];
    if (!rule.Certificates.empty() && rule.Operation == L"MOVE" && rule.PathOut2.empty())
        rule.PathOut2 = rule.Certificates[0];
    std::sort(rule.SignerLists.begin(), rule.SignerLists.end(),
              [](const auto& a, const auto& b) { return text::Upper(a.Name) < text::Upper(b.Name); });
}

inline config::Configuration AsLoaded(config::Configuration configuration) {
    config::GlobalSettings& settings = configuration.Settings;
    settings.LogFilesize = std::max(settings.LogFilesize, config::SmallestLogFilesize);
    for (config::ServiceProfile& profile : configuration.Profiles) {
        for (auto* list : {&profile.ServerTSP, &profile.ZCSProfile})
            std::replace(list->begin(), list->end(), std::wstring(), std::wstring(L"0"));
        if (profile.CrlUpdatePeriod.size() < profile.NotLoadCrl.size())
            profile.CrlUpdatePeriod.resize(profile.NotLoadCrl.size(), 1);
        std::erase_if(profile.Rules, [](const config::Rule& rule) { return rule.Operation.empty(); });
        for (config::Rule& rule : profile.Rules) PutAsLoaded(rule);
    }
    std::sort(configuration.Profiles.begin(), configuration.Profiles.end(),
              [](const auto& a, const auto& b) { return text::Upper(a.Name) < text::Upper(b.Name); });
    return configuration;
}

// Does things to a configuration of one profile or more.
class Saboteur {
  public:
    explicit Saboteur(uint32_t seed) : random_(seed) {}

    // What loading puts right by itself.
    void Loosen(config::Configuration& configuration);
    // What it cannot: where that is, without the words for the field.
    config::Unreadable Damage(config::Configuration& configuration);

  private:
    using Reason = config::Unreadable::Reason;

    size_t Below(size_t limit) { return random_() % limit; }
    template <class T>
    T& Any(std::vector<T>& entries) {
        return entries.at(Below(entries.size()));
    }
    // Either too long, or with a zero in it.
    Reason Spoil(std::wstring& text) {
        if (Below(2) == 0) {
            text.resize(520 + Below(400), L'x');
            std::replace(text.begin(), text.end(), L'\0', L'0');
            return Reason::TextTooLong;
        }
        text.resize(std::min<size_t>(text.size(), 518));
        return PutZero(text);
    }
    Reason PutZero(std::wstring& text) {
        text.insert(Below(text.size() + 1), 1, L'\0');
        return Reason::ZeroCharacter;
    }
    template <class Record>
    Reason SpoilText(Record& record) {
        std::vector<Field> texts = FieldsOf(record);
        std::erase_if(texts, [](const Field& field) { return !field.IsText(); });
        const Field& field = Any(texts);
        std::wstring text = field.Text();
        const Reason why = Spoil(text);
        field.SetText(text);
        return why;
    }
    template <class Named>
    Reason SpoilName(std::vector<Named>& siblings, size_t at);
    Reason SpoilList(std::vector<std::wstring>& list, bool plain);
    Reason SpoilRule(config::Rule& rule);

    std::mt19937 random_;
};

inline void Saboteur::Loosen(config::Configuration& configuration) {
    configuration.Settings.LogFilesize = static_cast<int32_t>(Below(800));
    std::shuffle(configuration.Profiles.begin(), configuration.Profiles.end(), random_);
    config::ServiceProfile& profile = Any(configuration.Profiles);
    profile.ServerTSP.emplace_back();
    profile.ZCSProfile.insert(profile.ZCSProfile.begin(), std::wstring());
    profile.NotLoadCrl.push_back(1);
    if (profile.Rules.empty()) return;
    config::Rule& rule = Any(profile.Rules);
    rule.Mask = L"*.old";
    rule.Masks.clear();
    rule.ZipFile = 0;
    rule.PathOut2.clear();
    rule.ResignProfile.clear();
    std::shuffle(rule.SignerLists.begin(), rule.SignerLists.end(), random_);
    config::Rule& unfinished = Any(profile.Rules);
    unfinished.Operation.clear();
    unfinished.Descryption = std::wstring(600, L'x');
}

template <class Named>
inline config::Unreadable::Reason Saboteur::SpoilName(std::vector<Named>& siblings, size_t at) {
    std::wstring& name = siblings[at].Name;
    switch (Below(5)) {
        case 0:
            name.clear();
            return Reason::Empty;
        case 1:
            name.resize(257 + Below(10), L'n');  // Wine takes one of 256 as well
            return Reason::NameTooLong;
        case 2:
            name.insert(Below(name.size() + 1), 1, L'\\');
            return Reason::Backslash;
        case 3:
            return PutZero(name);
        default:
            siblings.push_back(siblings[at]);
            std::wstring& twin = siblings.back().Name;
            for (wchar_t& unit : twin)
                if (unit >= L'a' && unit <= L'z') unit = static_cast<wchar_t>(unit - 32);
            return Reason::SharedKey;
    }
}

inline config::Unreadable::Reason Saboteur::SpoilList(std::vector<std::wstring>& list, bool plain) {
    std::wstring& entry = *list.emplace(list.begin() + static_cast<std::ptrdiff_t>(Below(list.size() + 1)));
    if (plain && Below(2) == 0) return Reason::Empty;
    entry = L"ab";
    return PutZero(entry);
}

inline config::Unreadable::Reason Saboteur::SpoilRule(config::Rule& rule) {
    switch (Below(5)) {
        case 0:
            return SpoilText(rule);
        case 1:
            return Spoil(rule.Masks.emplace_back());
        case 2:
            return Spoil(rule.Certificates.emplace_back());
        case 3:
            return Spoil(Any(rule.SignerLists).Signers.emplace_back());
        default:
            return SpoilName(rule.SignerLists, Below(rule.SignerLists.size()));
    }
}

inline config::Unreadable Saboteur::Damage(config::Configuration& configuration) {
    const size_t at = Below(configuration.Profiles.size());
    config::ServiceProfile& profile = configuration.Profiles[at];
    switch (Below(6)) {
        case 0:
            return {{}, {}, {}, SpoilText(configuration.Settings)};
        case 1:
            return {{}, {}, {}, SpoilList(configuration.Settings.ExtExt, true)};
        case 2: {
            const Reason why = SpoilName(configuration.Profiles, at);
            const auto& named = why == Reason::SharedKey ? configuration.Profiles.back() : configuration.Profiles[at];
            return {named.Name, {}, {}, why};
        }
        case 3:
            return {profile.Name, {}, {}, SpoilList(Below(2) == 0 ? profile.ServerTSP : profile.ZCSProfile, false)};
        default: {
            config::Rule& rule = profile.Rules.emplace_back();
            rule.Operation = L"HASH";
            rule.Masks = {L"*"};
            rule.SignerLists = {{L"chiefs", {L"CN=Anna"}}, {L"Clerks", {}}};
            return {profile.Name, profile.Rules.size() - 1, {}, SpoilRule(rule)};
        }
    }
}

}  // namespace tests
