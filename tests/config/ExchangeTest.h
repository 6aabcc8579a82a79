// The base of tests of exchanged files: files in which any step can fail, a screen that answers pickers by
// itself and remembers what it showed, and one journal of what happened in which order.
#pragma once

#include <functional>
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
    platform::Win32Code Read(platform::FileHandle file, std::span<std::byte> buffer, uint32_t& bytesRead) override {
        readSizes.push_back(buffer.size());
        return Do(FileCall::Read, "read", [&] { return real_.Read(file, buffer, bytesRead); });
    }
    platform::Win32Code Write(platform::FileHandle file, std::span<const std::byte> data,
                              uint32_t& bytesWritten) override {
        const auto written = data.first(data.size() - unwritten);
        ++writes_;
        return Do(FileCall::Write, "write", [&] {
            return failsFromWrite && writes_ >= *failsFromWrite ? Broken : real_.Write(file, written, bytesWritten);
        });
    }
    platform::Win32Code Close(platform::FileHandle file) override {
        const platform::Win32Code result = real_.Close(file);
        --openFiles;
        return Do(FileCall::Close, "close", [result] { return result; });
    }
    platform::Win32Code CheckPathExists(const std::wstring& path) override { return real_.CheckPathExists(path); }

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

// A step of reading or writing a whole file, what its report calls it, and what happens when it fails.
struct FileStep {
    FileCall call;
    std::wstring operation;
    Journal journal;
};
inline const std::vector<FileStep> ReadingSteps{
    {FileCall::Open, L"Opening file ", {"open", "box"}},
    {FileCall::Size, L"Getting size of file ", {"open", "size", "box", "close"}},
    {FileCall::Read, L"Reading file ", {"open", "size", "read", "box", "close"}},
    {FileCall::Close, L"Closing file ", {"open", "size", "read", "close", "box"}}};
inline const std::vector<FileStep> WritingSteps{
    {FileCall::Create, L"Creating file ", {"create", "box"}},
    {FileCall::Write, L"Writing file ", {"create", "write", "box", "close"}},
    {FileCall::Close, L"Closing file ", {"create", "write", "close", "box"}}};

class ExchangeTest : public WorldTest {
  protected:
    ExchangeTest() { screen_.AnswerByItself(&journal_); }
    void TearDown() override {
        EXPECT_EQ(watched_.openFiles, 0) << "a file stayed open";
        EXPECT_TRUE(screen_.boxes.empty()) << "a box that nobody expected";
    }

    std::wstring Path(const std::wstring& name) const { return files_->Path(name); }
    void Put(const std::wstring& path, std::string_view bytes) { files_->Put(path, bytes); }
    std::optional<std::string> Content(const std::wstring& path) { return files_->Content(path); }

    // The one box that has been shown, where there is one.
    RecordingScreen::Box TakeBox() {
        EXPECT_EQ(screen_.boxes.size(), 1U);
        const auto boxes = std::exchange(screen_.boxes, {});
        return boxes.empty() ? RecordingScreen::Box() : boxes.front();
    }
    // It was the report of this failure; the description comes from the system.
    void ExpectReported(const std::wstring& operation, platform::Win32Code code) {
        const RecordingScreen::Box box = TakeBox();
        const std::wstring beginning = operation + L".\r\nError 0x" + text::Hexadecimal(code) + L" - ";
        EXPECT_EQ(box.text.substr(0, beginning.size()), beginning);
        EXPECT_EQ(box.flags, ui::box::Ok | ui::box::ErrorIcon);
    }
    // Each step of reading the file fails in turn: it is reported once, nothing is read, and the file is
    // closed.
    void ExpectEachFailureOfReadingReported(const std::wstring& path, const std::function<bool()>& read) {
        for (const auto& [call, operation, journal] : ReadingSteps) {
            watched_.faults = {{call, Fault}};
            EXPECT_FALSE(read());
            ExpectReported(operation + path, Fault);
            EXPECT_EQ(TakeJournal(), journal);
            EXPECT_EQ(watched_.openFiles, 0);
        }
    }
    Journal TakeJournal() { return std::exchange(journal_, {}); }

    static constexpr platform::Win32Code Fault = 1117;  // an input/output error of the device

    Journal journal_;
    const std::unique_ptr<TestFiles> files_ = MakeTestFiles();
    WatchedFiles watched_{files_->Files(), journal_};
    RecordingScreen screen_{world_->Screen()};
    CountingMemory memory_{world_->Machine().Memory};
    const platform::Machine machine_ = MachineWith(world_->Machine(), {.Files = &watched_, .Memory = &memory_});
    const errors::ErrorReporter watchedReporter_{machine_, screen_};
    config::RegistryStore watchedStore_{machine_, watchedReporter_};
    const config::Services exchange_{machine_, screen_, watchedReporter_, watchedStore_};
};

}  // namespace tests
