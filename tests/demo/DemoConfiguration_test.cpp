// The demonstration configuration and the certificates of the stand-in library belong together: whoever opens
// one of its rules and accepts it again is asked nothing.
#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <sstream>

#include "config/Load.h"
#include "demo/OwnersText.h"
#include "demo/RegistryText.h"
#include "demo/Utf8.h"
#include "platform/memory/MemoryCodePage.h"
#include "platform/memory/MemoryMachine.h"
#include "ui/memory/MemoryScreen.h"

namespace tests {
namespace {

std::string FileText(const char* path) {
    std::ifstream file(path, std::ios::binary);
    std::stringstream text;
    text << file.rdbuf();
    EXPECT_FALSE(text.str().empty()) << path;
    return text.str();
}

config::Configuration DemoConfiguration() {
    platform::memory::MemoryMachine machine;
    ui::memory::MemoryScreen screen(machine.ScreenMetrics);
    demo::ApplyRegistryText(FileText("demo/configuration.txt"), machine.Registry);
    const errors::ErrorReporter reporter(machine.Machine, screen);
    config::RegistryStore store(machine.Machine, reporter);
    return config::LoadConfiguration(store, nullptr).value();
}

// Who can be found also without the network.
std::vector<std::wstring> LocalOwners() {
    const std::wstring text = demo::FromUtf8(FileText("demo/owners.txt")).value();
    const platform::memory::MemoryCodePage codePage;
    std::vector<std::wstring> names;
    for (const demo::StandInCertificate& certificate : demo::ParseOwners(codePage.ToAnsi(text)).Certificates)
        if (!certificate.InNetwork && (certificate.UsageBits & 0x1C) != 0)
            names.push_back(codePage.ToWide(certificate.OwnerName));
    return names;
}

bool Contains(const std::vector<std::wstring>& texts, std::wstring_view text) {
    return std::find(texts.begin(), texts.end(), text) != texts.end();
}

TEST(DemoConfiguration, EveryRecipientAndSignerHasACertificate) {
    const std::vector<std::wstring> owners = LocalOwners();
    size_t found = 0;
    for (const config::ServiceProfile& profile : DemoConfiguration().Profiles) {
        for (const config::Rule& rule : profile.Rules) {
            std::vector<std::wstring> wanted;
            if (rule.Operation != L"MOVE") wanted = rule.Certificates;  // of the older form: a folder
            for (const config::SignerListEntry& list : rule.SignerLists)
                wanted.insert(wanted.end(), list.Signers.begin(), list.Signers.end());
            for (const std::wstring& name : wanted) EXPECT_TRUE(Contains(owners, name)) << testing::PrintToString(name);
            found += wanted.size();
        }
    }
    EXPECT_GT(found, 20U);
}

TEST(DemoConfiguration, NobodySignsInTwoListsOfOneRule) {
    for (const config::ServiceProfile& profile : DemoConfiguration().Profiles) {
        for (const config::Rule& rule : profile.Rules) {
            std::vector<std::wstring> signers;
            for (const config::SignerListEntry& list : rule.SignerLists) {
                for (const std::wstring& signer : list.Signers) {
                    EXPECT_FALSE(Contains(signers, signer)) << testing::PrintToString(signer);
                    signers.push_back(signer);
                }
            }
        }
    }
}

TEST(DemoConfiguration, RulesUseStoreProfilesOfTheirProfile) {
    for (const config::ServiceProfile& profile : DemoConfiguration().Profiles) {
        for (const config::Rule& rule : profile.Rules) {
            for (const std::wstring_view used : {rule.ZCSProfile, rule.ResignProfile})
                EXPECT_TRUE(used.empty() || Contains(profile.ZCSProfile, used)) << testing::PrintToString(used);
        }
    }
}

}  // namespace
}  // namespace tests
