// The released program beside the stand-in library: recipients chosen from the local store arrive in the
// registry. Program and library are copied into a folder of their own for that.
#include <gtest/gtest.h>
#include <windows.h>

#include <filesystem>
#include <fstream>
#include <string>

#include "demo/RegistryText.h"
#include "platform/win32/Module.h"
#include "platform/win32/Win32Machine.h"
#include "tests/end_to_end/Editor.h"

namespace tests {
namespace {

namespace fs = std::filesystem;
using platform::RootKey;

// Where programs look for a library that they must not look for, for as long as the object lives.
class SearchedFolder {
  public:
    explicit SearchedFolder(const fs::path& folder) : before_(fs::current_path()), path_(32768, L'\0') {
        path_.resize(GetEnvironmentVariableW(L"PATH", path_.data(), static_cast<DWORD>(path_.size())));
        fs::current_path(folder);
        SetEnvironmentVariableW(L"PATH", (folder.wstring() + L";" + path_).c_str());
    }
    ~SearchedFolder() {
        SetEnvironmentVariableW(L"PATH", path_.c_str());
        fs::current_path(before_);
    }
    SearchedFolder(const SearchedFolder&) = delete;
    SearchedFolder& operator=(const SearchedFolder&) = delete;

  private:
    const fs::path before_;
    std::wstring path_;
};

// A second stand-in with owners of its own, where every program of the machine would find it.
class LibraryOfTheSystem {
  public:
    explicit LibraryOfTheSystem(const char* owners) {
        if (fs::exists(library_)) return;  // the real one
        std::error_code refused;
        fs::copy_file(fs::path(platform::win32::ProgramFolder()) / L"demo" / L"morcel1.dll", library_, refused);
        isOurs_ = !refused;
        if (isOurs_) std::ofstream(owners_) << owners;
    }
    ~LibraryOfTheSystem() {
        if (!isOurs_) return;
        std::error_code ignored;
        fs::remove(library_, ignored);
        fs::remove(owners_, ignored);
    }
    LibraryOfTheSystem(const LibraryOfTheSystem&) = delete;
    LibraryOfTheSystem& operator=(const LibraryOfTheSystem&) = delete;

    bool IsThere() const { return isOurs_; }

  private:
    const fs::path folder_ = platform::win32::SystemFolder();
    const fs::path library_ = folder_ / L"morcel1.dll";
    const fs::path owners_ = folder_ / L"stand-in-owners.txt";
    bool isOurs_ = false;
};

class CertificatesTest : public ::testing::Test {
  protected:
    void SetUp() override {
        fs::remove_all(folder_);
        fs::create_directories(folder_ / L"files");
        fs::copy_file(fs::path(platform::win32::ProgramFolder()) / L"brisgate.exe", program_);
        fs::copy_file(fs::path(platform::win32::ProgramFolder()) / L"demo" / L"morcel1.dll", folder_ / L"morcel1.dll");
        Serve("local | 1C | 01 | CN=Anna,C=DE\nlocal | 1C | 02 | CN=Boris,C=RU\nnetwork | 1C | 03 | CN=Far\n");
        Clear();
        demo::ApplyRegistryText(Configuration(), registry_);
    }
    void TearDown() override {
        Clear();
        fs::remove_all(folder_);
    }

    void Serve(const char* owners) { std::ofstream(folder_ / L"stand-in-owners.txt") << owners; }
    void Clear() {
        demo::DeleteRegistryTree(registry_, RootKey::LocalMachine, serviceRoot);
        demo::DeleteRegistryTree(registry_, RootKey::CurrentUser, libraryRoot);
    }
    std::string Dump() { return demo::DumpRegistryKey(registry_, RootKey::LocalMachine, serviceRoot); }

