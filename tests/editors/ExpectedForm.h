// What the rule editor's form has to show after any sequence of operations, told by the rules for groups of
// operations, so that the editor's own tables are checked against a second account.
#pragma once

#include <cstddef>
#include <map>
#include <string>

namespace tests {

class ExpectedForm {
  public:
    using Seen = std::map<int, std::wstring>;

    explicit ExpectedForm(std::wstring firstOperation) : operation_(std::move(firstOperation)) {}

    // What the user has put in where the operation asks for it.
    std::wstring csProfile = L"Office";
    std::wstring pathOut;
    size_t recipients = 0;
    size_t signerLists = 0;
    std::wstring path;     // second output folder or executable
    std::wstring archive;  // "", "No", "ZIP archivation" or "GZIP archivation"
    bool inDetached = false, outDetached = false;
    std::wstring newProfile = L"Office";
    std::wstring rowA, rowB, rowC, rowD;  // texts and numbers

    const std::wstring& Operation() const { return operation_; }
    void ChangeTo(const std::wstring& operation);
    // Of the controls that depend on the operation.
    Seen Shown() const;

    bool HasRecipients() const;
    bool HasSigners() const;
    bool HasArchive() const;  // a list with or without "No"
    bool HasStoreProfile() const;
    bool Is(const wchar_t* operation) const { return operation_ == operation; }

  private:
    void StartOptions();
    void CarryArchive(const std::wstring& before);
    bool OffersNo() const;
    std::wstring ActionButton() const;
    std::wstring ActionField() const;
    void ShowRows(Seen& seen) const;

    std::wstring operation_;
};

}  // namespace tests
