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
#include "tests/certs/PickerIds.h"
#include "tests/crypto/CryptoTest.h"
#include "tests/support/TestFiles.h"

namespace tests {

namespace mainid {
inline constexpr int AddRule = 1023, Rules = 1030, Save = 1000;
}

class CertificateJourney : public CryptoTest {
  protected:
    using Names = std::vector<std::wstring>;
    using Calls = std::vector<std::string>;
    using Script = std::function<void()>;

    static constexpr wchar_t Title[] = L"ZEMA AC QLD Service - configuration";

    CertificateJourney();

    // One store profile, "Office", and one profile, "Alpha". settings: lines that come before the defaults of
    // its store profile.
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
    void AddFromLocalStore() { user_.Click(fromLocalStore); }
    void SearchLdap(int field, const std::wstring& sample);
    void OpenGroup(const std::wstring& path);
    void SaveGroup(const std::optional<std::wstring>& path);
    void Check(const Names& candidates);  // adds marks to those of these names
    void Choose(const Names& candidates);
    Names Candidates() const { return Shown(candidateList); }
    Names Chosen() const { return Shown(chosenList); }

    void ExpectWarningBox(const std::wstring& text, ui::Icon icon, const std::wstring& caption = L"Warning:");
    std::wstring ActionField() const { return user_.Text(actionField); }

    static constexpr int actionButton = 1050, actionField = 1049;
    static constexpr int sortField = 1211, filterText = 1213, candidateList = 1214, fromLocalStore = 1215;
    static constexpr int fromGroup = 1216, fromLdap = 1217, selectAll = 1218, clear = 1219, deleteAll = 1220;
    static constexpr int save = 1221, choose = 1027, remove = 1028, chosenList = 1222, listName = 1224;

    std::wstring Path(const std::wstring& file) const { return files_->Folder() + L"\\" + file; }
    void PutFile(const std::wstring& path, std::string_view content);
    std::string Content(const std::wstring& path);

    const std::unique_ptr<TestFiles> files_ = MakeTestFiles();

  private:
    Names Shown(int list) const;

    platform::memory::MemoryInstanceLock lock_;
    const platform::Machine program_{world_->Machine().Registry,
                                     files_->Files(),
                                     codePage_,
                                     systemMessages_,
                                     clock_,
                                     lock_,
                                     world_->Machine().ScreenMetrics,
                                     memory_,
                                     world_->CryptoLibrary()};
};

}  // namespace tests
