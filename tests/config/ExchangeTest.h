// The base of tests of exchanged files: files in which any step can fail, a screen that answers pickers by
// itself and remembers what it showed, and one journal of what happened in which order.
#pragma once

#include <deque>
#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "platform/memory/MemoryFiles.h"
#include "tests/config/StoreTest.h"
#include "tests/support/TestFiles.h"

namespace tests {

using platform::memory::FileCall;
using Journal = std::vector<std::string>;

class WatchedFiles final : public platform::Files {
  public:
    WatchedFiles(platform::Files& real, Journal& journal) : real_(real), journal_(journal) {}

    std::map<FileCall, platform::Win32Code> faults;  // a close that fails closes the file all the same
    std::optional<uint64_t> claimedSize;             // what is said of every file's size
    uint32_t unwritten = 0;                          // bytes that every write leaves out
    std::optional<size_t> failsFromWrite;            // the number of the write into the file, from 1
    std::vector<size_t> readSizes;                   // bytes asked for
    int openFiles = 0;

    platform::Win32Code Open(const std::wstring& path, platform::FileHandle& file) override {
        return Do(FileCall::Open, "open", [&] { return Opened(real_.Open(path, file)); });
    }
    platform::Win32Code Create(const std::wstring& path, platform::FileHandle& file) override {
        writes_ = 0;
        return Do(FileCall::Create, "create", [&] { return Opened(real_.Create(path, file)); });
    }
    platform::Win32Code Size(platform::FileHandle file, uint64_t& bytes) override {
        return Do(FileCall::Size, "size", [&] {
            const platform::Win32Code result = real_.Size(file, bytes);
            bytes = claimedSize.value_or(bytes);
            return result;
        });
    }
    platform::Win32Code Read(platform::FileHandle file, std::span<std::byte> buffer,
                             uint32_t& bytesRead) override {
        readSizes.push_back(buffer.size());
        return Do(FileCall::Read, "read", [&] { return real_.Read(file, buffer, bytesRead); });
    }
    platform::Win32Code Write(platform::FileHandle file, std::span<const std::byte> data,
                              uint32_t& bytesWritten) override {
        const auto written = data.first(data.size() - unwritten);
        ++writes_;
        return Do(FileCall::Write, "write", [&] {
            return failsFromWrite && writes_ >= *failsFromWrite ? Broken
                                                                : real_.Write(file, written, bytesWritten);
        });
    }
    platform::Win32Code Close(platform::FileHandle file) override {
        const platform::Win32Code result = real_.Close(file);
        --openFiles;
        return Do(FileCall::Close, "close", [result] { return result; });
    }
    platform::Win32Code CheckPathExists(const std::wstring& path) override {
        return real_.CheckPathExists(path);
    }

  private:
    template <class Step>
    platform::Win32Code Do(FileCall call, const char* name, Step step) {
        journal_.emplace_back(name);
        const auto fault = faults.find(call);
        return fault == faults.end() ? step() : fault->second;
    }
    platform::Win32Code Opened(platform::Win32Code result) {
        if (result == code::Success) ++openFiles;
        return result;
    }

    static constexpr platform::Win32Code Broken = 1117;  // an input/output error of the device

    platform::Files& real_;
    Journal& journal_;
    size_t writes_ = 0;  // into the file created last
};

// No window opens: what boxes and pickers look like is the business of other tests.
class WatchedScreen final : public ui::Screen {
  public:
    WatchedScreen(ui::Screen& real, Journal& journal) : real_(real), journal_(journal) {}

    struct Box {
        std::wstring text;
        std::wstring caption;
        uint32_t flags = 0;
        bool operator==(const Box&) const = default;
    };
    std::deque<Box> boxes;
    std::vector<ui::FilePicker> pickers;
    std::vector<const ui::Dialog*> owners;  // of boxes and pickers
    std::optional<std::wstring> choice;  // the file that is chosen in every picker; none: the user gives up

