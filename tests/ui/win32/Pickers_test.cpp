// What the system's file dialogs show, and what they ask before they hand a path back.
#include "ui/win32/Pickers.h"

#include <cderr.h>
#include <commdlg.h>
#include <gtest/gtest.h>
#include <objbase.h>

#include <filesystem>
#include <fstream>
#include <functional>

#include "tests/support/TestFiles.h"
#include "tests/support/win32/ImportHook.h"
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
            look_(picker);
            AnswerPicker(picker, path);
        });
        return ui::win32::PickFile(nullptr, {kind,
                                             L"Rules",
                                             L"*.prx",
                                             extension_,
                                             proposal_,
                                             {{L"Every file", L"*.*"}, {L"Notes", L"*.txt"}},
                                             folder_});
    }
    SeenPicker Look(ui::FilePickerKind kind) {
        SeenPicker seen;
        look_ = [&seen](HWND picker) { seen = LookAtPicker(picker); };
        EXPECT_EQ(Pick(kind, existing_).has_value(), true);
        look_ = [](HWND) {};
        return seen;
    }

    const std::unique_ptr<TestFiles> files_ = MakeTestFiles();
    const std::wstring existing_ = files_->Folder() + L"\\existing.prx";
    const std::wstring missing_ = files_->Folder() + L"\\missing.prx";
    std::wstring extension_ = L"prx";
    std::wstring proposal_;
    std::wstring folder_;
    std::function<void(HWND)> look_ = [](HWND) {};
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

// A name as people type it.
TEST_F(FilePickerTest, TheExtensionIsPutBehindANameWithoutOne) {
    const std::wstring existingName = files_->Folder() + L"\\existing";
    EXPECT_EQ(Path(missing_), Pick(ui::FilePickerKind::Save, files_->Folder() + L"\\missing"));
    EXPECT_EQ(0, boxes_);
    EXPECT_EQ(Path(existing_), Pick(ui::FilePickerKind::Save, existingName));  // asked as for the whole name
    EXPECT_EQ(1, boxes_);
    const std::wstring other = files_->Folder() + L"\\notes.txt";
    EXPECT_EQ(Path(other), Pick(ui::FilePickerKind::Save, other));
    extension_ = L"*.*";
    EXPECT_EQ(Path(existingName), Pick(ui::FilePickerKind::Save, existingName));
    EXPECT_EQ(0, boxes_);
}

// What the dialog was asked for. Not every system that the tests run on shows it: some look for the name as
// it was typed, without the extension, when a file is opened.
struct AskedFor {
    std::wstring name;
    std::wstring extension;
    DWORD flags = 0;
};
AskedFor askedFor;

BOOL WINAPI NoteAndGiveUp(LPOPENFILENAMEW request) {
    askedFor = {request->lpstrFile, request->lpstrDefExt == nullptr ? std::wstring() : request->lpstrDefExt,
                request->Flags};
    return FALSE;
}

TEST(FilePickerRequest, HasTheExtensionAndTheChecksForBothKinds) {
    const ImportHook open("GetOpenFileNameW", NoteAndGiveUp);
    const ImportHook save("GetSaveFileNameW", NoteAndGiveUp);
    constexpr DWORD always = OFN_EXPLORER | OFN_PATHMUSTEXIST | OFN_NOCHANGEDIR | OFN_HIDEREADONLY;
    for (const auto& [kind, flags] : {std::pair{ui::FilePickerKind::Open, always | OFN_FILEMUSTEXIST},
                                      std::pair{ui::FilePickerKind::Save, always | OFN_OVERWRITEPROMPT}}) {
        for (const wchar_t* extension : {L"prx", L"grx"}) {
            EXPECT_EQ(ui::win32::PickFile(nullptr, {kind, L"Rules", L"*.prx", extension, L""}), std::nullopt);
            EXPECT_EQ(askedFor.extension, extension);
            EXPECT_EQ(askedFor.flags, flags);
        }
        ui::win32::PickFile(nullptr, {kind, L"All", L"*.*", L"*.*", L""});
        EXPECT_EQ(askedFor.extension, L"");
    }
}

TEST(FilePickerRequest, ProposesAsMuchOfANameAsAPathCanHave) {
    const ImportHook open("GetOpenFileNameW", NoteAndGiveUp);
    ui::FilePicker picker{ui::FilePickerKind::Open, L"Rules", L"*.prx", L"prx", std::wstring(32766, L'a') + L"bc"};
    ui::win32::PickFile(nullptr, picker);
    EXPECT_EQ(askedFor.name, std::wstring(32766, L'a') + L'b');
}

HRESULT WINAPI ClassIsMissing(REFCLSID, IUnknown*, DWORD, REFIID, void**) {
    return REGDB_E_CLASSNOTREG;
}
DWORD WINAPI TooSmallABuffer() {
    return FNERR_BUFFERTOOSMALL;
}

