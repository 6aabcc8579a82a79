// The about box: the product and its version.
#pragma once

#include <string>

#include "ui/Controls.h"
#include "ui/Dialog.h"

namespace app {

class CAboutDlg : public ui::Dialog {
  public:
    CAboutDlg(ui::Screen& screen, ui::Dialog* owner);

  private:
    void OnInitDialog() override;

    ui::Picture icon_{*this, 1200, {11, 12, 22, 21}, ui::Icon::App};
    ui::Label company_{*this, 1201, {42, 10, 250, 8}, L"Talveron LLC"};
    ui::Label product_{*this, 1202, {42, 22, 250, 8}, L"Client QLD"};
    ui::Label version_;
    ui::Button ok_{*this, ui::IdOk, {242, 54, 50, 14}, L"OK"};
};

// "... Version 1.0.0453.0": the build number is written with a zero in front here, unlike in the version
// resource.
std::wstring FullVersion();

}  // namespace app
