#include "crypto/AwaitDlg.h"

namespace crypto {

// In the middle of the parent, halves of pixels cut off.
void AwaitDlg::OnInitDialog() {
    const ui::Rect parent = Parent()->NormalRect();
    ui::Rect own = NormalRect();
    own.x = parent.x + parent.width / 2 - own.width / 2;
    own.y = parent.y + parent.height / 2 - own.height / 2;
    SetNormalRect(own);
}

}  // namespace crypto
