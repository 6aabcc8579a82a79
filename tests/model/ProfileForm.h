// The profile editor's form as the model holds it: what its fields show, and what OK makes of it.
#pragma once

#include <map>
#include <optional>
#include <string>

#include "tests/model/Configuration.h"

namespace tests::model {

struct ProfileForm {
    // What the fields show. Check boxes go under the names of the values behind them.
    std::wstring name;
    std::wstring timeout;
    std::map<std::wstring, bool> options;
    std::optional<size_t> shown;  // the CS profile whose settings are the following
    std::map<std::wstring, bool> settings;
    std::wstring server;
    std::wstring period;

    // As the editor opens on the profile; one without a name is a new one.
    explicit ProfileForm(const Profile& profile);

    bool IsNew() const { return profile_.name.empty(); }
    const Texts& CsProfiles() const { return profile_.CsProfiles(); }
    std::wstring ShownName() const { return shown ? CsProfiles().at(*shown) : L""; }
    bool LacksServer() const;
    bool IsAttached(const std::wstring& csProfile) const;
    std::wstring DeleteQuestion() const;

    void SwitchSetting(const std::wstring& setting);
    void PutPeriod(int64_t hours);  // into the field, which keeps it within a year
    void ShowStoreProfile(size_t index);
    void Attach(const std::wstring& csProfile);
    void Detach();  // the shown one

    // Why OK would refuse the form. names: of all profiles.
    std::optional<std::wstring> FirstRefusal(const Texts& names) const;
    // What OK makes of it, the rules of CS profiles that were taken out included.
    Profile Finished() const;

  private:
    Texts& List(const std::wstring& list) { return std::get<Texts>(profile_.values.at(list)); }
    std::wstring Entry(const std::wstring& list, size_t index) const;
    void Show(std::optional<size_t> index);
    void Keep();

    Profile profile_;  // what has been kept so far
    Texts removed_;
};

}  // namespace tests::model
