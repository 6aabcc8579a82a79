// The released program on the real registry: start, load, show, save, leave.
#include <gtest/gtest.h>
#include <windows.h>

#include <fstream>
#include <sstream>

#include "demo/RegistryText.h"
#include "errors/MessageBoxes.h"
#include "platform/memory/MemoryRegistry.h"
#include "platform/win32/Win32Machine.h"
#include "tests/end_to_end/Editor.h"

namespace tests {
namespace {

using platform::RootKey;

std::string FileText(const char* path) {
    std::ifstream file(path, std::ios::binary);
    std::stringstream text;
    text << file.rdbuf();
    EXPECT_FALSE(text.str().empty()) << path;
    return text.str();
}

void Replace(std::string& text, const std::string& from, const std::string& to) {
    const size_t at = text.find(from);
    ASSERT_NE(at, std::string::npos) << from;
    text.replace(at, from.size(), to);
}

class ProgramTest : public ::testing::Test {
  protected:
    void SetUp() override { Seed(FileText("demo/configuration.txt")); }
    void TearDown() override { Seed({}); }

    void Seed(const std::string& text) {
        demo::DeleteRegistryTree(registry_, RootKey::LocalMachine, serviceRoot);
        demo::DeleteRegistryTree(registry_, RootKey::CurrentUser, libraryRoot);
        demo::ApplyRegistryText(text, registry_);
    }
    std::string Dump() { return demo::DumpRegistryKey(registry_, RootKey::LocalMachine, serviceRoot); }

