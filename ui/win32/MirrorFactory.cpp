#include "ui/win32/MirrorFactory.h"

#include "ui/win32/ChoiceMirrors.h"
#include "ui/win32/ListViewMirror.h"
#include "ui/win32/SimpleMirrors.h"

namespace ui::win32 {
namespace {

class Factory : public ControlVisitor {
  public:
    explicit Factory(HWND window) : window_(window) {}

    void Visit(Label& control) override { Make<CaptionMirror>(control); }
    void Visit(Picture& control) override { Make<PictureMirror>(control); }
    void Visit(GroupBox& control) override { Make<CaptionMirror>(control); }
    void Visit(Edit& control) override { Make<EditMirror>(control); }
    void Visit(Button& control) override { Make<PushButtonMirror>(control); }
    void Visit(IconButton& control) override { Make<IconButtonMirror>(control); }
    void Visit(CheckBox& control) override { Make<CheckBoxMirror>(control); }
    void Visit(ComboBox& control) override { Make<ComboMirror>(control); }
    void Visit(EditableCombo& control) override { Make<EditableComboMirror>(control); }
    void Visit(ListBox& control) override { Make<ListBoxMirror>(control); }
    void Visit(UpDown& control) override { Make<UpDownMirror>(control); }
    void Visit(ListView& control) override { Make<ListViewMirror>(control); }

    std::unique_ptr<ControlMirror> Take() { return std::move(mirror_); }

  private:
    template <class Mirror, class Mirrored>
    void Make(Mirrored& control) {
        mirror_ = std::make_unique<Mirror>(control, window_);
    }

    const HWND window_;
    std::unique_ptr<ControlMirror> mirror_;
};

}  // namespace

std::unique_ptr<ControlMirror> MakeMirror(Control& control, HWND window) {
    Factory factory(window);
    control.Accept(factory);
    return factory.Take();
}

}  // namespace ui::win32
