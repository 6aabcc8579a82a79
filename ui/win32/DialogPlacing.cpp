// Where the window of a dialog and its controls are, how large they are, and how they follow the resolution
// of the monitor that shows them.
#include <windows.h>

#include <utility>

#include "ui/win32/DialogWindow.h"
#include "ui/win32/Placing.h"
#include "ui/win32/WindowKinds.h"

namespace ui::win32 {
namespace {

constexpr UINT MoveFlags = SWP_NOZORDER | SWP_NOACTIVATE;

Rect OpeningRect(Control& control, Size letter) {
    Place place = control.Placement();
    place.height += KindOf(control).dropHeight;
    return ToPixels(place, letter);
}

}  // namespace

void DialogWindow::ReportOpeningBounds() {
    for (const auto& mirror : mirrors_) {
        const Rect bounds = BoundsIn(window_, mirror->Window());
        mirror->NoteBounds(bounds);
        mirror->Mirrored().SetOpeningBounds(bounds);
    }
}

void DialogWindow::ShowBounds(const Dialog& /*dialog*/) {
    const EchoGuard guard(*this);
    if (!MoveAtOnce()) MoveOneByOne();
    for (const auto& mirror : mirrors_) {
        if (mirror->HasBoundsOfControl()) continue;
        mirror->NoteBounds(mirror->Mirrored().Bounds());
        mirror->Moved();
        tooltips_.Follow(mirror->Window());
    }
    RedrawWindow(window_, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN);
}

// False: the system had no room to collect the moves.
bool DialogWindow::MoveAtOnce() const {
    HDWP moves = BeginDeferWindowPos(static_cast<int>(mirrors_.size()));
    for (const auto& mirror : mirrors_) {
        if (mirror->HasBoundsOfControl()) continue;
        const Rect to = mirror->BoundsWithDrop();
        moves = DeferWindowPos(moves, mirror->Window(), nullptr, to.x, to.y, to.width, to.height, MoveFlags);
    }
    return moves != nullptr && EndDeferWindowPos(moves) != FALSE;
}

void DialogWindow::MoveOneByOne() const {
    for (const auto& mirror : mirrors_) {
        const Rect to = mirror->BoundsWithDrop();
        SetWindowPos(mirror->Window(), nullptr, to.x, to.y, to.width, to.height, MoveFlags);
    }
}

int DialogWindow::ClientWidth(const Control& control) {
    ControlMirror& mirror = MirrorOf(control);
    ShowFirst(mirror);  // its rows may bring a scroll bar
    RECT client{};
    GetClientRect(mirror.Window(), &client);
    return client.right;
}

Rect DialogWindow::NormalRect() const {
    return NormalRectOf(window_);
}

void DialogWindow::SetNormalRect(const Rect& rect) {
    place_ = rect;
    MoveNormalRect(window_, rect);
    // A monitor with another resolution has made the window larger or smaller on the way.
    if (NormalRect() != rect) MoveNormalRect(window_, rect);
}

void DialogWindow::OnSize(WPARAM kind, Size client) {
    if (!HearsOfSizes()) return;
    const SizeKind before = std::exchange(sizeKind_, kind == SIZE_MINIMIZED   ? SizeKind::Minimized
                                                     : kind == SIZE_MAXIMIZED ? SizeKind::Maximized
                                                                              : SizeKind::Restored);
    const auto dpi = sizeKind_ == SizeKind::Restored ? std::exchange(nextDpi_, std::nullopt) : std::nullopt;
    if (dpi) {
        TakeDpi(*dpi);
        RECT outer{};
        GetWindowRect(window_, &outer);
        return FitTo({outer.left, outer.top});
    }
    // The system says its size once more when a window is first shown.
    if (before == sizeKind_ && client == dialog_.ClientSize()) return;
    dialog_.UserResized(sizeKind_, client);
}

void DialogWindow::OnMinMaxInfo(MINMAXINFO& info) const {
    if (!HearsOfSizes()) return;
    const Size smallest = dialog_.MinimumTrackSize();
    if (smallest.width != 0) info.ptMinTrackSize.x = smallest.width;
    if (smallest.height != 0) info.ptMinTrackSize.y = smallest.height;
}

Size DialogWindow::Client() const {
    RECT client{};
    GetClientRect(window_, &client);
    return {client.right, client.bottom};
}

// The system asks how large the window will be at another resolution; what it would take itself ignores that
// neither the font nor the frame grows evenly.
INT_PTR DialogWindow::OnScaledSize(uint32_t dpi, SIZE& size) const {
    if (stage_ == Stage::Making || dpi == 0 || IsIconic(window_) != FALSE) return FALSE;
    const Size outer = OuterSizeFor(window_, dialog_.ClientSizeAt(dpi, OpeningSize(rescaling_.LetterAt(dpi))), dpi);
    size = {outer.width, outer.height};
    return Reply(TRUE);
}

void DialogWindow::OnChangedDpi(uint32_t dpi, const RECT& suggested) {
    if (stage_ == Stage::Making || dpi == 0) return;
    if (IsIconic(window_) != FALSE) {
        nextDpi_ = dpi;
        return;
    }
    if (dpi == dialog_.Dpi()) return;
    TakeDpi(dpi);
    if (place_ && IsWindowVisible(window_) == FALSE) {
        MoveNormalRect(window_, *place_);
    } else {
        FitTo({suggested.left, suggested.top});
    }
}

// Everything within the window is as it would be had the dialog opened at this resolution, and had then been
// made larger as it is.
void DialogWindow::TakeDpi(uint32_t dpi) {
    const Size letter = rescaling_.LetterAt(dpi);
    {
        const EchoGuard guard(*this);
        rescaling_.ShowFont(window_, dpi);
        LayOut(letter);
        ReportOpeningBounds();
    }
    dialog_.UserChangedDpi(dpi, OpeningSize(letter));
    const EchoGuard guard(*this);
    for (const auto& mirror : mirrors_) mirror->ShowRescaled(dpi);
    ShowIcon();
}

void DialogWindow::LayOut(Size letter) {
    for (const auto& mirror : mirrors_) mirror->LetGo();
    for (const auto& mirror : mirrors_) {
        const Rect to = OpeningRect(mirror->Mirrored(), letter);
        SetWindowPos(mirror->Window(), nullptr, to.x, to.y, to.width, to.height,
                     SWP_NOZORDER | SWP_NOACTIVATE | SWP_NOREDRAW);
    }
    for (const auto& mirror : mirrors_) mirror->TakeHold();
    for (const auto& mirror : mirrors_) {
        mirror->Moved();
        tooltips_.Follow(mirror->Window());
    }
}

Size DialogWindow::OpeningSize(Size letter) const {
    const Size units = dialog_.Style().size;
    const Rect pixels = ToPixels({.width = units.width, .height = units.height}, letter);
    return {pixels.width, pixels.height};
}

// Gives the window the size that the dialog has taken, with its upper left corner there.
void DialogWindow::FitTo(POINT corner) {
    const Size client = dialog_.ClientSize();
    const Size outer = OuterSizeFor(window_, client, dialog_.Dpi());
    {
        const EchoGuard guard(*this);
        SetWindowPos(window_, nullptr, corner.x, corner.y, outer.width, outer.height, MoveFlags);
        // The frame may be another one than the system says.
        if (Client() != client) ResizeClient(window_, client);
    }
    if (Client() != client) dialog_.LimitedTo(Client());
}

}  // namespace ui::win32
