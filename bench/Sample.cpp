#include "bench/Sample.h"

#include <stdexcept>

#include "bench/Measuring.h"
#include "config/Load.h"
#include "config/Operations.h"
#include "config/RedoChanges.h"
#include "config/Save.h"
#include "demo/RegistryKey.h"
#include "text/Format.h"

namespace bench {
namespace {

config::Rule SampleRule(size_t number) {
    config::Rule rule;
    rule.Operation = config::Operations()[number % config::Operations().size()].code;
    rule.Descryption = text::Format(L"Reports of office %d to the head office", number);
    rule.PathIn = text::Format(L"D:\\Exchange\\Office %d\\In", number);
    rule.PathOut = text::Format(L"D:\\Exchange\\Office %d\\Out", number);
    rule.PathError = text::Format(L"D:\\Exchange\\Office %d\\Error", number);
    rule.ZCSProfile = L"Office keys";
    rule.Masks = {L"*.txt", L"*.pdf"};
    rule.Certificates = {text::Format(L"CN=Recipient %d,O=Talveron LLC,C=DE", number)};
    rule.SignerLists = {{L"Desk", {L"CN=Anna Petrova,O=Talveron LLC,C=DE"}}};
    rule.IsOn = 1;
    return rule;
}

}  // namespace

config::Configuration SampleConfiguration(size_t rules) {
    config::Configuration configuration;
    configuration.CsProfiles = {{L"Office keys", L"pse://signed/C:\\Keys\\local.pse", L"file://C:\\Keys\\local.gdbm"}};
    config::ServiceProfile profile;
    profile.Name = L"Sample";
    profile.ZCSProfile = {L"Office keys"};
    for (size_t i = 0; i < rules; ++i) profile.Rules.push_back(SampleRule(i));
    configuration.Profiles.push_back(std::move(profile));
    return configuration;
}

config::Configuration SampleOfProfiles(size_t profiles) {
    config::Configuration configuration = SampleConfiguration(1);
    const config::ServiceProfile profile = configuration.Profiles.front();
    configuration.Profiles.assign(profiles, profile);
    for (size_t i = 0; i < profiles; ++i) configuration.Profiles[i].Name = text::Format(L"Office %d", i);
    return configuration;
}

void CreateTrees(platform::RegistryBackend& registry) {
    using demo::RegistryKey;
    RegistryKey::Create(registry, platform::RootKey::CurrentUser, L"SOFTWARE\\TALVERON\\morcel\\Profiles");
    RegistryKey::Create(registry, platform::RootKey::LocalMachine, L"SOFTWARE\\TALVERON\\morcelservice");
}

config::Configuration Load(const platform::Machine& machine, ui::Screen& screen) {
    const errors::ErrorReporter reporter(machine, screen);
    config::RegistryStore store(machine, reporter);
    auto loaded = config::LoadConfiguration(store, nullptr);
    if (!loaded) throw std::runtime_error("loading failed");
    return std::move(*loaded);
}

void Save(const platform::Machine& machine, ui::Screen& screen, const config::Configuration& configuration) {
    const errors::ErrorReporter reporter(machine, screen);
    config::RegistryStore store(machine, reporter);
    if (!config::SaveConfiguration(store, nullptr, configuration)) throw std::runtime_error("saving failed");
}

// A save whose changes are only noted down plans them and then makes them, each in the same time.
double PlanMilliseconds(const platform::Machine& machine, ui::Screen& screen,
                        const config::Configuration& configuration) {
    const errors::ErrorReporter reporter(machine, screen);
    const config::RegistryStore store(machine, reporter);
    const auto save = [&](config::RegistryStore& planned) {
        if (!config::SaveConfiguration(planned, nullptr, configuration)) throw std::runtime_error("saving failed");
    };
    return Milliseconds([&] { config::PlannedChanges(store, save); }) / 2;
}

}  // namespace bench