    int RunModal(ui::Dialog& dialog) override { return real_.RunModal(dialog); }
    void OpenModeless(ui::Dialog& dialog) override { real_.OpenModeless(dialog); }
    int ShowMessageBox(const ui::Dialog* owner, const std::wstring& text, const std::wstring& caption,
                       uint32_t flags) override {
        journal_.emplace_back("box");
        owners.push_back(owner);
        boxes.push_back({text, caption, flags});
        return ui::IdOk;
    }
    std::optional<std::wstring> PickFolder(const ui::Dialog* owner, const std::wstring& folder) override {
        return real_.PickFolder(owner, folder);
    }
    std::optional<std::wstring> PickFile(const ui::Dialog* owner, const ui::FilePicker& picker) override {
        journal_.emplace_back("picker");
        owners.push_back(owner);
        pickers.push_back(picker);
        return choice;
    }
    void ShowWaitCursor(bool shown) override { real_.ShowWaitCursor(shown); }
    const platform::ScreenMetrics& Metrics() const override { return real_.Metrics(); }

  private:
    ui::Screen& real_;
    Journal& journal_;
};

class ExchangeTest : public WorldTest {
  protected:
    void TearDown() override {
        EXPECT_EQ(watched_.openFiles, 0) << "a file stayed open";
        EXPECT_TRUE(screen_.boxes.empty()) << "a box that nobody expected";
    }

    std::wstring Path(const std::wstring& name) const { return files_->Folder() + L"\\" + name; }

    // Makes the file, or replaces it.
    void Put(const std::wstring& path, std::string_view bytes) {
        platform::FileHandle file = platform::FileHandle::None;
        uint32_t written = 0;
        ASSERT_EQ(files_->Files().Create(path, file), code::Success);
        EXPECT_EQ(files_->Files().Write(file, std::as_bytes(std::span(bytes)), written), code::Success);
        EXPECT_EQ(files_->Files().Close(file), code::Success);
    }
    // None: there is no such file.
    std::optional<std::string> Content(const std::wstring& path) {
        platform::FileHandle file = platform::FileHandle::None;
        if (files_->Files().Open(path, file) != code::Success) return std::nullopt;
        uint64_t size = 0;
        uint32_t length = 0;
        EXPECT_EQ(files_->Files().Size(file, size), code::Success);
        std::string bytes(static_cast<size_t>(size), '\0');
        EXPECT_EQ(files_->Files().Read(file, std::as_writable_bytes(std::span(bytes)), length),
                  code::Success);
        EXPECT_EQ(files_->Files().Close(file), code::Success);
        return bytes;
    }

    // The one box that has been shown, where there is one.
    WatchedScreen::Box TakeBox() {
        EXPECT_EQ(screen_.boxes.size(), 1U);
        const auto boxes = std::exchange(screen_.boxes, {});
        return boxes.empty() ? WatchedScreen::Box() : boxes.front();
    }
    // It was the report of this failure; the description comes from the system.
    void ExpectReported(const std::wstring& operation, platform::Win32Code code) {
        const WatchedScreen::Box box = TakeBox();
        const std::wstring beginning = operation + L".\r\nError 0x" + text::Hexadecimal(code) + L" - ";
        EXPECT_EQ(box.text.substr(0, beginning.size()), beginning);
        EXPECT_EQ(box.flags, ui::box::Ok | ui::box::ErrorIcon);
    }
    Journal TakeJournal() { return std::exchange(journal_, {}); }

    static constexpr platform::Win32Code Fault = 1117;  // an input/output error of the device

    Journal journal_;
    const std::unique_ptr<TestFiles> files_ = MakeTestFiles();
    WatchedFiles watched_{files_->Files(), journal_};
    WatchedScreen screen_{world_->Screen(), journal_};
    CountingMemory memory_{world_->Machine().Memory};
    const platform::Machine machine_{world_->Machine().Registry,      watched_,
                                     world_->Machine().CodePage,      world_->Machine().SystemMessages,
                                     world_->Machine().Clock,         world_->Machine().InstanceLock,
                                     world_->Machine().ScreenMetrics, memory_,
                                     world_->Machine().CryptoLibrary};
    const errors::ErrorReporter watchedReporter_{machine_, screen_};
    config::RegistryStore watchedStore_{machine_, watchedReporter_};
    const config::Services exchange_{machine_, screen_, watchedReporter_, watchedStore_};
};

}  // namespace tests
