// Scenarios with the commands on rules in the main window.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "tests/app/MainWindow.h"
#include "tests/editors/RuleEditor.h"
#include "tests/support/MachineWith.h"
#include "tests/support/TestFiles.h"

namespace tests {

// A main window whose profile "Alpha" has the CS profiles "Office" and "Bank" and five rules, described
// "a" to "e", each of which the editor accepts as it is.
class MainWindowRulesTest : public MainWindowTest {
  protected:
    using Texts = std::vector<std::wstring>;
    using Rows = std::vector<size_t>;

    void SetUp() override;
    config::Rule RuleNamed(const std::wstring& description) const;

    // Opens the main window on the rules; the user does what the script says and has to leave.
    int Run(const std::function<void()>& script);
    // What the registry holds now.
    std::vector<config::Rule> StoredRules();

    ui::ListView& List() { return user_.Get<ui::ListView>(id::Rules); }
    Texts Descriptions() const { return RuleColumn(1); }
    // Selects one row, and more with the Control key.
    void Select(const Rows& rows);
    void Give(bool byMenu, int command, int button) { byMenu ? user_.ChooseMenu(command) : user_.Click(button); }

    // Has the change been noted? Then saves and leaves.
    void SaveChanged();
    // After a command that changed the list: which row is selected and was brought into view, and that the
    // user is back in the list.
    void ExpectShown(size_t row, size_t rowInView);
    void ExpectShown(size_t row) { ExpectShown(row, row); }
    void ExpectNoneSelected();

    void ExpectEditor(const std::function<void(editors::CAddRule&)>& script) {
        user_.Expect<editors::CAddRule>(script);
    }
    // The editor opens on a rule with this description; the user gives it another and accepts.
    void ExpectRenaming(const std::wstring& from, const std::wstring& to);
    // The editor opens on a new rule, which the user fills in and accepts.
    void ExpectNewRule(const std::wstring& description);

    // Creates or replaces a file of the test; gives its path.
    std::wstring Put(const std::wstring& name, std::string_view bytes);

    void Store();  // puts the rules into the registry

    const std::unique_ptr<TestFiles> files_ = MakeTestFiles();
    const platform::Machine machine_ = MachineWith(world_->Machine(), {.Files = &files_->Files()});
    PreparedCertificates certificates_{*world_};
    const config::Services filesAndAll_{machine_, certificates_, reporter_, store_};
    config::Configuration configuration_;
    std::vector<config::Rule> rules_;  // those that the main window opens on
};

}  // namespace tests
