// The manifest and the version of the released file, read as the system reads them.
#include <gtest/gtest.h>
#include <windows.h>

#include <memory>
#include <string>
#include <string_view>
#include <type_traits>
#include <vector>

#include "version.h"

namespace tests {
namespace {

constexpr wchar_t program[] = L"build\\windows\\brisgate.exe";

struct Unloads {
    void operator()(HMODULE module) const { FreeLibrary(module); }
};

using Module = std::unique_ptr<std::remove_pointer_t<HMODULE>, Unloads>;

Module Opened() {
    return Module(LoadLibraryExW(program, nullptr, LOAD_LIBRARY_AS_DATAFILE));
}

// How many the file holds, under whatever number and in whatever language.
int CountManifests() {
    int count = 0;
    const Module module = Opened();
    const auto eachLanguage = [](HMODULE, LPCWSTR, LPCWSTR, WORD, LONG_PTR found) -> BOOL {
        ++*reinterpret_cast<int*>(found);
        return TRUE;
    };
    static ENUMRESLANGPROCW const visit = eachLanguage;
    const auto eachName = [](HMODULE file, LPCWSTR type, LPWSTR name, LONG_PTR found) -> BOOL {
        return EnumResourceLanguagesW(file, type, name, visit, found);
    };
    EnumResourceNamesW(module.get(), MAKEINTRESOURCEW(24), eachName, reinterpret_cast<LONG_PTR>(&count));
    return count;
}

std::string Manifest() {
    const Module module = Opened();
    const HRSRC place = FindResourceW(module.get(), MAKEINTRESOURCEW(1), MAKEINTRESOURCEW(24));
    if (place == nullptr) return {};
    const HGLOBAL loaded = LoadResource(module.get(), place);
    return {static_cast<const char*>(LockResource(loaded)), SizeofResource(module.get(), place)};
}

class VersionTest : public ::testing::Test {
  protected:
    void SetUp() override {
        block_.resize(GetFileVersionInfoSizeW(program, nullptr));
        ASSERT_TRUE(GetFileVersionInfoW(program, 0, static_cast<DWORD>(block_.size()), block_.data()));
    }

    std::wstring Text(const std::wstring& name) {
        void* text = nullptr;
        UINT length = 0;
        if (!VerQueryValueW(block_.data(), (L"\\StringFileInfo\\040904B0\\" + name).c_str(), &text, &length))
            return L"(none)";
        return static_cast<const wchar_t*>(text);
    }

    std::vector<char> block_;
};

TEST(ManifestTest, AsksForTheRightsThatTheAccountHasAndScalesWithEachMonitor) {
    const std::string manifest = Manifest();
    for (const std::string_view part :
         {R"(level="highestAvailable" uiAccess="false")", ">PerMonitorV2, system</dpiAwareness>",
          ">true</longPathAware>", R"(name="Talveron.Brisgate" version=")" BRISGATE_VERSION R"(")",
          R"(name="Microsoft.Windows.Common-Controls" version="6.0.0.0")"})
        EXPECT_NE(manifest.find(part), std::string::npos) << part;
}

// Linkers add one of their own where they are not kept from it, and the system takes the first.
TEST(ManifestTest, IsTheOnlyOne) {
    EXPECT_EQ(CountManifests(), 1);
}

TEST_F(VersionTest, NumbersAreThoseOfTheProgram) {
    void* found = nullptr;
    UINT length = 0;
    ASSERT_TRUE(VerQueryValueW(block_.data(), L"\\", &found, &length));
    const auto* numbers = static_cast<const VS_FIXEDFILEINFO*>(found);
    constexpr DWORD parts[] = {BRISGATE_VERSION_NUMBERS};
    EXPECT_EQ(numbers->dwFileVersionMS, parts[0] << 16 | parts[1]);
    EXPECT_EQ(numbers->dwFileVersionLS, parts[2] << 16 | parts[3]);
    EXPECT_EQ(numbers->dwProductVersionMS, numbers->dwFileVersionMS);
    EXPECT_EQ(numbers->dwProductVersionLS, numbers->dwFileVersionLS);
}

TEST_F(VersionTest, TextsAreThoseOfTheProgram) {
    EXPECT_EQ(Text(L"CompanyName"), L"Talveron LLC");
    EXPECT_EQ(Text(L"FileDescription"), L"ZEMA AC QLD Service - configuration");
    EXPECT_EQ(Text(L"FileVersion"), L"" BRISGATE_VERSION);
    EXPECT_EQ(Text(L"InternalName"), L"brisgate");
    EXPECT_EQ(Text(L"LegalCopyright"), L"Copyright (C) 2026 Talveron LLC");
    EXPECT_EQ(Text(L"OriginalFilename"), L"brisgate.exe");
    EXPECT_EQ(Text(L"ProductName"), L"Client QLD");
    EXPECT_EQ(Text(L"ProductVersion"), L"" BRISGATE_VERSION);
}

}  // namespace
}  // namespace tests
