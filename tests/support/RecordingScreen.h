// A screen with a note of what the program asked of it: a window does not say which flags it was made with or
// to whom it belongs. It can also answer boxes and pickers by itself, where what they look like is the
// business of other tests or where a procedure fails so often that windows would take too long.
#pragma once

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "ui/Dialog.h"
#include "ui/Screen.h"

namespace tests {

using Journal = std::vector<std::string>;

// A message box or picker of the system that the program is waiting for.
struct SystemDialogRequest {
    enum class Kind { Box, FolderPicker, FilePicker };
    Kind kind = Kind::Box;
    std::wstring text{};  // of a box; where a folder picker starts
    std::wstring caption{};
    uint32_t flags = 0;
    bool met = false;                   // its window has opened
    const ui::Dialog* owner = nullptr;  // none, or a dialog that is open
    ui::FilePicker picker{};            // of a file picker
};

class RecordingScreen final : public ui::Screen {
  public:
    explicit RecordingScreen(ui::Screen& real) : real_(real) {}

    struct Box {
        std::wstring text;
        std::wstring caption;
        uint32_t flags = 0;
        bool operator==(const Box&) const = default;
    };
    // All in the order of opening.
    std::vector<Box> boxes;
    std::vector<ui::FilePicker> pickers;
    std::vector<const ui::Dialog*> owners;  // of boxes and file pickers
    std::vector<const ui::Dialog*> modeless;
    int waitCursors = 0;  // shown and not yet taken away

    // From now on no box and no file picker opens: the user says OK to every box and gives up every picker,
    // unless there is a choice. Both go into the journal, if there is one.
    void AnswerByItself(Journal* journal = nullptr) {
        opensNothing_ = true;
        journal_ = journal;
    }
    std::optional<std::wstring> choice;  // the file that is chosen in every picker
    // The same, and every box has to be a report of nobody's.
    void ExpectOnlyReports() {
        AnswerByItself();
        onlyReports_ = true;
    }
    // The boxes without their descriptions, which come from the system: "operation.\r\nError 0x5 - ".
    std::vector<std::wstring> Reports() const {
        std::vector<std::wstring> reports;
        for (const auto& [text, caption, flags] : boxes) {
            const size_t description = text.find(L" - ", text.find(L".\r\n"));
            reports.push_back(text.substr(0, description == std::wstring::npos ? description : description + 3));
        }
        return reports;
    }

    // The innermost request, none when the program waits for no such window.
    SystemDialogRequest* Current() { return requests_.empty() ? nullptr : &requests_.back(); }
    ui::Screen& Real() { return real_; }

    int RunModal(ui::Dialog& dialog) override { return real_.RunModal(dialog); }
    void OpenModeless(ui::Dialog& dialog) override {
        modeless.push_back(&dialog);
        real_.OpenModeless(dialog);
    }
    int ShowMessageBox(const ui::Dialog* owner, const std::wstring& text, const std::wstring& caption,
                       uint32_t flags) override {
        const Box& box = boxes.emplace_back(Box{text, caption, flags});
        owners.push_back(owner);
        if (onlyReports_) CheckReport(owner, box);
        if (opensNothing_) {
            Enter("box");
            return ui::IdOk;
        }
        const Waiting waiting(*this, owner, {.text = text, .caption = caption, .flags = flags});
        return real_.ShowMessageBox(owner, text, caption, flags);
    }
    std::optional<std::wstring> PickFolder(const ui::Dialog* owner, const std::wstring& folder) override {
        const Waiting waiting(*this, owner, {.kind = SystemDialogRequest::Kind::FolderPicker, .text = folder});
        return real_.PickFolder(owner, folder);
    }
    std::optional<std::wstring> PickFile(const ui::Dialog* owner, const ui::FilePicker& picker) override {
        pickers.push_back(picker);
        owners.push_back(owner);
        if (opensNothing_) {
            Enter("picker");
            return choice;
        }
        const Waiting waiting(*this, owner, {.kind = SystemDialogRequest::Kind::FilePicker, .picker = picker});
        return real_.PickFile(owner, picker);
    }
    void ShowWaitCursor(bool shown) override {
        waitCursors += shown ? 1 : -1;
        real_.ShowWaitCursor(shown);
    }
    const platform::ScreenMetrics& Metrics() const override { return real_.Metrics(); }

  private:
    class Waiting {
      public:
        Waiting(RecordingScreen& screen, const ui::Dialog* owner, SystemDialogRequest request)
            : requests_(screen.requests_) {
            if (owner != nullptr && owner->IsOpen()) request.owner = owner;
            requests_.push_back(std::move(request));
        }
        ~Waiting() { requests_.pop_back(); }
        Waiting(const Waiting&) = delete;
        Waiting& operator=(const Waiting&) = delete;

      private:
        std::vector<SystemDialogRequest>& requests_;
    };
    static void CheckReport(const ui::Dialog* owner, const Box& box) {
        EXPECT_EQ(owner, nullptr);
        EXPECT_EQ(box.caption, L"ZEMA AC QLD Service - configuration");
        EXPECT_EQ(box.flags, ui::box::Ok | ui::box::ErrorIcon);
    }
    void Enter(const char* what) {
        if (journal_ != nullptr) journal_->emplace_back(what);
    }

    ui::Screen& real_;
    std::vector<SystemDialogRequest> requests_;
    bool opensNothing_ = false;
    bool onlyReports_ = false;
    Journal* journal_ = nullptr;
};

}  // namespace tests
