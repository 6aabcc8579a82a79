// A user who wanders through the whole program for a while, doing whatever can be done next, beside the model
// of what must come of it. After each command the two are compared.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "app/BrisgateDlg.h"
#include "platform/memory/MemoryFiles.h"
#include "tests/editors/PreparedCertificates.h"
#include "tests/model/EditorForm.h"
#include "tests/model/Model.h"
#include "tests/model/ProfileForm.h"
#include "tests/support/Fixture.h"

namespace tests::model {

class Walk {
  public:
    // world: with empty registry trees; the walk fills them.
    Walk(World& world, uint32_t seed);

    // Ends early when the program has diverged, which has then been told as a failure of the test.
    void Run(size_t commands);
    // What was done, one command after the other.
    const std::string& Story() const { return story_; }

  private:
    struct Command {
        const char* name;
        size_t weight;
        void (Walk::*give)();
        bool needsProfile = false;  // one that is shown as the opened one
    };
    static const std::vector<Command>& Commands();

    void UseProgram();  // from its start until the user has left
    void Step();
    bool HasDiverged() const;
    void Note(const std::string& what) { story_ += "  " + what + "\n"; }
    // By an icon button or the menu, as chance has it.
    std::function<void()> ButtonOrMenu(int button, int command);
    std::function<void()> ClickElsewhere(int button);

    void Compare();
    void CompareProfiles();
    void CompareCommands();
    void CompareRules();
    void CompareRegistry();

    // In the lists (WalkLists.cpp).
    void OpenProfile();
    void ClickBelowProfiles();
    void MoveInProfiles();
    void ClickRow();
    void ToggleRowSelection();
    void ClickBelowRows();
    void MoveInRules();
    void ToggleCheck();
    void PressSpace();
    void RightClick();
    void SearchRules();
    void MoveInList(int list, size_t rows, std::optional<size_t> from, const std::function<void(size_t)>& arrived);

    // Commands on profiles (WalkProfiles.cpp).
    void OpenSelectedProfile();
    void AddProfile();
    void EditProfile();
    void EditProfileByDoubleClick();
    void DoubleClickBelowProfiles();
    void DeleteProfile();
    void EditOpenedProfile(const std::function<void()>& gesture);

    // In the profile editor (WalkProfileEditor.cpp). The finished profile, nothing when the user gave up.
    std::optional<Profile> RunProfileEditor(const Profile& profile, const std::function<void()>& open);
    void CompareProfileForm(const ProfileForm& form);
    void ChangeProfileForm(ProfileForm& form);
    void TypeProfileName(ProfileForm& form);
    void TypeTimeout(ProfileForm& form);
    void TypePeriod(ProfileForm& form);
    void StepPeriod(ProfileForm& form);
    void SwitchSetting(ProfileForm& form);
    void SwitchTimeStamps(ProfileForm& form);
    void TypeServer(ProfileForm& form);
    void SwitchOption(ProfileForm& form);
    void SelectStoreProfile(ProfileForm& form);
    void AttachCsProfile(ProfileForm& form);
    void DetachCsProfile(ProfileForm& form);
    std::optional<Profile> LeaveProfileEditor(ProfileForm& form);

    // Commands on rules (WalkRules.cpp).
    void AddRule();
    void CopyRule();
    void EditRule();
    void EditByDoubleClick();
    void DeleteRules();
    void MakeFirst();
    void MoveUp();
    void MoveDown();
    void MakeLast();
    void EditSelected(const std::function<void()>& gesture);
    void ExportRules();
    void ImportRules();

    // In the rule editor (WalkEditor.cpp). The finished rule, nothing when the user gave up.
    std::optional<Rule> RunEditor(const Rule& rule, const std::function<void()>& open);
    void FillEditor(EditorForm& form);
    std::optional<Rule> LeaveEditor(const EditorForm& form);
    void ChooseOperation(EditorForm& form);
    void PutOwnValues(EditorForm& form);
    void ChooseCsProfile(EditorForm& form);
    void PutCommonValues(EditorForm& form);
    void ChangeMasks(EditorForm& form);
    void ChooseCertificates(EditorForm& form);

    // Settings, saving and leaving (WalkSettings.cpp, WalkLeaving.cpp).
    void EditLogSettings();
    void LeaveLogSettings(const std::wstring& path, int32_t size);
    void EditExtensions();
    struct ExtensionForm;
    void ChangeExtensions(ExtensionForm& form);
    void TypeExtension(ExtensionForm& form);
    void AddExtension(ExtensionForm& form);
    void SelectExtension(ExtensionForm& form);
    void DeleteExtension(ExtensionForm& form);
    void ApplyExtensions(ExtensionForm& form);
    void LeaveExtensions(const ExtensionForm& form);
    bool ExpectSaveQuestion();
    void AnswerSaveQuestion(const std::function<void()>& gesture);
    void Save();
    void SaveInVain();
    void SaveAndExit();
    void Exit();
    void ExitForGood();

    World& world_;
    Robot& user_;
    Dice dice_;
    Model model_;
    platform::memory::MemoryFiles files_;
    const platform::Machine machine_;
    PreparedCertificates certificates_;
    const errors::ErrorReporter reporter_;
    config::RegistryStore store_;
    const config::Services services_;
    Tree comparedRegistry_;
    std::optional<std::vector<Rule>> exported_;  // what importing the file would give
    size_t commandsLeft_ = 0;
    std::string story_;
    int rememberedStore_ = 0;  // by the rule editor, as long as the program runs
};

}  // namespace tests::model
