// Scenarios in the rule editor: a profile with three CS profiles, folders that exist, certificates to be
// had for the asking, and the ids of the controls that a user works with.
#pragma once

#include <functional>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "editors/AddRule.h"
#include "platform/memory/MemoryFiles.h"
#include "tests/editors/PreparedCertificates.h"
#include "tests/support/Fixture.h"
#include "tests/support/Ids.h"
#include "tests/support/MachineWith.h"

namespace tests {

class RuleEditorTest : public WorldTest {
  protected:
    // What a user sees of every control: "hidden", or text, choice and whether it can be used.
    using Seen = std::map<int, std::wstring>;
    static Seen Look(const ui::Dialog& dialog);

    static std::vector<std::wstring> OperationCodes();

    RuleEditorTest();

    // Opens the editor on the rule; the user does what the script says and has to leave. The finished rule,
    // nothing when the user gave up.
    std::optional<config::Rule> Edit(const config::Rule& rule, const std::function<void(ui::Dialog&)>& script);

    // A rule of the operation with every field of a rule set, its folders existing.
    static config::Rule FullRule(const std::wstring& operation);
    // The same with only the fields set that every rule has: what the user need not put in again.
    static config::Rule PlainRule(const std::wstring& operation);

    void ChooseOperation(std::wstring_view code);
    void Leave() { user_.Click(ui::IdCancel); }
    std::vector<std::wstring> ShownMasks() const { return user_.Column(ruleid::Masks, 0); }
    std::wstring Chosen(int id) const { return user_.Get<ui::ComboBox>(id).SelectedItem(); }
    void ExpectErrBox(const std::wstring& text, ui::Icon icon);

    PreparedCertificates certificates_{*world_};
    platform::memory::MemoryFiles files_;
    const platform::Machine machine_ = MachineWith(world_->Machine(), {.Files = &files_});
    const config::Services editorServices_{machine_, certificates_, reporter_, store_};
    config::ServiceProfile profile_;
    std::vector<std::wstring> suggestions_{L"*.xml", L"*.p7s"};
    editors::EditorMemory memory_;
};

}  // namespace tests