    // One rule that encrypts for somebody; its folders exist.
    std::string Configuration() const {
        const std::string files = (folder_ / L"files").string();
        return "[HKEY_CURRENT_USER\\SOFTWARE\\TALVERON\\morcel\\Profiles\\1]\n"
               "ProfileName = \"Office\"\nBasePath = \"C:\\Keys\"\n"
               "[HKEY_LOCAL_MACHINE\\SOFTWARE\\TALVERON\\morcelservice\\Alpha]\n"
               "ZCSProfile = { \"Office\" }\nNotUseLDAP = { \"0\" }\nCrlUpdatePeriod = { \"6\" }\n"
               "[HKEY_LOCAL_MACHINE\\SOFTWARE\\TALVERON\\morcelservice\\Alpha\\rules\\Rule 0]\n"
               "Operation = \"ENCR\"\nZCSProfile = \"Office\"\nMask num = 1\nM0 = \"*.txt\"\n"
               "Path In = \"" +
               files + "\"\nPath Out = \"" + files + "\"\nPath Error = \"" + files +
               "\"\n"
               "Ext num = 1\nC0 = \"CN=Boris,C=RU\"\n";
    }
    // The rule editor, opened on the only rule.
    HWND OpenRule(const Editor& editor) const {
        const HWND window = editor.MainWindow();
        if (window == nullptr) return nullptr;
        editor.SelectRow(window, id::Rules, 0);
        Editor::Press(window, id::EditRule);
        return editor.WaitForWindow(L"Edit rule");
    }

    // Whom the picker finds in the local store of the library that the program has taken.
    std::vector<std::vector<std::wstring>> LocalNames(const Editor& editor, int count) const {
        const HWND rule = OpenRule(editor);
        if (rule == nullptr) return {};
        Editor::Press(rule, ruleid::ActionButton);
        const HWND picker = editor.WaitForWindow(L"Add recipients");
        if (picker == nullptr) return {};
        Editor::Press(picker, pickid::FromLocalStore);
        if (!editor.WaitForRows(picker, pickid::Candidates, count)) return {};
        return editor.Rows(picker, pickid::Candidates, 1);
    }

