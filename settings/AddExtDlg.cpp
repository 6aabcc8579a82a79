#include "settings/AddExtDlg.h"

#include <string_view>

#include "text/Lower.h"
#include "text/Trim.h"

namespace settings {
namespace {

constexpr wchar_t blanks[] = L" \t";

}  // namespace

CAddExtDlg::CAddExtDlg(ui::Screen& screen, ui::Dialog* owner)
    : Dialog(screen, owner, {.size = {200, 50}, .guidePage = L"settings"}, L"Add additional extension:") {}

void CAddExtDlg::OnOK() {
    const std::wstring_view extension = text::Trim(edit_.Text(), blanks);
    if (extension.empty()) return;
    extension_ = text::Lower(extension);
    EndDialog(ui::IdOk);
}

}  // namespace settings
