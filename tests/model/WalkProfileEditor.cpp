// What the walk does in the profile editor.
#include <gtest/gtest.h>

#include "editors/AddProfile.h"
#include "tests/editors/ProfileEditor.h"
#include "tests/model/Walk.h"

namespace tests::model {
namespace {
constexpr wchar_t serverRequest[] = L"Please, type TSP data.";

const std::vector<std::pair<std::wstring, int>> settingBoxes{{L"NotUseLDAP", profileid::NotUseLdap},
                                                             {L"NotAddCert", profileid::NotAddCert},
                                                             {L"NotCopyToLocal", profileid::NotCopyToLocal},
                                                             {L"NotLoadCrl", profileid::NotLoadCrl},
                                                             {L"AutoUseTSP", profileid::UseTsp},
                                                             {L"AutoVerifyTSP", profileid::VerifyTsp},
                                                             {L"NoTSPisError", profileid::NoTspIsError},
                                                             {L"UseAIA", profileid::UseAia}};
const std::vector<std::pair<std::wstring, int>> optionBoxes{{L"Verify File", profileid::VerifyFile},
                                                            {L"Verify x file", profileid::VerifyXFile},
                                                            {L"Verify det file", profileid::VerifyDetFile},
                                                            {L"Verify resign file", profileid::VerifyResignFile},
                                                            {L"Rename conf files", profileid::RenameConfFiles}};

// Few enough that some are taken, and some that differ only in their case.
const Texts goodNames{L"Alpha", L"alpha",  L"beta",   L"Gamma",   L"default",         L" a ",
                      L"Delta", L"\x0436", L"\x0416", L"a name.", L"Fifteen letters", L"De\\lta\\"};
const Texts badNames{L"", L" ", L"   ", L"Sixteen letters!", L"                "};

}  // namespace

std::optional<Profile> Walk::RunProfileEditor(const Profile& profile, const std::function<void()>& open) {
    ProfileForm form(profile);
    std::optional<Profile> finished;
    user_.Expect<editors::CAddProfile>([&](editors::CAddProfile& editor) {
        EXPECT_EQ(editor.Caption(), form.IsNew() ? L"Add profile" : L"Edit profile");
        CompareProfileForm(form);
        if (form.IsNew()) TypeProfileName(form);
        for (size_t changes = dice_.Below(12); changes > 0; --changes) {
            ChangeProfileForm(form);
            CompareProfileForm(form);
            if (HasDiverged()) break;
        }
        finished = LeaveProfileEditor(form);
    });
    open();
    return finished;
}

void Walk::CompareProfileForm(const ProfileForm& form) {
    using namespace profileid;
    const auto& list = user_.Get<ui::ListBox>(CsProfiles);
    EXPECT_EQ(list.Items(), form.CsProfiles());
    EXPECT_EQ(list.Selected(), form.shown);
    EXPECT_EQ(user_.Text(Settings), L"CS profile setting's: " + form.ShownName());
    for (const auto& [setting, box] : settingBoxes)
        EXPECT_EQ(user_.Get<ui::CheckBox>(box).IsChecked(), form.settings.at(setting)) << Narrow(setting);
    for (const auto& [option, box] : optionBoxes)
        EXPECT_EQ(user_.Get<ui::CheckBox>(box).IsChecked(), form.options.at(option)) << Narrow(option);
    EXPECT_EQ(user_.Text(Name), form.name);
    EXPECT_EQ(user_.Text(Timeout), form.timeout);
    EXPECT_EQ(user_.Text(Period), form.period);
    EXPECT_EQ(user_.Text(Tsp), form.server);
    EXPECT_EQ(user_.CanUse(Tsp), form.settings.at(L"AutoUseTSP"));
    EXPECT_EQ(user_.CanUse(NoTspIsError), form.settings.at(L"AutoVerifyTSP"));
}

void Walk::ChangeProfileForm(ProfileForm& form) {
    using Change = void (Walk::*)(ProfileForm&);
    static const std::vector<Change> changes{
        &Walk::TypeProfileName, &Walk::TypeTimeout,        &Walk::TypePeriod,         &Walk::StepPeriod,
        &Walk::SwitchSetting,   &Walk::SwitchSetting,      &Walk::SwitchTimeStamps,   &Walk::TypeServer,
        &Walk::SwitchOption,    &Walk::SelectStoreProfile, &Walk::SelectStoreProfile, &Walk::AttachCsProfile,
        &Walk::AttachCsProfile, &Walk::DetachCsProfile,    &Walk::DetachCsProfile};
    (this->*dice_.Pick(changes))(form);
}

void Walk::TypeProfileName(ProfileForm& form) {
    const std::wstring typed = dice_.Pick(dice_.Chance(80) ? goodNames : badNames);
    user_.Type(profileid::Name, typed);
    form.name = typed;
    std::erase(form.name, L'\\');
}

void Walk::TypeTimeout(ProfileForm& form) {
    form.timeout = dice_.Pick(Texts{L"1", L"7", L"60", L"0", L"", L"2147483648"});
    user_.Type(profileid::Timeout, form.timeout);
}

void Walk::TypePeriod(ProfileForm& form) {
    const auto hours = static_cast<int64_t>(dice_.Below(20'000));
    user_.Paste(profileid::Period, std::to_wstring(hours));
    form.PutPeriod(hours);
}

void Walk::StepPeriod(ProfileForm& form) {
    const int steps = static_cast<int>(dice_.Below(7)) - 3;
    user_.Step(profileid::PeriodArrows, steps);
    form.PutPeriod(std::stoi(form.period) + steps);
}

void Walk::SwitchSetting(ProfileForm& form) {
    const auto& [setting, box] = dice_.Pick(settingBoxes);
    if (!user_.CanUse(box)) return;
    user_.Click(box);
    form.SwitchSetting(setting);
}

void Walk::SwitchTimeStamps(ProfileForm& form) {
    user_.Click(profileid::UseTsp);
    form.SwitchSetting(L"AutoUseTSP");
    TypeServer(form);
}

void Walk::TypeServer(ProfileForm& form) {
    if (!form.settings.at(L"AutoUseTSP")) return;
    form.server = dice_.Pick(Texts{L"http://tsp", L"tsp \x0436", L"1", L"00", L"0", L""});
    user_.Type(profileid::Tsp, form.server);
}

void Walk::SwitchOption(ProfileForm& form) {
    const auto& [option, box] = dice_.Pick(optionBoxes);
    user_.Click(box);
    form.options[option] = !form.options[option];
}

void Walk::SelectStoreProfile(ProfileForm& form) {
    if (form.CsProfiles().empty()) return;
    const size_t index = dice_.Below(form.CsProfiles().size());
    const bool refused = form.LacksServer();
    if (refused) user_.ExpectBox(serverRequest, boxes::Hint, ui::IdOk, boxes::Title);
    user_.Choose(profileid::CsProfiles, static_cast<int>(index));
    if (!refused) form.ShowStoreProfile(index);
}

void Walk::AttachCsProfile(ProfileForm& form) {
    if (form.LacksServer()) {
        user_.ExpectBox(serverRequest, boxes::Hint, ui::IdOk, boxes::Title);
        return user_.Click(profileid::Add);
    }
    const size_t index = dice_.Below(StoreProfileFolders().size());
    const bool confirmed = dice_.Chance(85);
    user_.Expect<editors::CAddCSProfDlg>([&](editors::CAddCSProfDlg&) {
        Texts names;
        for (const auto& [name, folder] : StoreProfileFolders()) names.push_back(name);
        EXPECT_EQ(user_.Get<ui::ComboBox>(profileid::Choice).Items(), names);
        user_.Choose(profileid::Choice, static_cast<int>(index));
        user_.Click(confirmed ? ui::IdOk : ui::IdCancel);
    });
    user_.Click(profileid::Add);
    const std::wstring& name = StoreProfileFolders()[index].first;
    if (confirmed && !form.IsAttached(name)) form.Attach(name);
}

void Walk::DetachCsProfile(ProfileForm& form) {
    const size_t count = form.CsProfiles().size();
    if (count < 2) {
        user_.ExpectBox(count == 1 ? L"Last CS profile in list cannot be deleted." : L"Select list item to delete.",
                        boxes::Hint, ui::IdOk, boxes::Title);
        return user_.Click(profileid::Delete);
    }
    const int answer = dice_.Chance(75) ? ui::IdYes : ui::IdNo;
    user_.ExpectBox(form.DeleteQuestion(), boxes::Question, answer, boxes::Title);
    user_.Click(profileid::Delete);
    if (answer == ui::IdYes) form.Detach();
}

// A refusal leaves the editor open and is put right or not.
std::optional<Profile> Walk::LeaveProfileEditor(ProfileForm& form) {
    for (size_t attempts = 1 + dice_.Below(4); attempts > 0 && !HasDiverged(); --attempts) {
        if (dice_.Chance(8)) break;
        const auto refusal = form.FirstRefusal(model_.ProfileNames());
        if (refusal) user_.ExpectBox(*refusal, boxes::Hint, ui::IdOk, boxes::Title);
        user_.Click(ui::IdOk);
        if (!refusal) return form.Finished();
        CompareProfileForm(form);
        TypeProfileName(form);
        TypeTimeout(form);
        TypeServer(form);
    }
    dice_.Chance(50) ? user_.Press(Key::Escape) : user_.Click(ui::IdCancel);
    return std::nullopt;
}

}  // namespace tests::model
