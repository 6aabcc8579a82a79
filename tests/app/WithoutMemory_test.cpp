// Memory runs out while the program works: a command ends, the user is told, what was changed is not lost.
#include <new>

#include "app/BrisgateApp.h"
#include "platform/memory/MemoryParts.h"
#include "tests/app/MainWindowRules.h"

namespace tests {
namespace {

using platform::memory::RecordedCall;
using platform::memory::RegistryCall;

constexpr wchar_t commandEnded[] = L"There is not enough memory. The command has not been completed.";
constexpr wchar_t programEnds[] = L"The program has to end.\r\nThere is not enough memory.";

class WithoutMemoryTest : public MainWindowRulesTest {
  protected:
    void RunProgram(const std::function<void()>& script) {
        Store();
        user_.Expect<app::CBrisgateDlg>([&script](app::CBrisgateDlg&) { script(); });
        Start();
    }
    void Start() {
        const platform::Machine machine = MachineWith(world_->Machine(), {.InstanceLock = &lock_});
        platform::memory::MemoryGuide guide;
        app::CBrisgateApp(machine, world_->Screen(), guide).InitInstance();
    }
    // There is no memory left when the registry has been asked for this.
    void RunOutAt(RegistryCall call, const std::wstring& targetEnd) {
        world_->Registry().SetFault([call, targetEnd](size_t, const RecordedCall& made) -> uint32_t {
            if (made.call == call && made.target.ends_with(targetEnd)) throw std::bad_alloc();
            return 0;
        });
    }
    void ExpectCommandEnded() { user_.ExpectBox(commandEnded, boxes::Report, ui::IdOk, boxes::Title); }

    platform::memory::MemoryInstanceLock lock_;
};

TEST_F(WithoutMemoryTest, TheProgramEndsWhenItCannotLoad) {
    Store();
    RunOutAt(RegistryCall::Query, L"\\Handler timeout");
    user_.ExpectBox(programEnds, boxes::Report, ui::IdOk, boxes::Title);
    Start();
}

TEST_F(WithoutMemoryTest, AnUnfinishedSaveCountsAsAChange) {
    RunProgram([this] {
        RunOutAt(RegistryCall::Set, L"\\Path Error");
        ExpectCommandEnded();
        user_.Click(id::Save);
        world_->Registry().NoFaults();
        ExpectLeaveQuestion(ui::IdNo);
        user_.PressCloseBox();
        user_.Click(id::Save);
        user_.PressCloseBox();
    });
    EXPECT_EQ(StoredRules(), rules_);
}

TEST_F(WithoutMemoryTest, SaveAndExitStaysWhenItCannotSave) {
    RunProgram([this] {
        RunOutAt(RegistryCall::Create, L"\\Rule 1");
        ExpectCommandEnded();
        user_.Click(ui::IdOk);
        world_->Registry().NoFaults();
        EXPECT_EQ(Descriptions(), (Texts{L"a", L"b", L"c", L"d", L"e"}));
        user_.Click(ui::IdOk);
    });
    EXPECT_EQ(StoredRules(), rules_);
}

}  // namespace
}  // namespace tests
