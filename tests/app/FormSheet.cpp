#include "tests/app/FormSheet.h"

#include <iomanip>
#include <sstream>

#include "demo/Utf8.h"
#include "ui/Choices.h"
#include "ui/Controls.h"
#include "ui/Dialog.h"
#include "ui/ListView.h"

namespace tests {
namespace {

std::string Quoted(const std::wstring& text) {
    const std::string bytes = demo::ToUtf8(text).value();
    std::string quoted = "\"";
    for (const char unit : bytes) {
        if (unit == '\r') {
            quoted += "\\r";
        } else if (unit == '\n') {
            quoted += "\\n";
        } else {
            quoted += unit;
        }
    }
    return quoted + "\"";
}

class KindNamer : public ui::ControlVisitor {
  public:
    void Visit(ui::Label&) override { kind_ = "label"; }
    void Visit(ui::Picture&) override { kind_ = "picture"; }
    void Visit(ui::GroupBox&) override { kind_ = "frame"; }
    void Visit(ui::Edit& control) override {
        kind_ = "edit";
        AddIf(control.Style().digitsOnly, "digits only");
        AddIf(control.IsReadOnly(), "read only");
        AddIf(control.Style().multiLine, "lines");
        AddIf(control.Style().scrollBars, "scroll bars");
        AddIf(control.Style().takesPaths, "takes paths");
        if (!control.Cue().empty()) traits_ += ", cue " + Quoted(control.Cue());
    }
    void Visit(ui::Button&) override { kind_ = "button"; }
    void Visit(ui::IconButton&) override { kind_ = "icon button"; }
    void Visit(ui::CheckBox&) override { kind_ = "check box"; }
    void Visit(ui::ComboBox&) override { kind_ = "drop-down list"; }
    void Visit(ui::EditableCombo&) override { kind_ = "editable list"; }
    void Visit(ui::ListBox&) override { kind_ = "list box"; }
    void Visit(ui::UpDown&) override { kind_ = "arrows"; }
    void Visit(ui::ListView& control) override {
        kind_ = "list view";
        AddIf(control.Style().singleSelection, "single selection");
        AddIf(control.Style().checkBoxes, "check boxes");
        AddIf(control.Style().sortableHeaders, "sortable");
    }

    const std::string& Kind() const { return kind_; }
    const std::string& Traits() const { return traits_; }

  private:
    void AddIf(bool has, const char* trait) {
        if (has) traits_ += std::string(", ") + trait;
    }

    std::string kind_;
    std::string traits_;
};

std::string FollowText(const ui::Follow& follow) {
    std::string text;
    const auto add = [&text](const char* what, int x, int y) {
        if (x == 0 && y == 0) return;
        text += std::string(", ") + what + " " + std::to_string(x) + " " + std::to_string(y);
    };
    add("moves", follow.moveX, follow.moveY);
    add("grows", follow.growX, follow.growY);
    return text;
}

// What is typed into a field is none of the form's own.
std::string TextsOf(const ui::Dialog& form, const ui::Control& control) {
    std::string texts;
    if (control.HasCaption() && !control.Text().empty()) texts += ", " + Quoted(control.Text());
    if (!control.Tooltip().empty()) texts += ", tooltip " + Quoted(control.Tooltip());
    if (control.IsVisible() && ui::NeedsAccessibleLabel(form, control)) texts += ", called " + Quoted(control.Name());
    return texts;
}

std::string LineOf(const ui::Dialog& form, ui::Control& control) {
    KindNamer namer;
    control.Accept(namer);
    const ui::Place& place = control.Placement();
    std::string details = TextsOf(form, control) + namer.Traits() + FollowText(place.follow);
    if (!control.IsVisible()) details += ", hidden";
    if (!control.IsEnabled()) details += ", disabled";

    std::ostringstream line;
    line << std::setw(4) << control.Id() << "  " << std::left << std::setw(14) << namer.Kind() << std::right;
    for (const int number : {place.x, place.y, place.width, place.height}) line << std::setw(4) << number;
    if (!details.empty()) line << "  " << details.substr(2);
    return line.str() + "\n";
}

std::string StyleText(const ui::DialogStyle& style) {
    std::string text = std::to_string(style.size.width) + " x " + std::to_string(style.size.height);
    if (style.resizable) text += ", resizable";
    if (style.minimizeBox) text += ", minimise box";
    if (!style.systemMenu) text += ", no close box";
    return text + "\n";
}

}  // namespace

void FormSheet::Add(const ui::Dialog& form, const std::wstring& shape) {
    Lines lines{StyleText(form.Style())};
    for (ui::Control* control : form.Controls()) lines.push_back(LineOf(form, *control));

    if (!text_.empty()) text_ += "\n";
    text_ += Quoted(form.Caption());
    if (!shape.empty()) text_ += ", " + Quoted(shape);
    text_ += "\n";
    const auto [first, isNew] = seen_.try_emplace(typeid(form), lines);
    for (size_t i = 0; i < lines.size(); ++i)
        if (isNew || i >= first->second.size() || lines[i] != first->second[i]) text_ += lines[i];
}

}  // namespace tests
