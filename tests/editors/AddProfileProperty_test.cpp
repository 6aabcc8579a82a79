// Whatever the user does to the CS profiles of a service profile, each keeps its own settings.
#include <gtest/gtest.h>

#include <map>
#include <random>

#include "tests/editors/ProfileEditor.h"

namespace tests {
namespace {

using namespace profileid;
using config::CsProfileSettings;

// A user who knows by heart what each CS profile was given.
class AddProfileProperty : public ProfileEditorTest {
  protected:
    struct Known {
        std::wstring name;
        CsProfileSettings settings;
    };

    void Play(uint32_t seed, int steps) {
        SCOPED_TRACE("seed " + std::to_string(seed));
        random_.seed(seed);
        known_ = {{L"Office", {}}, {L"Bank", {}}};
        shown_ = 0;
        const auto profile = Edit(With({L"Office", L"Bank"}), [this, steps](ui::Dialog&) {
            for (int i = 0; i < steps; ++i) {
                Step();
                ASSERT_EQ(memory_.ShownCsProfile, static_cast<int>(shown_));
                ASSERT_EQ(SelectedCsProfile(), known_[shown_].name);
                ASSERT_EQ(user_.Text(Settings), L"CS profile setting's: " + known_[shown_].name);
            }
            user_.Click(ui::IdOk);
        });
        ASSERT_TRUE(profile);
        EXPECT_EQ(ListLengths(*profile), std::vector<size_t>(11, known_.size()));
        for (size_t i = 0; i < known_.size(); ++i) {
            EXPECT_EQ(profile->ZCSProfile.at(i), known_[i].name);
            EXPECT_EQ(config::SettingsAt(*profile, i), known_[i].settings) << i;
        }
    }

  private:
    size_t Below(size_t limit) { return random_() % limit; }

    void Step() {
        switch (Below(6)) {
            case 0:
                return Add();
            case 1:
                return Delete();
            case 2:
                shown_ = Below(known_.size());
                return user_.Choose(profileid::CsProfiles, static_cast<int>(shown_));
            case 3:
                known_[shown_].settings.CrlUpdatePeriod = static_cast<int32_t>(Below(8761));
                return user_.Paste(Period, std::to_wstring(known_[shown_].settings.CrlUpdatePeriod));
            case 4:
                return UseServer();
            default:
                return Toggle();
        }
    }

    void Add() {
        const size_t choice = Below(csProfileNames_.size());
        const std::wstring& name = csProfileNames_[choice];
        AddFromChooser(static_cast<int>(choice));
        for (const Known& known : known_)
            if (known.name == name || (name == L"OFFICE" && known.name == L"Office") ||
                (name == L"Office" && known.name == L"OFFICE"))
                return;
        known_.push_back({name, {}});
        shown_ = known_.size() - 1;
    }

    void Delete() {
        if (known_.size() == 1) {
            ExpectHint(L"Last CS profile in list cannot be deleted.");
            return user_.Click(profileid::Delete);
        }
        DeleteSelected();
        known_.erase(known_.begin() + static_cast<std::ptrdiff_t>(shown_));
        shown_ = 0;
    }

    void UseServer() {
        CsProfileSettings& settings = known_[shown_].settings;
        if (settings.AutoUseTSP != 0) {
            settings.AutoUseTSP = 0;
            settings.ServerTSP = L"0";
            return user_.Click(UseTsp);
        }
        settings.AutoUseTSP = 1;
        settings.ServerTSP = L"http://" + std::to_wstring(Below(1000));
        user_.Click(UseTsp);
        user_.Paste(Tsp, settings.ServerTSP);
    }

    void Toggle() {
        CsProfileSettings& settings = known_[shown_].settings;
        const std::pair<int, config::Flag*> boxes[] = {{NotUseLdap, &settings.NotUseLDAP},
                                                       {NotAddCert, &settings.NotAddCert},
                                                       {NotCopyToLocal, &settings.NotCopyToLocal},
                                                       {NotLoadCrl, &settings.NotLoadCrl},
                                                       {UseAia, &settings.UseAIA},
                                                       {VerifyTsp, &settings.AutoVerifyTSP},
                                                       {NoTspIsError, &settings.NoTSPisError}};
        const auto& [box, flag] = boxes[Below(std::size(boxes))];
        if (!user_.CanUse(box)) return;
        user_.Click(box);
        *flag = 1 - *flag;
        if (settings.AutoVerifyTSP == 0) settings.NoTSPisError = 0;
    }

    std::mt19937 random_;
    std::vector<Known> known_;
    size_t shown_ = 0;
};

TEST_F(AddProfileProperty, EveryStoreProfileKeepsItsOwnSettings) {
    // Real windows take their time.
#ifdef _WIN32
    constexpr uint32_t games = 3;
#else
    constexpr uint32_t games = 300;
#endif
    for (uint32_t seed = 1; seed <= games && !HasFailure(); ++seed) Play(seed, 60);
}

}  // namespace
}  // namespace tests
