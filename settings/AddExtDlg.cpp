#include "settings/AddExtDlg.h"

#include <algorithm>
#include <string_view>

#include "text/Trim.h"
#include "text/Upper.h"

namespace settings {
namespace {

constexpr wchar_t blanks[] = L" \t";

std::wstring_view TrimmedOfBlanks(std::wstring_view text) {
    const size_t first = text.find_first_not_of(blanks);
    return first == std::wstring_view::npos ? std::wstring_view()
                                            : text::TrimRight(text.substr(first), blanks);
}

// How far the small letter lies behind its capital in the alphabets that people name files in.
wchar_t SmallLetter(wchar_t unit) {
    for (const int distance : {32, 80, 48, 1}) {
        const auto candidate = static_cast<wchar_t>(unit + distance);
        if (text::Upper(candidate) == unit) return candidate;
    }
    return unit;
}

}  // namespace

CAddExtDlg::CAddExtDlg(ui::Screen& screen, ui::Dialog* owner)
    : Dialog(screen, owner, {.size = {200, 50}}, L"Add additional extension:") {}

void CAddExtDlg::OnOK() {
    std::wstring extension(TrimmedOfBlanks(edit_.Text()));
    if (extension.empty()) return;
    std::transform(extension.begin(), extension.end(), extension.begin(), SmallLetter);
    extension_ = std::move(extension);
    EndDialog(ui::IdOk);
}

}  // namespace settings
