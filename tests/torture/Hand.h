// A user who takes what comes: reads every box and notes it, works in the dialogs that open and leaves alone
// what cannot be used. Where calls fail at random, nobody can say beforehand what will open.
#pragma once

#include <functional>
#include <map>
#include <optional>
#include <string>
#include <typeindex>
#include <vector>

#include "tests/support/Ids.h"
#include "tests/torture/Faults.h"
#include "ui/memory/MemoryScreen.h"

namespace tests::torture {

// What the program told.
struct Report {
    std::wstring text;
    uint32_t flags = 0;  // of a message box; 0: a box for long texts
    bool owned = true;   // it belongs to the dialog that the user works with
    bool operator==(const Report&) const = default;
};

void PrintTo(const Report& report, std::ostream* out);

class Hand final : public ui::memory::User {
  public:
    Hand(ui::memory::MemoryScreen& screen, Faults& faults);

    // What is done in every dialog of this class that opens. One that it leaves open is closed.
    template <class D>
    void In(std::function<void()> script) {
        scripts_[typeid(D)] = std::move(script);
    }
    bool goesOn = true;                        // when asked whether to go on without something
    std::optional<std::wstring> file;          // what is picked
    std::vector<Report> reports;               // told so far, questions that belong to commands left out
    size_t memoryBoxes = 0;                    // how often memory was said to be short
    bool askedToLeave = false;                 // the question whether to leave without saving; the answer is no
    std::map<std::type_index, size_t> opened;  // how many dialogs of each class

    // Gestures. What cannot be used is left alone; a dialog that has ended, too.
    void Click(int id);
    void Paste(int id, const std::wstring& text);
    void Choose(int id, int index);
    void ToggleCheck(int id, size_t row);
    void Select(int id, size_t row);
    void DoubleClick(int id, size_t row);
    void CloseBox();

    std::wstring Text(int id) const { return open_.back()->Find(id).Text(); }
    bool IsOpen() const;  // the dialog whose script is running
    std::vector<std::wstring> Cells(int list) const;

  private:
    void DialogOpened(ui::Dialog& dialog) override;
    int BoxOpened(const std::wstring& text, const std::wstring& caption, uint32_t flags) override;
    std::optional<std::wstring> FolderPickerOpened() override { return std::nullopt; }
    std::optional<std::wstring> FilePickerOpened(ui::FilePickerKind kind) override;

    template <class C>
    void Use(int id, const std::function<void(C&)>& gesture);
    void Act(const std::function<void()>& gesture);
    void Read(const ui::Dialog& warningBox);

    ui::memory::MemoryScreen& screen_;
    Faults& faults_;
    std::map<std::type_index, std::function<void()>> scripts_;
    std::vector<ui::Dialog*> open_;
};

}  // namespace tests::torture