    platform::win32::Win32Registry registry_;
};

// The demo configuration as a save leaves it: rules numbered anew, and the one of the older form in the
// present form.
std::string SavedDemo() {
    std::string text = FileText("demo/configuration.txt");
    const std::string rules = "morcelservice\\Archive\\rules\\Rule ";
    for (int number = 7; number <= 11; ++number)
        Replace(text, rules + std::to_string(number) + "]", rules + std::to_string(number - 1) + "]");
    const size_t older = text.find("Mask = ");
    const size_t sectionEnd = text.find("\n\n", older);
    const size_t sectionBegin = text.rfind("]\n", older) + 2;
    text.replace(sectionBegin, sectionEnd - sectionBegin, FileText("tests/end_to_end/older_rule_saved.txt"));

    platform::memory::MemoryRegistry expected;
    demo::ApplyRegistryText(text, expected);
    return demo::DumpRegistryKey(expected, RootKey::LocalMachine, serviceRoot);
}

TEST_F(ProgramTest, ShowsTheFirstProfileAndItsRules) {
    const Editor editor;
    const HWND window = editor.MainWindow();
    ASSERT_NE(window, nullptr);
    EXPECT_EQ(Editor::TextOf(window, id::ProfileLabel), L"Profile: Archive");
    EXPECT_EQ(Editor::TextOf(window, id::CsProfileLabel), L"CS profile's num: 1");
    const std::vector<std::vector<std::wstring>> profiles{{L"Archive"}, {L"Bank exchange"}, {L"Reports"}};
    EXPECT_EQ(editor.Rows(window, id::Profiles, 1), profiles);
    const auto rows = editor.Rows(window, id::Rules, 9);
    ASSERT_EQ(rows.size(), 11U);
    for (size_t i = 0; i < rows.size(); ++i) EXPECT_EQ(rows[i][0], std::to_wstring(i + 1));
    EXPECT_EQ(rows[6][2], L"Move");  // the rule of the older form
}

TEST_F(ProgramTest, SavingWritesTheWholeTreeAndASecondStartShowsTheSameRules) {
    std::vector<std::vector<std::wstring>> rows;
    {
        const Editor editor;
        const HWND window = editor.MainWindow();
        ASSERT_NE(window, nullptr);
        rows = editor.Rows(window, id::Rules, 9);
        SendMessageW(GetDlgItem(window, id::Save), BM_CLICK, 0, 0);
        EXPECT_EQ(Dump(), SavedDemo());
        Editor::Press(window, IDCANCEL);
        EXPECT_TRUE(editor.WaitForEnd());
    }
    const Editor again;
    const HWND window = again.MainWindow();
    ASSERT_NE(window, nullptr);
    EXPECT_EQ(again.Rows(window, id::Rules, 9), rows);
}

TEST_F(ProgramTest, SaveAndExitSavesAndEnds) {
    const Editor editor;
    const HWND window = editor.MainWindow();
    ASSERT_NE(window, nullptr);
    Editor::Press(window, IDOK);
    EXPECT_TRUE(editor.WaitForEnd());
    EXPECT_EQ(Dump(), SavedDemo());
}

TEST_F(ProgramTest, LeavingWithoutAChangeAsksNothingAndWritesNothing) {
    const std::string before = Dump();
    const Editor editor;
    const HWND window = editor.MainWindow();
    ASSERT_NE(window, nullptr);
    PostMessageW(window, WM_SYSCOMMAND, SC_CLOSE, 0);
    EXPECT_TRUE(editor.WaitForEnd());
    EXPECT_EQ(Dump(), before);
}

TEST_F(ProgramTest, ASecondCopySaysSoAndEnds) {
    const Editor first;
    const HWND window = first.MainWindow();
    ASSERT_NE(window, nullptr);
    {
        const Editor second;
        const HWND box = second.WaitForBox();
        ASSERT_NE(box, nullptr);
        EXPECT_EQ(Editor::BoxText(box), std::wstring(errors::ProgramTitle) + L" allready started");
        PostMessageW(box, WM_COMMAND, IDOK, 0);
        EXPECT_TRUE(second.WaitForEnd());
    }
    EXPECT_TRUE(IsWindowEnabled(window));
    Editor::Press(window, IDCANCEL);
    EXPECT_TRUE(first.WaitForEnd());
    const Editor afterwards;
    EXPECT_NE(afterwards.MainWindow(), nullptr);
}

TEST_F(ProgramTest, TheAboutBoxTellsTheVersion) {
    const Editor editor;
    const HWND window = editor.MainWindow();
    ASSERT_NE(window, nullptr);
    PostMessageW(window, WM_SYSCOMMAND, command::About, 0);
    const HWND about = editor.WaitForWindow(L"About programm...");
    ASSERT_NE(about, nullptr);
    EXPECT_EQ(Editor::TextOf(about, boxid::AboutMaker), L"Talveron LLC");
    EXPECT_EQ(Editor::TextOf(about, boxid::AboutProgram), L"Client QLD");
    EXPECT_EQ(Editor::TextOf(about, 1203), L"ZEMA AC QLD Service - configuration (x64) Version 1.0.0453.0");
}

TEST_F(ProgramTest, AProfileWithoutRulesKeyIsReportedAndEndsTheProgram) {
    demo::DeleteRegistryTree(registry_, RootKey::LocalMachine, std::wstring(serviceRoot) + L"\\Reports\\rules");
    const Editor editor;
    const HWND box = editor.WaitForBox();
    ASSERT_NE(box, nullptr);
    const std::wstring report =
        L"Create (open) register key "
        L"HKEY_LOCAL_MACHINE\\SOFTWARE\\TALVERON\\morcelservice\\Reports\\rules.\r\n"
        L"Error 0x2 - ";
    EXPECT_EQ(Editor::BoxText(box).substr(0, report.size()), report);
    PostMessageW(box, WM_COMMAND, IDOK, 0);
    EXPECT_TRUE(editor.WaitForEnd());
}

TEST_F(ProgramTest, AFirstRunWithoutACsProfileSaysWhatToDoAndEnds) {
    Seed("[HKEY_CURRENT_USER\\SOFTWARE\\TALVERON\\morcel\\Profiles]\n");
    const Editor editor;
    const HWND box = editor.WaitForBox();
    ASSERT_NE(box, nullptr);
    EXPECT_EQ(Editor::BoxText(box),
              L"The program has to end.\r\n"
              L"There is no CS profile: set one up with the tools of the library and start the program anew.");
    PostMessageW(box, WM_COMMAND, IDOK, 0);
    EXPECT_TRUE(editor.WaitForEnd());
}

}  // namespace
}  // namespace tests