TEST(Pickers, ThatDoNotComeUpSayWhy) {
    {
        const ImportHook create("CoCreateInstance", ClassIsMissing);
        try {
            ui::win32::PickFolder(nullptr, L"");
            ADD_FAILURE() << "no failure";
        } catch (const ui::ScreenError& error) {
            EXPECT_EQ(error.Code(), 0x80040154U);
            EXPECT_EQ(error.Operation(), L"Opening the folder dialog");
        }
    }
    const ImportHook open("GetOpenFileNameW", NoteAndGiveUp);
    EXPECT_EQ(ui::win32::PickFile(nullptr, {ui::FilePickerKind::Open, L"All", L"*.*", L"", L""}), std::nullopt);
    const ImportHook error("CommDlgExtendedError", TooSmallABuffer);
    try {
        ui::win32::PickFile(nullptr, {ui::FilePickerKind::Open, L"All", L"*.*", L"", L""});
        ADD_FAILURE() << "no failure";
    } catch (const ui::ScreenError& failure) {
        EXPECT_EQ(failure.Code(), 0x80004005U);
        EXPECT_EQ(failure.Operation(), L"Opening the file dialog (its error 12291)");
    }
}

std::vector<std::wstring> proposals;

BOOL WINAPI RefuseProposals(OPENFILENAMEW* request) {
    proposals.emplace_back(request->lpstrFile);
    if (!proposals.back().empty()) return FALSE;
    lstrcpyW(request->lpstrFile, L"C:\\chosen.prx");
    return TRUE;
}
DWORD WINAPI InvalidName() {
    return FNERR_INVALIDFILENAME;
}

TEST(Pickers, OpenWithoutTheNameThatTheSystemDoesNotTake) {
    const ImportHook save("GetSaveFileNameW", RefuseProposals);
    const ImportHook error("CommDlgExtendedError", InvalidName);
    ui::FilePicker picker{ui::FilePickerKind::Save, L"Rules", L"*.prx", L"prx", L"a?b"};
    EXPECT_EQ(ui::win32::PickFile(nullptr, picker), L"C:\\chosen.prx");
    EXPECT_EQ(proposals, (std::vector<std::wstring>{L"a?b", L""}));
}

// Libraries do that, and a thread for which it succeeds gets no file dialog of the system any more.
TEST(Pickers, OpenAfterALibraryHasAskedForAnotherApartment) {
    const HRESULT asked = CoInitializeEx(nullptr, COINIT_MULTITHREADED);
    EXPECT_EQ(asked, RPC_E_CHANGED_MODE);
    if (SUCCEEDED(asked)) CoUninitialize();
    const OpenedWindows opened([](HWND window) { AnswerPicker(window, std::nullopt); });
    EXPECT_EQ(ui::win32::PickFolder(nullptr, L""), std::nullopt);
}

TEST_F(FilePickerTest, AFolderPickerStartsInTheFolderThatIsThere) {
    const auto startsIn = [](const std::wstring& folder) {
        std::vector<std::wstring> listed;
        const OpenedWindows opened([&listed](HWND window) {
            listed = LookAtPicker(window).files;
            AnswerPicker(window, std::nullopt);
        });
        ui::win32::PickFolder(nullptr, folder);
        return listed;
    };
    std::filesystem::create_directory(files_->Folder() + L"\\found only here");
    EXPECT_EQ(startsIn(files_->Folder()), std::vector<std::wstring>{L"found only here"});
    EXPECT_NE(startsIn(missing_), std::vector<std::wstring>{L"found only here"});
    EXPECT_NE(startsIn(L""), std::vector<std::wstring>{L"found only here"});
}

TEST_F(FilePickerTest, TheFiltersAreOfferedInTheirOrderAndHoldBackTheOtherFiles) {
    std::ofstream(std::filesystem::path(files_->Folder() + L"\\notes.txt")) << "notes";
    std::ofstream(std::filesystem::path(files_->Folder() + L"\\picture.png")) << "picture";
    folder_ = files_->Folder();
    using Texts = std::vector<std::wstring>;
    const std::vector<Texts> shown{{L"existing.prx"}, {L"existing.prx", L"notes.txt", L"picture.png"}, {L"notes.txt"}};
    for (const ui::FilePickerKind kind : {ui::FilePickerKind::Open, ui::FilePickerKind::Save}) {
        const SeenPicker seen = Look(kind);
        EXPECT_EQ(seen.filters, (Texts{L"Rules", L"Every file", L"Notes"}));
        EXPECT_EQ(seen.filter, L"Rules");
        look_ = [&](HWND picker) {
            for (const int filter : {1, 2, 0}) {
                ChooseFilter(picker, filter);
                EXPECT_EQ(LookAtPicker(picker).files, shown.at(static_cast<size_t>(filter))) << filter;
            }
        };
        EXPECT_EQ(Pick(kind, existing_), Path(existing_));
    }
}

TEST_F(FilePickerTest, StartsInItsFolderOrThatOfTheProposedFile) {
    const std::filesystem::path other = std::filesystem::path(files_->Folder()) / L"other";
    std::filesystem::create_directory(other);
    for (const ui::FilePickerKind kind : {ui::FilePickerKind::Open, ui::FilePickerKind::Save}) {
        proposal_.clear();
        for (const std::wstring& folder : {files_->Folder(), other.wstring()}) {
            folder_ = folder;
            const SeenPicker seen = Look(kind);
            EXPECT_EQ(seen.folder, folder);
            EXPECT_EQ(seen.name, L"");
            EXPECT_FALSE(seen.hasReadOnlyBox);
        }
        folder_.clear();
        proposal_ = (other / L"new.prx").wstring();
        EXPECT_EQ(Look(kind).folder, other.wstring());
        EXPECT_EQ(Look(kind).name, L"new.prx");
    }
}

}  // namespace
}  // namespace tests
