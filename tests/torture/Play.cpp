#include <gtest/gtest.h>

#include <algorithm>

#include "app/BrisgateDlg.h"
#include "certs/PreEncryptDlg.h"
#include "tests/torture/Scenarios.h"
#include "tests/torture/ShortMemory.h"

namespace tests::torture {
namespace {

constexpr size_t noRow = static_cast<size_t>(-1);

class Player {
  public:
    Player(const Scenario& scenario, const Torment& run) : scenario_(scenario), run_(run), world_(scenario.trees) {}

    Outcome Play();

  private:
    void InMainWindow();
    void Work();
    void Look();
    void Leave();
    void CheckGivenBack();

    const Scenario& scenario_;
    const Torment& run_;
    World world_;
    Outcome outcome_;
};

Outcome Player::Play() {
    Faults& faults = world_.faults;
    world_.hand.goesOn = run_.goesOn;
    scenario_.prepare(world_, outcome_.notes);
    world_.hand.In<app::CBrisgateDlg>([this] { InMainWindow(); });
    const bool fromTheStart = scenario_.kind == Kind::Load;
    if (fromTheStart && run_.works) faults.Arm(run_.plan);
    if (fromTheStart && run_.works) {
        const ShortMemory memory(run_.firstRefused, run_.lastRefused);
        const Harness harness;
        world_.RunProgram();
        if (run_.allocations != nullptr) *run_.allocations = memory.Counted();
    } else {
        world_.RunProgram();
    }
    if (!outcome_.started) {
        outcome_.reports = world_.hand.reports;
        outcome_.memoryBoxes = world_.hand.memoryBoxes;
    }
    outcome_.calls = faults.Calls();
    outcome_.pickers = world_.hand.opened[typeid(certs::CPreEncryptDlg)];
    outcome_.trees = world_.Trees();
    if (world_.hand.file) outcome_.files = world_.parts.Files.Content(*world_.hand.file).value_or("none");
    CheckGivenBack();
    return outcome_;
}

void Player::InMainWindow() {
    outcome_.started = true;
    world_.faults.Enter(scenario_.kind == Kind::Save ? Phase::Saving : Phase::Working);
    if (scenario_.before) scenario_.before(world_.hand);
    if (run_.works && scenario_.work) Work();
    Look();
    Leave();
}

void Player::Work() {
    world_.faults.Arm(run_.plan);
    const ShortMemory memory(run_.firstRefused, run_.lastRefused);
    scenario_.work(world_.hand);
    if (run_.allocations != nullptr) *run_.allocations = memory.Counted();
}

void Player::Look() {
    world_.faults.Enter(Phase::Leaving);
    if (scenario_.kind != Kind::Load) world_.faults.Disarm();
    outcome_.reports = world_.hand.reports;
    outcome_.memoryBoxes = world_.hand.memoryBoxes;
    if (!world_.hand.IsOpen()) return;
    outcome_.rows = world_.hand.Cells(id::Profiles);
    const std::vector<std::wstring> rules = world_.hand.Cells(id::Rules);
    outcome_.rows.insert(outcome_.rows.end(), rules.begin(), rules.end());
}

void Player::Leave() {
    Hand& hand = world_.hand;
    if (scenario_.kind != Kind::Load) {
        // Through the rules and out again, which takes their check boxes over.
        hand.Select(id::Rules, noRow);
        hand.Select(id::Profiles, noRow);
    }
    if (run_.ending == Ending::SaveAgain) hand.Click(id::Save);
    hand.CloseBox();
    outcome_.unsaved = hand.askedToLeave;
    if (!hand.IsOpen()) return;
    hand.Click(id::Save);
    hand.CloseBox();
    EXPECT_FALSE(hand.IsOpen());
    EXPECT_EQ(hand.reports, outcome_.reports) << "a save in which nothing failed";
}

void Player::CheckGivenBack() {
    const auto& calls = world_.faults.Calls();
    const auto leftOpen = std::count_if(calls.begin(), calls.end(),
                                        [](const Call& call) { return call.op == Op::CloseKey && call.injected != 0; });
    EXPECT_EQ(world_.parts.StoredRegistry.OpenKeys(), static_cast<size_t>(leftOpen)) << "a key stayed open";
    EXPECT_EQ(world_.parts.Files.OpenFiles(), 0U) << "a file stayed open";
    EXPECT_EQ(world_.standIn.OpenContexts(), 0U) << "a context stayed open";
    EXPECT_EQ(world_.standIn.OpenResults(), 0U) << "a result was not released";
    EXPECT_EQ(world_.standIn.OpenTexts(), 0U) << "a text was not released";
    EXPECT_EQ(world_.standIn.WrongReleases(), 0U) << "something was released twice";
    EXPECT_EQ(world_.parts.InstanceLock.Held(), std::nullopt) << "the lock is still held";
    EXPECT_EQ(world_.screen.OpenDialogs(), 0U) << "a dialog is still open";
    EXPECT_EQ(world_.screen.WaitCursors(), 0) << "the wait cursor is still shown";
}

}  // namespace

Outcome Play(const Scenario& scenario, const Torment& run) {
    return Player(scenario, run).Play();
}

}  // namespace tests::torture
