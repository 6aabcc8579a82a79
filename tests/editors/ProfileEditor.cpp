#include "tests/editors/ProfileEditor.h"

namespace tests {

using namespace profileid;

config::ServiceProfile ProfileEditorTest::Alpha() {
    config::ServiceProfile profile;
    profile.Name = L"Alpha";
    profile.ZCSProfile = {L"Office", L"Bank"};
    profile.ServerTSP = {L"http://tsp.office", L"http://tsp.bank"};
    profile.NotUseLDAP = {1, 0};
    profile.NotAddCert = {0, 1};
    profile.NotCopyToLocal = {1, 0};
    profile.NotLoadCrl = {0, 1};
    profile.AutoUseTSP = {1, 0};
    profile.AutoVerifyTSP = {0, 1};
    profile.NoTSPisError = {0, 1};
    profile.UseAIA = {1, 0};
    profile.CrlUpdatePeriod = {24, 8760};
    profile.VerifyXFile = 1;
    profile.VerifyResignFile = 1;
    profile.HandlerTimeout = 40;
    for (const wchar_t* operation : {L"HASH", L"DELE"}) {
        profile.Rules.emplace_back().Operation = operation;
        profile.Rules.back().ZCSProfile = L"Office";
    }
    return profile;
}

config::ServiceProfile ProfileEditorTest::With(const Texts& csProfiles) {
    config::ServiceProfile profile;
    profile.Name = L"Alpha";
    for (const std::wstring& name : csProfiles) config::AttachCsProfile(profile, name);
    return profile;
}

std::optional<config::ServiceProfile> ProfileEditorTest::Edit(const config::ServiceProfile& profile,
                                                              const std::function<void(ui::Dialog&)>& script) {
    editors::CAddProfile dialog(services_, nullptr, profile, profile.Rules, profileNames_, csProfileNames_, memory_);
    user_.Expect<editors::CAddProfile>(script);
    const int result = dialog.DoModal();
    removed_ = dialog.RemovedCsProfiles();
    if (result != ui::IdOk) return std::nullopt;
    return dialog.Result();
}

void ProfileEditorTest::AddFromChooser(int index) {
    user_.Expect<editors::CAddCSProfDlg>([this, index](editors::CAddCSProfDlg&) {
        user_.Choose(Choice, index);
        user_.Click(ui::IdOk);
    });
    user_.Click(Add);
}

void ProfileEditorTest::DeleteSelected() {
    ExpectQuestion(L"Delete CS profile '" + SelectedCsProfile() + L"' from list?", ui::IdYes);
    user_.Click(Delete);
}

std::wstring ProfileEditorTest::ShownSettings() const {
    std::wstring settings;
    for (const int box : {NotUseLdap, NotAddCert, NotCopyToLocal, NotLoadCrl, UseTsp, VerifyTsp, NoTspIsError, UseAia})
        if (IsChecked(box)) settings += std::to_wstring(box) + L" ";
    return settings + user_.Text(Period) + L" h. " + user_.Text(Tsp);
}

std::vector<size_t> ListLengths(const config::ServiceProfile& profile) {
    return {profile.ZCSProfile.size(),     profile.ServerTSP.size(),      profile.NotUseLDAP.size(),
            profile.NotCopyToLocal.size(), profile.AutoUseTSP.size(),     profile.AutoVerifyTSP.size(),
            profile.NoTSPisError.size(),   profile.UseAIA.size(),         profile.NotAddCert.size(),
            profile.NotLoadCrl.size(),     profile.CrlUpdatePeriod.size()};
}

}  // namespace tests
