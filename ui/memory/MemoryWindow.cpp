#include "ui/memory/MemoryWindow.h"

#include <algorithm>
#include <utility>

#include "ui/ListView.h"
#include "ui/memory/Input.h"

namespace ui::memory {
namespace {

// In pixels at 96 dpi. A dialog unit is a quarter of the dialog font's average width and an eighth of its
// height.
constexpr uint32_t UnscaledDpi = 96;
constexpr int FontWidth = 6;
constexpr int FontHeight = 13;
constexpr Size FrameAround{16, 39};
constexpr int MenuBarHeight = 20;
constexpr Size SmallestOuter{136, 39};
constexpr int ListBorder = 2;
constexpr int ListHeaderHeight = 24;
constexpr int ListRowHeight = 17;

}  // namespace

MemoryWindow::MemoryWindow(Dialog& dialog, const platform::ScreenMetrics& metrics, uint32_t dpi,
                           std::function<void()> onEnd)
    : dialog_(dialog),
      metrics_(metrics),
      dpi_(dpi),
      onEnd_(std::move(onEnd)) {}

void MemoryWindow::Open() {
    client_ = LayOut();
    if (shown_) shown_->ShowAll(dialog_);
    dialog_.Opened(*this, client_, dpi_);
}

int MemoryWindow::Result() const {
    if (failure_) std::rethrow_exception(failure_);
    return result_.value_or(IdCancel);
}

void MemoryWindow::Fail(std::exception_ptr failure) {
    if (wasActive_ && !HasEnded() && dialog_.RecoversFrom(failure)) return;
    if (!failure_) failure_ = std::move(failure);
    End(IdCancel);
}

void MemoryWindow::Activate() {
    Control* const before = std::exchange(focusBehind_, nullptr);
    const bool first = !std::exchange(wasActive_, true);
    behind_ = false;
    if (HasEnded() || minimized_ || dialog_.Focus() != nullptr || (before == nullptr && !first)) return;
    Control* const focus = before != nullptr && CanTakeFocus(*before) ? before : NextTabStop(dialog_);
    if (focus != nullptr) focus->UserFocused();
}

void MemoryWindow::Deactivate() {
    if (behind_ || HasEnded()) return;
    behind_ = true;
    focusBehind_ = dialog_.Focus();
    if (focusBehind_ == nullptr) return;
    try {
        focusBehind_->UserLeft();
    } catch (...) {
        Fail(std::current_exception());
    }
}

Size MemoryWindow::OuterSize() const {
    const Size frame = Frame();
    return {client_.width + frame.width, client_.height + frame.height};
}

void MemoryWindow::UserDraggedCorner(Size growth) {
    const Size outer = OuterSize();
    TakeClientSize(ClientFor({outer.width + growth.width, outer.height + growth.height}));
}

void MemoryWindow::UserMinimized() {
    minimized_ = true;
    Deactivate();
    dialog_.UserResized(SizeKind::Minimized, {});
}

void MemoryWindow::UserRestored() {
    minimized_ = false;
    dialog_.UserResized(SizeKind::Restored, client_);
    Activate();
}

void MemoryWindow::UserMovedToMonitor(uint32_t dpi) {
    dpi_ = dpi;
    dialog_.UserChangedDpi(dpi, LayOut());
    TakeClientSize(dialog_.ClientSize());
}

// Gives the controls their opening bounds, and returns the size that the dialog opens with.
Size MemoryWindow::LayOut() {
    for (Control* control : dialog_.Controls()) control->SetOpeningBounds(ToPixels(control->Placement()));
    const Size units = dialog_.Style().size;
    const Rect pixels = ToPixels({0, 0, units.width, units.height});
    return {pixels.width, pixels.height};
}

bool MemoryWindow::UserEndsSession() {
    const wchar_t* const reason = dialog_.ReasonToStay();
    reasonToStay_ = reason == nullptr ? L"" : reason;
    return reason == nullptr;
}

// A control that cannot be used does not keep the focus: the next one gets it.
void MemoryWindow::Show(const Control& control, Aspect aspect) {
    if (shown_) shown_->Show(control, aspect);
    if (!control.HasFocus() || (control.IsVisible() && control.IsEnabled())) return;
    Control* const next = NextTabStop(dialog_);
    dialog_.UserLeft(*dialog_.Focus());
    if (next != nullptr) next->UserFocused();
}

void MemoryWindow::Show(const Dialog& dialog, DialogAspect aspect) {
    if (shown_) shown_->Show(dialog, aspect);
    if (aspect == DialogAspect::ReasonToStay && dialog.ReasonToStay() == nullptr) reasonToStay_.clear();
    if (aspect != DialogAspect::Focus || !behind_) return;
    focusBehind_ = dialog.Focus();
    dialog_.UserLeft(*focusBehind_);  // the dialog's record only: the control has not had the focus
}

void MemoryWindow::End(int result) {
    if (result_) return;
    result_ = result;
    const std::function<void()> onEnd = std::move(onEnd_);
    if (onEnd) onEnd();
}

int MemoryWindow::ClientWidth(const Control& control) {
    const auto* list = dynamic_cast<const ListView*>(&control);
    const Rect& bounds = control.Bounds();
    if (list == nullptr) return bounds.width;
    const int width = bounds.width - 2 * Scaled(ListBorder);
    const int64_t height = bounds.height - 2 * Scaled(ListBorder) - Scaled(ListHeaderHeight);
    const auto needed = static_cast<int64_t>(list->RowCount()) * Scaled(ListRowHeight);
    return std::max(0, needed > height ? width - metrics_.VerticalScrollBarWidth(dpi_) : width);
}

Rect MemoryWindow::NormalRect() const {
    const Size outer = OuterSize();
    return {x_, y_, outer.width, outer.height};
}

void MemoryWindow::SetNormalRect(const Rect& rect) {
    x_ = rect.x;
    y_ = rect.y;
    TakeClientSize(ClientFor({rect.width, rect.height}));
}

int MemoryWindow::Scaled(int pixels) const {
    return ui::Scaled(pixels, dpi_, UnscaledDpi);
}

Size MemoryWindow::Frame() const {
    const int menuBar = dialog_.MenuBar().empty() ? 0 : MenuBarHeight;
    return {Scaled(FrameAround.width), Scaled(FrameAround.height + menuBar)};
}

// A window is never smaller than its smallest size, whoever sizes it.
Size MemoryWindow::ClientFor(Size outer) const {
    const Size frame = Frame();
    const Size own = dialog_.Style().resizable ? dialog_.MinimumTrackSize() : Size{};
    const int width = own.width > 0 ? own.width : Scaled(SmallestOuter.width);
    const int height = own.height > 0 ? own.height : Scaled(SmallestOuter.height);
    return {std::max(0, std::max(outer.width, width) - frame.width),
            std::max(0, std::max(outer.height, height) - frame.height)};
}

void MemoryWindow::TakeClientSize(Size client) {
    if (client == client_) return;
    client_ = client;
    if (!minimized_) dialog_.UserResized(SizeKind::Restored, client_);
}

Rect MemoryWindow::ToPixels(const Place& place) const {
    const int unitX = Scaled(FontWidth);
    const int unitY = Scaled(FontHeight);
    return {ui::Scaled(place.x, unitX, 4), ui::Scaled(place.y, unitY, 8), ui::Scaled(place.width, unitX, 4),
            ui::Scaled(place.height, unitY, 8)};
}

}  // namespace ui::memory
