#include "ui/Control.h"

#include "ui/Dialog.h"
#include "ui/Window.h"

namespace ui {

Control::Control(Dialog& owner, int id, const Place& place, std::wstring text)
    : owner_(owner),
      id_(id),
      place_(place),
      text_(std::move(text)) {
    owner.Register(*this);
}

void Control::SetText(std::wstring text) {
    if (text == text_) return;  // setting an edit's text anew would move its caret
    text_ = std::move(text);
    Changed(Aspect::Text);
}

void Control::SetName(std::wstring name) {
    if (name == name_) return;
    name_ = std::move(name);
    Changed(Aspect::Name);
}

void Control::Enable(bool enabled) {
    if (enabled == enabled_) return;
    enabled_ = enabled;
    Changed(Aspect::Enabled);
}

void Control::Show(bool visible) {
    if (visible == visible_) return;
    visible_ = visible;
    Changed(Aspect::Visible);
}

void Control::SetTooltip(std::wstring tooltip) {
    if (tooltip == tooltip_) return;
    tooltip_ = std::move(tooltip);
    Changed(Aspect::Tooltip);
}

void Control::SetFocus() {
    owner_.SetFocus(*this);
}

bool Control::HasFocus() const {
    return owner_.Focus() == this;
}

void Control::UserFocused() {
    owner_.UserFocused(*this);
}

void Control::UserLeft() {
    owner_.UserLeft(*this);
    if (onFocusLost_) onFocusLost_();
}

void Control::FollowGrowth(const Size& growth) {
    const Follow& follow = place_.follow;
    bounds_ = {openingBounds_.x + growth.width * follow.moveX / 100,
               openingBounds_.y + growth.height * follow.moveY / 100,
               openingBounds_.width + growth.width * follow.growX / 100,
               openingBounds_.height + growth.height * follow.growY / 100};
}

void Control::Changed(Aspect aspect) const {
    if (owner_.window_ != nullptr) owner_.window_->Show(*this, aspect);
}

}  // namespace ui
