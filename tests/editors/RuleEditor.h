// Scenarios in the rule editor: a profile with three store profiles, folders that exist, certificates to be
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

namespace tests {

namespace ruleid {
inline constexpr int Operation = 1042, StoreProfileLabel = 1104, StoreProfile = 1051;
inline constexpr int DescriptionLabel = 1122, Description = 1079;
inline constexpr int PickPathIn = 1000, PathIn = 1045, PickPathOut = 1043, PathOut = 1046;
inline constexpr int PickPathError = 1044, PathError = 1047, ActionButton = 1050, ActionField = 1049;
inline constexpr int Masks = 1001, AddMask = 1124, EditMask = 1125, DeleteMask = 1126;
inline constexpr int LabelA = 1108, ListA = 1105, TextA = 1130, NumberA = 1139;
inline constexpr int LabelB = 1109, ListB = 1106, TextB = 1131, NumberB = 1140;
inline constexpr int LabelC = 1110, ListC = 1107, TextC = 1136, NumberC = 1141;
inline constexpr int LabelD = 1138, TextD = 1137;
inline constexpr int OldMask = 1095, OldMaskLabel = 1123, OldMaskEdit = 1048;
inline constexpr int MaskCombo = 1095;  // of the mask dialog
}  // namespace ruleid

class RuleEditorTest : public WorldTest {
  protected:
    // What a user sees of every control: "hidden", or text, choice and whether it can be used.
    using Seen = std::map<int, std::wstring>;
    static Seen Look(const ui::Dialog& dialog);

    static std::vector<std::wstring> OperationCodes();

    RuleEditorTest();

    // Opens the editor on the rule; the user does what the script says and has to leave. The finished rule,
    // nothing when the user gave up.
    std::optional<config::Rule> Edit(const config::Rule& rule,
                                     const std::function<void(ui::Dialog&)>& script);

    // A rule of the operation with every field of a rule set, its folders existing.
    static config::Rule FullRule(const std::wstring& operation);
    // The same with only the fields set that every rule has: what the user need not put in again.
    static config::Rule PlainRule(const std::wstring& operation);

    void ChooseOperation(const std::wstring& code);
    void Leave() { user_.Click(ui::IdCancel); }
    std::vector<std::wstring> ShownMasks() const;
    std::wstring Chosen(int id) const { return user_.Get<ui::ComboBox>(id).SelectedItem(); }
    void ExpectErrBox(const std::wstring& text, ui::Icon icon);

    PreparedCertificates certificates_{*world_};
    platform::memory::MemoryFiles files_;
    const platform::Machine machine_;
    const config::Services editorServices_;
    config::ServiceProfile profile_;
    std::vector<std::wstring> suggestions_{L"*.xml", L"*.p7s"};
    editors::EditorMemory memory_;
};

}  // namespace tests
