// How the window of a dialog follows the resolution of the monitor that shows it.
#include <windows.h>

#include "ui/win32/DialogWindow.h"
#include "ui/win32/Placing.h"
#include "ui/win32/WindowKinds.h"

namespace ui::win32 {
namespace {

Rect OpeningRect(Control& control, Size letter) {
    Place place = control.Placement();
    place.height += KindOf(control).dropHeight;
    return ToPixels(place, letter);
}

}  // namespace

// The system asks how large the window will be at another resolution; what it would take itself ignores that
// neither the font nor the frame grows evenly.
INT_PTR DialogWindow::OnScaledSize(uint32_t dpi, SIZE& size) const {
    if (!opened_ || dpi == 0 || IsIconic(window_) != FALSE) return FALSE;
    const Size outer =
        OuterSizeFor(window_, dialog_.ClientSizeAt(dpi, OpeningSize(rescaling_.LetterAt(dpi))), dpi);
    size = {outer.width, outer.height};
    return Reply(TRUE);
}

void DialogWindow::OnChangedDpi(uint32_t dpi, const RECT& suggested) {
    if (!opened_ || dpi == 0) return;
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
    RedrawWindow(window_, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN);
}

// Everything within the window is as it would be had the dialog opened at this resolution, and had then been
// made larger as it is.
void DialogWindow::TakeDpi(uint32_t dpi) {
    const Size letter = rescaling_.LetterAt(dpi);
    {
        const Writing writing(*this);
        rescaling_.ShowFont(window_, dpi);
        LayOut(letter);
        ReportOpeningBounds();
    }
    dialog_.UserChangedDpi(dpi, OpeningSize(letter));
    const Writing writing(*this);
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
}

Size DialogWindow::OpeningSize(Size letter) const {
    const Size units = dialog_.Style().size;
    const Rect pixels = ToPixels({0, 0, units.width, units.height}, letter);
    return {pixels.width, pixels.height};
}

// Gives the window the size that the dialog has taken, with its upper left corner there.
void DialogWindow::FitTo(POINT corner) {
    const Size client = dialog_.ClientSize();
    const Size outer = OuterSizeFor(window_, client, dialog_.Dpi());
    fitting_ = true;
    SetWindowPos(window_, nullptr, corner.x, corner.y, outer.width, outer.height,
                 SWP_NOZORDER | SWP_NOACTIVATE);
    if (Client() != client) ResizeClient(window_, client);  // the frame is another one than the system says
    fitting_ = false;
    if (Client() != client) dialog_.LimitedTo(Client());
}

}  // namespace ui::win32
