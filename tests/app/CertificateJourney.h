// Scenarios that go the whole way from the main window to the cryptographic library and back: the program as
// it starts, with the stand-in in the library's place, a clock that tests set, and folders and files in
// memory.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "app/BrisgateDlg.h"
#include "certs/FilterDlg.h"
#include "certs/PreEncryptDlg.h"
#include "certs/SignerList.h"
#include "editors/AddRule.h"
#include "tests/crypto/CryptoTest.h"
#include "tests/support/Ids.h"
#include "tests/support/MachineWith.h"
#include "tests/support/TestFiles.h"

namespace tests {

class CertificateJourney : public CryptoTest {
  protected:
    using Names = std::vector<std::wstring>;
    using Calls = std::vector<std::string>;
    using Script = std::function<void()>;

    CertificateJourney();

    // One CS profile, "Office", and one profile, "Alpha". settings: lines that come before the defaults of
    // its CS profile.
    void SeedProfile(const std::string& settings = {});
    // The same, and a rule that encrypts for Anna and Boris.
    void SeedEncryptingRule(const std::string& settings = {});

    // Starts the program. The user works in its main window and has to leave.
    void RunProgram(const Script& script);
    // Starts the program, opens its only rule and leaves both; what happens in the editor stands in the
    // script.
    void WithTheRule(const Script& script);

    // A new rule with folders, a mask and all that is done in the script, accepted.
    void AddRule(const std::wstring& operation, const Script& script);
    void EditFirstRule(const Script& script);
    void SaveAndLeave();

    // In the rule editor, by its action button.
    void OpenPicker(const Script& script);
    void OpenSignerLists(const Script& script);

    // In the picker.
    void AddFromLocalStore() { user_.Click(pickid::FromLocalStore); }
    void SearchLdap(int field, const std::wstring& sample);
    void OpenGroup(const std::wstring& path);
    void SaveGroup(const std::optional<std::wstring>& path);
    void Check(const Names& candidates);  // adds marks to those of these names
    void Choose(const Names& candidates);
    Names Candidates() const { return user_.Column(pickid::Candidates, 0); }
    Names Chosen() const { return user_.Column(pickid::Chosen, 0); }

    void ExpectWarningBox(const std::wstring& text, ui::Icon icon, const std::wstring& caption = L"Warning:");
    std::wstring ActionField() const { return user_.Text(ruleid::ActionField); }

    std::wstring Path(const std::wstring& file) const { return files_->Path(file); }

    const std::unique_ptr<TestFiles> files_ = MakeTestFiles();

  private:
    platform::memory::MemoryInstanceLock lock_;
    const platform::Machine program_ = MachineWith(machine_, {.Files = &files_->Files(), .InstanceLock = &lock_});
};

}  // namespace tests
