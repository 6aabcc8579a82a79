// A screen on which nothing may open but reports. They are kept, so that a test can fail every call of a long
// procedure in turn and compare what was said each time.
#pragma once

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <vector>

#include "ui/Screen.h"

namespace tests {

class ReportsOnlyScreen final : public ui::Screen {
  public:
    explicit ReportsOnlyScreen(const platform::ScreenMetrics& metrics) : metrics_(metrics) {}

    // Without their descriptions, which come from the system: "operation.\r\nError 0x5 - ".
    std::vector<std::wstring> reports;

    int ShowMessageBox(const ui::Dialog* owner, const std::wstring& text, const std::wstring& caption,
                       uint32_t flags) override {
        EXPECT_EQ(owner, nullptr);
        EXPECT_EQ(caption, L"ZEMA AC QLD Service - configuration");
        EXPECT_EQ(flags, ui::box::Ok | ui::box::ErrorIcon);
        const size_t description = text.find(L" - ", text.find(L".\r\n"));
        reports.push_back(text.substr(0, description == std::wstring::npos ? description : description + 3));
        return ui::IdOk;
    }
    int RunModal(ui::Dialog& /*dialog*/) override {
        ADD_FAILURE() << "a dialog opened";
        return ui::IdCancel;
    }
    void OpenModeless(ui::Dialog& /*dialog*/) override { ADD_FAILURE() << "a dialog opened"; }
    std::optional<std::wstring> PickFolder(const ui::Dialog* /*owner*/,
                                           const std::wstring& /*folder*/) override {
        return std::nullopt;
    }
    std::optional<std::wstring> PickFile(const ui::Dialog* /*owner*/,
                                         const ui::FilePicker& /*picker*/) override {
        return std::nullopt;
    }
    void ShowWaitCursor(bool /*shown*/) override {}
    const platform::ScreenMetrics& Metrics() const override { return metrics_; }

  private:
    const platform::ScreenMetrics& metrics_;
};

}  // namespace tests
