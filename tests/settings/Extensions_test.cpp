#include "settings/ConfigPage.h"

#include <gtest/gtest.h>

namespace tests {
namespace {

using config::GlobalSettings;
using settings::Extensions;

// What the user is told when only this extension is missing; no text when it may be.
std::wstring ToldWithout(std::wstring GlobalSettings::*setting) {
    GlobalSettings all;
    (all.*setting).clear();
    const auto missing = settings::FirstMissing(all);
    return missing ? std::wstring(Extensions().at(*missing).whenEmpty) : std::wstring();
}

TEST(Extensions, EachHasItsOwnRefusalAndThoseOfArchivesHaveNone) {
    EXPECT_EQ(ToldWithout(&GlobalSettings::SigExt),
              L"Please, choose extension for files with attached signature.");
    EXPECT_EQ(ToldWithout(&GlobalSettings::DsigExt),
              L"Please, choose extension for files with detached signature.");
    EXPECT_EQ(ToldWithout(&GlobalSettings::EncExt), L"Please, choose extension for encrypted files.");
    EXPECT_EQ(ToldWithout(&GlobalSettings::B64Ext), L"Please, choose extension for b64 files.");
    EXPECT_EQ(ToldWithout(&GlobalSettings::HashExt), L"Please, choose extension for hash files.");
    EXPECT_EQ(ToldWithout(&GlobalSettings::VerifyFileExt),
              L"Please, choose extension for files with signature verification report.");
    EXPECT_EQ(ToldWithout(&GlobalSettings::ZIPArchiveExt), L"");
    EXPECT_EQ(ToldWithout(&GlobalSettings::GZIPArchiveExt), L"");
}

TEST(Extensions, TheFirstOfSeveralMissingOnesIsFound) {
    GlobalSettings all;
    EXPECT_EQ(settings::FirstMissing(all), std::nullopt);
    for (size_t i = settings::ExtensionCount; i-- > 0;) {
        (all.*Extensions().at(i).setting).clear();
        EXPECT_EQ(settings::FirstMissing(all), i < 6 ? std::optional(i) : std::nullopt) << i;
    }
}

TEST(Extensions, NothingButEmptinessIsRefused) {
    GlobalSettings all;
    for (const settings::Extension& extension : Extensions()) all.*extension.setting = L" .*?";
    EXPECT_EQ(settings::FirstMissing(all), std::nullopt);
}

TEST(Extensions, AreTheSameWithoutRegardToCase) {
    const std::vector<std::wstring> held{L"XML", L"\x0436", L"tar gz"};
    EXPECT_TRUE(settings::HoldsExtension(held, L"xml"));
    EXPECT_TRUE(settings::HoldsExtension(held, L"XmL"));
    EXPECT_TRUE(settings::HoldsExtension(held, L"\x0416"));
    EXPECT_TRUE(settings::HoldsExtension(held, L"Tar GZ"));
    EXPECT_FALSE(settings::HoldsExtension(held, L"xm"));
    EXPECT_FALSE(settings::HoldsExtension(held, L"xmll"));
    EXPECT_FALSE(settings::HoldsExtension({}, L"xml"));
}

}  // namespace
}  // namespace tests
