// What the system's file dialogs ask before they hand a path back.
#include "ui/win32/Pickers.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "tests/support/TestFiles.h"
#include "tests/support/win32/OpenedWindows.h"
#include "tests/support/win32/SystemDialogs.h"

namespace tests {
namespace {

using Path = std::optional<std::wstring>;

class FilePickerTest : public testing::Test {
  protected:
    FilePickerTest() { std::ofstream(std::filesystem::path(existing_)) << "rules"; }

    // The user gives the picker this path, answers a question with answer_, a complaint with "OK", and
    // cancels the picker when it stays open.
    Path Pick(ui::FilePickerKind kind, const std::wstring& path) {
        HWND picker = nullptr;
        boxes_ = 0;
        const OpenedWindows opened([&](HWND window) {
            if (picker != nullptr) return AnswerBox(window, picker);
            picker = window;
            AnswerPicker(picker, path);
        });
        return ui::win32::PickFile(nullptr, {kind, L"Rules", L"*.prx", L"prx", L""});
    }

    const std::unique_ptr<TestFiles> files_ = MakeTestFiles();
    const std::wstring existing_ = files_->Folder() + L"\\existing.prx";
    const std::wstring missing_ = files_->Folder() + L"\\missing.prx";
    int answer_ = IDYES;
    int boxes_ = 0;

  private:
    void AnswerBox(HWND box, HWND picker) {
        ++boxes_;
        const bool asks = GetDlgItem(box, IDYES) != nullptr;
        PressButton(box, asks ? answer_ : IDOK);
        if (!asks || answer_ == IDNO) PostMessageW(picker, WM_COMMAND, IDCANCEL, 0);
    }
};

TEST_F(FilePickerTest, OpensOnlyWhatIsThere) {
    EXPECT_EQ(Path(existing_), Pick(ui::FilePickerKind::Open, existing_));
    EXPECT_EQ(0, boxes_);
    EXPECT_EQ(std::nullopt, Pick(ui::FilePickerKind::Open, missing_));
    EXPECT_EQ(1, boxes_);
}

TEST_F(FilePickerTest, AsksBeforeItSavesOverAFile) {
    EXPECT_EQ(Path(missing_), Pick(ui::FilePickerKind::Save, missing_));
    EXPECT_EQ(0, boxes_);
    EXPECT_EQ(Path(existing_), Pick(ui::FilePickerKind::Save, existing_));
    EXPECT_EQ(1, boxes_);
    answer_ = IDNO;
    EXPECT_EQ(std::nullopt, Pick(ui::FilePickerKind::Save, existing_));
    EXPECT_EQ(1, boxes_);
}

}  // namespace
}  // namespace tests
