#include "ui/Dialog.h"

#include <algorithm>
#include <new>
#include <stdexcept>

#include "ui/Controls.h"
#include "ui/Window.h"

namespace ui {

Dialog::Dialog(ui::Screen& screen, Dialog* owner, const DialogStyle& style, std::wstring caption)
    : screen_(screen),
      parent_(owner),
      style_(style),
      caption_(std::move(caption)) {}

Dialog::~Dialog() {
    Close();
}

int Dialog::DoModal() {
    return screen_.RunModal(*this);
}

void Dialog::OpenModeless() {
    screen_.OpenModeless(*this);
}

void Dialog::Close() {
    if (window_ != nullptr) window_->End(IdCancel);
}

bool Dialog::HasEnded() const {
    return window_ == nullptr || window_->HasEnded();
}

Control& Dialog::Find(int id) const {
    const auto found = std::find_if(controls_.begin(), controls_.end(), [id](Control* c) { return c->Id() == id; });
    if (found == controls_.end()) throw std::out_of_range("Dialog::Find: no such control");
    return **found;
}

bool Dialog::Has(int id) const {
    return std::any_of(controls_.begin(), controls_.end(), [id](Control* c) { return c->Id() == id; });
}

int Dialog::ClientWidthOf(const Control& control) const {
    return window_ == nullptr ? 0 : window_->ClientWidth(control);
}

void Dialog::SetFocus(Control& control) {
    focus_ = &control;
    if (window_ != nullptr) window_->Show(*this, DialogAspect::Focus);
}

void Dialog::Opened(Window& window, Size clientSize, uint32_t dpi) {
    window_ = &window;
    openingSize_ = clientSize_ = clientSize;
    growthDpi_ = dpi_ = dpi;
    growth_ = {};
    OnInitDialog();
}

void Dialog::Closed() {
    window_ = nullptr;
    focus_ = nullptr;
}

Size Dialog::ClientSizeAt(uint32_t dpi, Size openingSize) const {
    return {openingSize.width + Scaled(growth_.width, dpi, growthDpi_),
            openingSize.height + Scaled(growth_.height, dpi, growthDpi_)};
}

void Dialog::UserResized(SizeKind kind, Size clientSize) {
    if (kind != SizeKind::Restored) return;
    if (clientSize != ClientSizeAt(dpi_, openingSize_)) {
        growth_ = {clientSize.width - openingSize_.width, clientSize.height - openingSize_.height};
        growthDpi_ = dpi_;
    }
    LimitedTo(clientSize);
}

void Dialog::LimitedTo(Size clientSize) {
    clientSize_ = clientSize;
    FollowGrowth();
}

void Dialog::UserChangedDpi(uint32_t dpi, Size openingSize) {
    dpi_ = dpi;
    openingSize_ = openingSize;
    clientSize_ = ClientSizeAt(dpi, openingSize);
    for (Control* control : controls_) control->FollowDpi(dpi);
    FollowGrowth();
}

void Dialog::FollowGrowth() {
    const Size growth{clientSize_.width - openingSize_.width, clientSize_.height - openingSize_.height};
    for (Control* control : controls_) control->FollowGrowth(growth);
    window_->ShowBounds(*this);
    OnResized();
}

void Dialog::UserPressedOk() {
    if (Has(IdOk) && !Find(IdOk).IsEnabled()) return;
    OnOK();
}

void Dialog::UserPressedCancel() {
    if (Has(IdCancel) && !Find(IdCancel).IsEnabled()) return;
    OnCancel();
}

void Dialog::UserChoseMenu(int command) {
    OnMenuCommand(command);
}

bool Dialog::UserChoseSystemMenu(int command) {
    const bool ours = std::any_of(systemMenuEntries_.begin(), systemMenuEntries_.end(),
                                  [command](const MenuItem& entry) { return entry.command == command; });
    if (ours) OnSystemCommand(command);
    return ours;
}

bool Dialog::UserPressed(const KeyChord& chord) {
    if (chord == KeyChord{.key = key::F1}) {
        screen_.ShowGuide(*this);
        return true;
    }
    const auto found = std::find_if(shortcuts_.begin(), shortcuts_.end(), [&](const Shortcut& shortcut) {
        return shortcut.chord == chord && (shortcut.where == nullptr || shortcut.where == focus_);
    });
    if (found == shortcuts_.end()) return focus_ != nullptr && focus_->UserPressed(chord);
    OnShortcut();
    found->action();
    return true;
}

void Dialog::UserFocused(Control& control) {
    focus_ = &control;
}

void Dialog::UserLeft(Control& control) {
    if (focus_ == &control) focus_ = nullptr;
}

bool Dialog::RecoversFrom(const std::exception_ptr& failure) const {
    try {
        std::rethrow_exception(failure);
    } catch (const std::bad_alloc&) {
        return screen_.ReportFailure(*this, nullptr);
    } catch (const ScreenError& error) {
        return screen_.ReportFailure(*this, &error);
    } catch (...) {
        return false;
    }
}

void Dialog::EndDialog(int result) {
    if (window_ != nullptr) window_->End(result);
}

void Dialog::AddShortcut(const KeyChord& chord, const Control* where, Handler action) {
    shortcuts_.push_back({chord, where, std::move(action)});
}

void Dialog::SetCaption(std::wstring caption) {
    caption_ = std::move(caption);
    if (window_ != nullptr) window_->Show(*this, DialogAspect::Caption);
}

void Dialog::SetIcon(ui::Icon icon) {
    icon_ = icon;
    if (window_ != nullptr) window_->Show(*this, DialogAspect::Icon);
}

void Dialog::SetMenuBar(std::vector<Menu> menus) {
    menuBar_ = std::move(menus);
    if (window_ != nullptr) window_->Show(*this, DialogAspect::MenuBar);
}

void Dialog::EnableMenuItems(const std::vector<int>& commands, bool enabled) {
    for (Menu& menu : menuBar_)
        for (MenuItem& item : menu.items)
            if (std::find(commands.begin(), commands.end(), item.command) != commands.end()) item.enabled = enabled;
    if (window_ != nullptr) window_->Show(*this, DialogAspect::MenuBar);
}

void Dialog::AppendToSystemMenu(int command, std::wstring text) {
    systemMenuEntries_.push_back({command, std::move(text), true});
    if (window_ != nullptr) window_->Show(*this, DialogAspect::SystemMenu);
}

Rect Dialog::NormalRect() const {
    return window_ == nullptr ? Rect{} : window_->NormalRect();
}

void Dialog::SetNormalRect(const Rect& rect) {
    if (window_ != nullptr) window_->SetNormalRect(rect);
}

void Dialog::ReasonToStayChanged() {
    if (window_ != nullptr) window_->Show(*this, DialogAspect::ReasonToStay);
}

namespace {

const Label* LabelBefore(const Dialog& dialog, const Control& control) {
    const auto& controls = dialog.Controls();
    const auto found = std::find(controls.begin(), controls.end(), &control);
    if (found == controls.begin() || found == controls.end()) return nullptr;
    return dynamic_cast<const Label*>(*(found - 1));
}

}  // namespace

bool NeedsAccessibleLabel(const Dialog& dialog, const Control& control) {
    if (!control.TakesFocus() || control.HasCaption()) return false;
    const Label* const label = LabelBefore(dialog, control);
    return label == nullptr || (!control.Name().empty() && control.Name() != label->Text());
}

std::wstring AccessibleName(const Dialog& dialog, const Control& control) {
    if (control.HasCaption()) return control.Text().empty() ? control.Tooltip() : control.Text();
    if (!control.Name().empty()) return control.Name();
    const Label* const label = LabelBefore(dialog, control);
    return label == nullptr ? std::wstring() : label->Text();
}

}  // namespace ui