    const fs::path folder_ = fs::path(platform::win32::ProgramFolder()) / L"beside-stand-in";
    const fs::path program_ = folder_ / L"brisgate.exe";
    platform::win32::Win32Registry registry_;
};

TEST_F(CertificatesTest, RecipientsFromTheLocalStoreArriveInTheRegistry) {
    const Editor editor(program_.wstring());
    const HWND rule = OpenRule(editor);
    ASSERT_NE(rule, nullptr);
    EXPECT_EQ(Editor::TextOf(rule, ruleid::ActionField), L"1");
    Editor::Press(rule, ruleid::ActionButton);
    const HWND picker = editor.WaitForWindow(L"Add recipients");
    ASSERT_NE(picker, nullptr);
    EXPECT_TRUE(IsWindowEnabled(GetDlgItem(picker, pickid::FromLdap)));
    Editor::Press(picker, pickid::FromLocalStore);
    ASSERT_TRUE(editor.WaitForRows(picker, pickid::Candidates, 2));
    Editor::Press(picker, pickid::SelectAll);
    Editor::Press(picker, pickid::Choose);
    ASSERT_TRUE(editor.WaitForRows(picker, pickid::Chosen, 2));
    const std::vector<std::vector<std::wstring>> chosen{{L"CN=Boris,C=RU"}, {L"CN=Anna,C=DE"}};
    EXPECT_EQ(editor.Rows(picker, pickid::Chosen, 1), chosen);
    Editor::Press(picker, IDOK);
    ASSERT_TRUE(editor.WaitUntilGone(picker));
    EXPECT_TRUE(editor.WaitForText(rule, ruleid::ActionField, L"2"));  // the library is closed first
    Editor::Press(rule, IDOK);
    ASSERT_TRUE(editor.WaitUntilGone(rule));
    Editor::Press(editor.MainWindow(), IDOK);
    EXPECT_TRUE(editor.WaitForEnd());
    const std::string saved = Dump();
    for (const char* line :
         {"Ext num = 2\n", "C0 = \"CN=Boris,C=RU\"\n", "C1 = \"CN=Anna,C=DE\"\n", "LastCrlUpdate = { \"Office;;"})
        EXPECT_NE(saved.find(line), std::string::npos) << line << saved;
}

TEST_F(CertificatesTest, WhatTheLibraryHasToSayOfAFailureIsShown) {
    Serve("this makes no sense\n");
    const Editor editor(program_.wstring());
    const HWND rule = OpenRule(editor);
    ASSERT_NE(rule, nullptr);
    Editor::Press(rule, ruleid::ActionButton);
    const HWND warning = editor.WaitForWindow(L"Warning:");
    ASSERT_NE(warning, nullptr);
    const std::wstring text = Editor::TextOf(warning, boxid::WarningText);
    EXPECT_TRUE(text.starts_with(L"Cryptocontext initialization.\r\nKSEAL error 0x20000001 - ")) << text.size();
    EXPECT_NE(text.find(L"KSEAL stek, error number 1\r\nError: line 1: "), std::wstring::npos);
    Editor::Press(warning, IDCANCEL);
    EXPECT_TRUE(editor.WaitUntilGone(warning));
    EXPECT_EQ(Editor::TextOf(rule, ruleid::ActionField), L"1");
}

// Libraries that the system looks for in many places, for the pickers, the pictures and the messages.
TEST_F(CertificatesTest, NothingIsLoadedFromTheCurrentFolderOrThePath) {
    const fs::path elsewhere = folder_ / L"files";
    for (const wchar_t* name : {L"comctl32.dll", L"uxtheme.dll", L"wininet.dll", L"version.dll", L"dwmapi.dll",
                                L"propsys.dll", L"windowscodecs.dll", L"cryptbase.dll", L"profapi.dll"})
        fs::copy_file(folder_ / L"morcel1.dll", elsewhere / name);
    const SearchedFolder searched(elsewhere);
    const Editor editor(program_.wstring());
    const HWND rule = OpenRule(editor);
    ASSERT_NE(rule, nullptr);
    Editor::Press(rule, ruleid::ActionButton);
    ASSERT_NE(editor.WaitForWindow(L"Add recipients"), nullptr);
    size_t besideTheProgram = 0;
    for (const std::wstring& file : editor.Modules()) {
        const fs::path path(file);
        EXPECT_NE(path.parent_path().filename(), elsewhere.filename()) << path;
        if (path.parent_path().filename() == folder_.filename()) ++besideTheProgram;
    }
    EXPECT_EQ(besideTheProgram, 2U);  // itself and the library of certificates
}

TEST_F(CertificatesTest, ALibraryInTheCurrentFolderOrOnThePathIsNotTaken) {
    const fs::path elsewhere = folder_ / L"files";
    fs::rename(folder_ / L"morcel1.dll", elsewhere / L"morcel1.dll");
    const SearchedFolder searched(elsewhere);
    const Editor editor(program_.wstring());
    const HWND rule = OpenRule(editor);
    ASSERT_NE(rule, nullptr);
    Editor::Press(rule, ruleid::ActionButton);
    const HWND warning = editor.WaitForWindow(L"Warning:");
    ASSERT_NE(warning, nullptr);
    EXPECT_TRUE(
        Editor::TextOf(warning, boxid::WarningText).starts_with(L"Cryptocontext initialization.\r\nError 0x7E - "));
}

TEST_F(CertificatesTest, TheLibraryBesideTheProgramComesBeforeThatOfTheSystem) {
    using Rows = std::vector<std::vector<std::wstring>>;
    const LibraryOfTheSystem system("local | 1C | 09 | CN=System\n");
    if (!system.IsThere()) GTEST_SKIP() << "nothing can be put into the folder of the system";
    {
        const Editor editor(program_.wstring());
        EXPECT_EQ(LocalNames(editor, 2), (Rows{{L"CN=Anna,C=DE"}, {L"CN=Boris,C=RU"}}));
    }
    fs::remove(folder_ / L"morcel1.dll");
    const Editor editor(program_.wstring());
    EXPECT_EQ(LocalNames(editor, 1), (Rows{{L"CN=System"}}));
}

}  // namespace
}  // namespace tests
