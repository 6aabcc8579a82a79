// A user of the in-memory screen who presses always the same button and remembers what there was to read.
#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "ui/memory/MemoryScreen.h"

namespace tests {

class RecordingUser final : public ui::memory::User {
  public:
    struct Box {
        std::wstring text;
        std::wstring caption;
        uint32_t flags;
        bool operator==(const Box&) const = default;
    };
    std::vector<Box> boxes;
    int answer = ui::IdOk;

    void DialogOpened(ui::Dialog& /*dialog*/) override { ADD_FAILURE() << "a dialog opened"; }
    int BoxOpened(const std::wstring& text, const std::wstring& caption, uint32_t flags) override {
        boxes.push_back({text, caption, flags});
        return answer;
    }
    std::optional<std::wstring> FolderPickerOpened() override {
        ADD_FAILURE() << "a folder picker opened";
        return std::nullopt;
    }
    std::optional<std::wstring> FilePickerOpened(ui::FilePickerKind /*kind*/) override {
        ADD_FAILURE() << "a file picker opened";
        return std::nullopt;
    }
};

}  // namespace tests
