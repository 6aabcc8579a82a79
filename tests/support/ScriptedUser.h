// A user of the in-memory screen who does in each window what its script says, and remembers what there was
// to read. Without a script every box is answered with OK, and any other window fails the test.
#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "tests/support/RecordingScreen.h"
#include "ui/memory/MemoryScreen.h"

namespace tests {

class ScriptedUser final : public ui::memory::User {
  public:
    using Box = RecordingScreen::Box;
    std::vector<Box> boxes;
    std::function<void(ui::Dialog&)> onDialog = [](ui::Dialog&) { ADD_FAILURE() << "a dialog opened"; };
    std::function<int()> onBox = [] { return ui::IdOk; };
    std::function<std::optional<std::wstring>()> onPicker = [] {
        ADD_FAILURE() << "a picker opened";
        return std::nullopt;
    };

    void DialogOpened(ui::Dialog& dialog) override {
        const auto script = onDialog;  // which may set the next one
        script(dialog);
    }
    int BoxOpened(const std::wstring& text, const std::wstring& caption, uint32_t flags) override {
        boxes.push_back({text, caption, flags});
        return onBox();
    }
    std::optional<std::wstring> FolderPickerOpened() override { return onPicker(); }
    std::optional<std::wstring> FilePickerOpened(ui::FilePickerKind /*kind*/) override { return onPicker(); }
};

}  // namespace tests
