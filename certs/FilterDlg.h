// Asks what to search for: a field of the owner names, or the entire names, and a sample.
#pragma once

#include <cstddef>
#include <optional>
#include <string>

#include "ui/Choices.h"
#include "ui/Controls.h"
#include "ui/Dialog.h"

namespace certs {

class CFilterDlg : public ui::Dialog {
  public:
    // What the form begins with. row: of the list of fields.
    CFilterDlg(ui::Screen& screen, ui::Dialog* owner, const std::wstring& sample, std::optional<size_t> row);

    // As accepted by OK. None: the entire name.
    std::optional<size_t> Field() const;
    std::optional<size_t> Row() const { return row_; }      // of the list of fields
    const std::wstring& Sample() const { return sample_; }  // without blanks at either end

  private:
    void OnInitDialog() override;
    void OnOK() override;
    void EnableOk();

    std::optional<size_t> row_;
    std::wstring sample_;

    ui::Label fieldLabel_{*this, 1201, {7, 7, 246, 8}, L"Search field:"};
    ui::ComboBox fieldList_{*this, 1202, {7, 17, 246, 14}};
    ui::Label sampleLabel_{
        *this, 1203, {7, 38, 246, 16}, L"Type sample for certificate owner search\r\n(* represents any symbol):"};
    ui::Edit sampleEdit_{*this, 1204, {7, 56, 246, 14}, {}, [this] { EnableOk(); }};
    ui::Button ok_{*this, ui::IdOk, {149, 79, 50, 14}, L"OK"};
    ui::Button exit_{*this, ui::IdCancel, {203, 79, 50, 14}, L"Exit"};
};

}  // namespace certs
