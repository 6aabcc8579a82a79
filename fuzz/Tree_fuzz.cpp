// Any tree of keys and values as the registry that the program finds. It is loaded, or refused with one
// report; what was loaded is saved, loaded again and must be the same, but for the few things that saving is
// meant to change.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <optional>
#include <set>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "config/Load.h"
#include "config/RegistryLayout.h"
#include "config/Save.h"
#include "fuzz/Input.h"
#include "fuzz/Reports.h"
#include "fuzz/TreeText.h"
#include "platform/memory/MemoryMachine.h"
#include "text/Case.h"

namespace {

using config::Configuration;
using fuzz::Require;
using platform::RootKey;

// The machine, and the program's loading and saving on it.
class Program {
  public:
    explicit Program(std::string_view tree) { fuzz::BuildTree(tree, machine_.StoredRegistry); }

    // Nothing when loading was refused.
    std::optional<Configuration> Load() {
        reports_.Forget();
        std::optional<Configuration> loaded;
        {
            config::RegistryStore store(direct_, reporter_);
            loaded = config::LoadConfiguration(store, nullptr);
        }
        CheckReports(loaded ? 0 : 1);
        return loaded;
    }

    void Save(const Configuration& configuration) {
        reports_.Forget();
        {
            config::RegistryStore store(direct_, reporter_);
            Require(config::SaveConfiguration(store, nullptr, configuration));
        }
        // All that saving reads is the name of the network store.
        CheckReports(0);
        Require(reports_.CountOf(L"Reading string value 'name'") == reports_.Count());
    }

    fuzz::Tree User() { return fuzz::ReadTree(machine_.StoredRegistry, RootKey::CurrentUser, L""); }
    fuzz::Tree Service() { return fuzz::ReadTree(machine_.StoredRegistry, RootKey::LocalMachine, config::ServiceRoot); }

  private:
    // The only values that a registry in memory refuses are texts that are too long.
    void CheckReports(size_t refusedKeys) const {
        Require(reports_.CountOf(L"Create (open) register key HKEY_") == refusedKeys);
        Require(reports_.CountOf(L"Reading string value '") + refusedKeys == reports_.Count());
        Require(machine_.StoredRegistry.OpenKeys() == 0);
    }

    platform::memory::MemoryMachine machine_;
    // Without the registry that records every call: there are many.
    const platform::Machine direct_{machine_.StoredRegistry, machine_.Files,  machine_.CodePage,
                                    machine_.SystemMessages, machine_.Clock,  machine_.InstanceLock,
                                    machine_.ScreenMetrics,  machine_.Memory, machine_.CryptoLibrary};
    fuzz::Reports reports_{machine_.ScreenMetrics};
    const errors::ErrorReporter reporter_{direct_, reports_};
};

// The rules under the keys that saving gives them, as they are found again: by the alphabet, then with
// count - 2 passes of exchanging neighbours by their numbers.
void PutInLoadedOrder(std::vector<config::Rule>& rules) {
    struct Numbered {
        size_t number;
        config::Rule rule;
    };
    std::vector<Numbered> stored;
    for (size_t i = 0; i < rules.size(); ++i)
        if (!rules[i].Operation.empty()) stored.push_back({i, rules[i]});
    std::sort(stored.begin(), stored.end(),
              [](const Numbered& a, const Numbered& b) { return std::to_string(a.number) < std::to_string(b.number); });
    for (size_t pass = 2; pass < stored.size(); ++pass)
        for (size_t i = 0; i + 1 < stored.size(); ++i)
            if (stored[i].number > stored[i + 1].number) std::swap(stored[i], stored[i + 1]);
    rules.clear();
    for (Numbered& each : stored) rules.push_back(std::move(each.rule));
}

// What loading must give when this has been saved.
Configuration AsFoundAgain(Configuration configuration) {
    for (config::ServiceProfile& profile : configuration.Profiles) {
        PutInLoadedOrder(profile.Rules);
        for (config::Rule& rule : profile.Rules) {
            rule.Mask.clear();  // the older form's, now one of the masks
            if (rule.Masks.empty()) rule.Masks.emplace_back();
        }
    }
    return configuration;
}

// Every entry was a value of the tree, or stands in a gap of at most 256 before one or after the last.
void CheckSize(const Configuration& configuration, size_t values) {
    size_t entries = 0;
    size_t lists = 0;
    const auto count = [&](const std::vector<std::wstring>& list) {
        entries += list.size();
        ++lists;
    };
    for (const config::ServiceProfile& profile : configuration.Profiles) {
        for (const config::Rule& rule : profile.Rules) {
            count(rule.Masks);
            count(rule.Certificates);
            for (const config::SignerListEntry& list : rule.SignerLists) count(list.Signers);
        }
    }
    Require(entries <= 257 * (values + lists));
}

// The names of the values that saving writes to the service's key and to those of its profiles.
class WrittenNames {
  public:
    WrittenNames() {
        config::GlobalSettings settings;
        config::VisitSettings(settings, *this);
        config::ServiceProfile profile;
        config::VisitProfile(profile, *this);
        names_.insert(L"LDAP");
    }
    bool Contain(const std::wstring& name) const { return names_.contains(text::Upper(name)); }

    template <class Value>
    void Text(const wchar_t* name, const Value&) {
        names_.insert(text::Upper(std::wstring(name)));
    }
    template <class Value>
    void Number(const wchar_t* name, const Value& value) {
        Text(name, value);
    }
    template <class Value>
    void List(const wchar_t* name, const Value& value) {
        Text(name, value);
    }
    template <class Value>
    void PlainList(const wchar_t* name, const Value& value) {
        Text(name, value);
    }

  private:
    std::set<std::wstring> names_;
};

// In or below the rules key of a profile: "\Alpha\rules".
bool IsOfRules(const std::wstring& place) {
    constexpr std::wstring_view rules = L"\\RULES";
    const size_t second = place.find(L'\\', 1);
    if (second == std::wstring::npos || second > place.find(L'\n')) return false;
    const std::wstring upper = text::Upper(place.substr(second));
    return upper.starts_with(rules) &&
           (upper.size() == rules.size() || upper[rules.size()] == L'\\' || upper[rules.size()] == L'\n');
}

// Outside the rules nothing goes, and what the program does not know stays as it is.
void CheckWhatSurvives(const fuzz::Tree& before, const fuzz::Tree& after) {
    static const WrittenNames written;
    for (const auto& [place, value] : before) {
        if (IsOfRules(place)) continue;
        const auto found = after.find(place);
        Require(found != after.end());
        Require(found->second == value || written.Contain(place.substr(place.find(L'\n') + 1)));
    }
}

void Check(Program& program) {
    const fuzz::Tree user = program.User();
    const std::optional<Configuration> first = program.Load();
    const fuzz::Tree before = program.Service();
    if (!first) return;
    CheckSize(*first, before.size() + user.size());
    Require(program.Load() == first && program.Service() == before);

    program.Save(*first);
    CheckWhatSurvives(before, program.Service());
    const std::optional<Configuration> second = program.Load();
    Require(second == AsFoundAgain(*first));
    // What was found again is written in its final form.
    program.Save(*second);
    const fuzz::Tree saved = program.Service();
    Require(program.Load() == second);
    program.Save(*second);
    Require(program.Service() == saved && program.User() == user);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    Program program({reinterpret_cast<const char*>(data), size});
    const fuzz::Tree before = program.Service();
    try {
        Check(program);
    } catch (const std::invalid_argument&) {
        // The first profile wants a CS profile to be made with.
        for (const auto& [place, value] : before) Require(!place.starts_with(L"\\"));
    }
    return 0;
}
