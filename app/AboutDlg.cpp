#include "app/AboutDlg.h"

#include "text/Format.h"

namespace app {

std::wstring FullVersion() {
    const std::wstring titleAndVersion =
        text::Format(L"ZEMA AC QLD Service - configuration%s Version " BRISGATE_SERIES, L" (x64)");
    return text::Format(L"%s.0%s.%s", titleAndVersion, L"" BRISGATE_BUILD, L"" BRISGATE_REVISION);
}

CAboutDlg::CAboutDlg(ui::Screen& screen, ui::Dialog* owner)
    : Dialog(screen, owner, {.size = {299, 75}}),
      version_(*this, 1203, {42, 34, 250, 8}, FullVersion()) {}

void CAboutDlg::OnInitDialog() {
    SetCaption(L"About programm...");
}

}  // namespace app
