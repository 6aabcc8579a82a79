// A screen on which nothing may open but reports, which are kept.
#pragma once

#include <algorithm>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "fuzz/Input.h"
#include "ui/Screen.h"

namespace fuzz {

class Reports final : public ui::Screen {
  public:
    explicit Reports(const platform::ScreenMetrics& metrics) : metrics_(metrics) {}

    size_t Count() const { return texts_.size(); }
    size_t CountOf(std::wstring_view beginning) const {
        const auto begins = [beginning](const std::wstring& text) { return text.starts_with(beginning); };
        return static_cast<size_t>(std::count_if(texts_.begin(), texts_.end(), begins));
    }
    void Forget() { texts_.clear(); }

    int ShowMessageBox(const ui::Dialog* owner, const std::wstring& text, const std::wstring& /*caption*/,
                       uint32_t flags) override {
        Require(owner == nullptr && flags == (ui::box::Ok | ui::box::ErrorIcon));
        texts_.push_back(text);
        return ui::IdOk;
    }
    int RunModal(ui::Dialog& /*dialog*/) override { std::abort(); }
    void OpenModeless(ui::Dialog& /*dialog*/) override { std::abort(); }
    std::optional<std::wstring> PickFolder(const ui::Dialog* /*owner*/, const std::wstring& /*folder*/) override {
        std::abort();
    }
    std::optional<std::wstring> PickFile(const ui::Dialog* /*owner*/, const ui::FilePicker& /*picker*/) override {
        std::abort();
    }
    void ShowWaitCursor(bool /*shown*/) override {}
    const platform::ScreenMetrics& Metrics() const override { return metrics_; }

  private:
    const platform::ScreenMetrics& metrics_;
    std::vector<std::wstring> texts_;
};

}  // namespace fuzz
