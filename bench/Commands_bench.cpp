// The commands of the main window as the user gives them, with everything that belongs to each: the change,
// the list filled again, the selection. The dialog runs on the in-memory screen, so that what is measured is
// the program's own time.
#include <benchmark/benchmark.h>

#include <functional>
#include <map>
#include <string>
#include <utility>

#include "app/BrisgateDlg.h"
#include "bench/Counted.h"
#include "bench/Sample.h"
#include "config/ExchangeFormat.h"
#include "editors/AddProfile.h"
#include "editors/AddRule.h"
#include "editors/MaskList.h"
#include "platform/memory/MemoryMachine.h"
#include "ui/Choices.h"
#include "ui/Controls.h"
#include "ui/ListView.h"
#include "ui/memory/MemoryScreen.h"

namespace {

constexpr int AddRule = 1023, EditRule = 1024, CopyRule = 1037, DeleteRules = 1025, MakeFirst = 1026, MoveUp = 1027,
              MoveDown = 1028, MakeLast = 1029, ExportRules = 1034, ImportRules = 1035, OpenProfile = 1053,
              AddProfile = 1031, EditProfile = 1032, DeleteProfile = 1033;
constexpr int RuleRows = 1030, ProfileRows = 1001, Search = 1079;
constexpr const wchar_t* rulesFile = L"C:\\rules.prx";

constexpr int PathIn = 1045, PathOut = 1046, PathError = 1047, Operations = 1042, AddMask = 1124, MaskField = 1095;
constexpr int ProfileName = 1037;
constexpr int HashFile = 2;       // in the list of operations
constexpr size_t editedRule = 2;  // also hashes files
constexpr const wchar_t* someFolder = L"D:\\Exchange";

void Press(ui::Dialog& dialog, int id) {
    if (auto* const icon = dynamic_cast<ui::IconButton*>(&dialog.Find(id))) return icon->UserClicked();
    dynamic_cast<ui::Button&>(dialog.Find(id)).UserClicked();
}

// Accepts the rule as it is; a new one is filled in first.
void AcceptRule(ui::Dialog& editor) {
    if (editor.Find(PathIn).Text().empty()) {
        dynamic_cast<ui::ComboBox&>(editor.Find(Operations)).UserSelected(HashFile);
        for (const int field : {PathIn, PathOut, PathError})
            dynamic_cast<ui::Edit&>(editor.Find(field)).UserTyped(someFolder);
        Press(editor, AddMask);
    }
    Press(editor, ui::IdOk);
}

// Accepts the profile as it is; a new one is named first.
void AcceptProfile(ui::Dialog& editor) {
    if (editor.Find(ProfileName).Text().empty())
        dynamic_cast<ui::Edit&>(editor.Find(ProfileName)).UserTyped(L"New profile");
    Press(editor, ui::IdOk);
}

// Works in the main window, accepts profiles, rules and masks, agrees to every question, and picks the one file.
class Administrator final : public ui::memory::User {
  public:
    explicit Administrator(std::function<void(ui::Dialog&)> work) : work_(std::move(work)) {}
    void DialogOpened(ui::Dialog& dialog) override {
        if (dynamic_cast<editors::CAddRule*>(&dialog) != nullptr)
            return acceptsRules ? AcceptRule(dialog) : Press(dialog, ui::IdCancel);
        if (dynamic_cast<editors::CAddProfile*>(&dialog) != nullptr) return AcceptProfile(dialog);
        if (dynamic_cast<editors::AddMask*>(&dialog) != nullptr) {
            dynamic_cast<ui::EditableCombo&>(dialog.Find(MaskField)).UserTyped(L"*.txt");
            return Press(dialog, ui::IdOk);
        }
        work_(dialog);
        dialog.UserPressedCancel();
    }
    int BoxOpened(const std::wstring&, const std::wstring&, uint32_t) override { return ui::IdYes; }
    std::optional<std::wstring> FolderPickerOpened() override { return std::nullopt; }
    std::optional<std::wstring> FilePickerOpened(ui::FilePickerKind) override { return rulesFile; }

    bool acceptsRules = true;

  private:
    std::function<void(ui::Dialog&)> work_;
};

// A machine that holds so many rules in one profile, or as many profiles of one rule each. The commands change nothing
// of it: it is made once.
class Configured {
  public:
    static Configured& With(size_t count, bool inManyProfiles) {
        static std::map<std::pair<size_t, bool>, Configured> made;
        return made.try_emplace({count, inManyProfiles}, count, inManyProfiles).first->second;
    }

    Configured(size_t count, bool inManyProfiles) {
        const config::Configuration sample =
            inManyProfiles ? bench::SampleOfProfiles(count) : bench::SampleConfiguration(count);
        const config::Rule edited = bench::SampleConfiguration(editedRule + 1).Profiles.front().Rules.back();
        for (const std::wstring_view folder :
             std::initializer_list<std::wstring_view>{someFolder, edited.PathIn, edited.PathOut, edited.PathError})
            machine.Files.AddFolder(std::wstring(folder));
        bench::CreateTrees(machine.StoredRegistry);
        bench::Save(Machine, screen, sample);
        machine.Files.AddFile(rulesFile, config::ExchangeText(sample.Profiles.front().Rules, machine.CodePage));
    }

    platform::memory::MemoryMachine machine;
    // Without what notes down each call of the registry.
    platform::Machine Machine{machine.StoredRegistry,         machine.Machine.Files,  machine.Machine.CodePage,
                              machine.Machine.SystemMessages, machine.Machine.Clock,  machine.Machine.InstanceLock,
                              machine.Machine.ScreenMetrics,  machine.Machine.Memory, machine.Machine.CryptoLibrary};
    ui::memory::MemoryScreen screen{machine.ScreenMetrics};
};

// The main window with state.range(0) rules, or profiles, the first profile opened.
class MainWindow {
  public:
    explicit MainWindow(benchmark::State& state, bool inManyProfiles = false)
        : state_(state),
          configured_(Configured::With(static_cast<size_t>(state.range(0)), inManyProfiles)) {}

    // command: what is measured. undo: what puts the rules back, unmeasured.
    void Measure(const std::function<void(ui::Dialog&)>& command, const std::function<void(ui::Dialog&)>& undo = {},
                 bool acceptsRules = true) {
        Administrator administrator([&](ui::Dialog& dialog) {
            for (auto _ : state_) {
                {
                    const bench::Counted counted;
                    command(dialog);
                }
                if (!undo) continue;
                state_.PauseTiming();
                undo(dialog);
                state_.ResumeTiming();
            }
        });
        administrator.acceptsRules = acceptsRules;
        configured_.screen.SetUser(administrator);
        const platform::Machine& machine = configured_.Machine;
        const errors::ErrorReporter reporter(machine, configured_.screen);
        config::RegistryStore store(machine, reporter);
        app::CBrisgateDlg({machine, configured_.screen, reporter, store}).DoModal();
    }

  private:
    benchmark::State& state_;
    Configured& configured_;
};

ui::ListView& Rows(ui::Dialog& dialog) {
    return dynamic_cast<ui::ListView&>(dialog.Find(RuleRows));
}

void Select(ui::Dialog& dialog, size_t first, size_t last) {
    ui::ListView& rows = Rows(dialog);
    rows.UserSelected(0, rows.RowCount() - 1, false);
    rows.UserSelected(first, last, true);
}

void OpenAProfile(benchmark::State& state) {
    MainWindow(state).Measure([](ui::Dialog& dialog) {
        dynamic_cast<ui::ListView&>(dialog.Find(ProfileRows)).UserSelected(0, 0, true);
        Press(dialog, OpenProfile);
    });
}

void TypeInSearch(benchmark::State& state) {
    bool narrow = false;
    MainWindow(state).Measure([&narrow](ui::Dialog& dialog) {
        narrow = !narrow;
        dynamic_cast<ui::Edit&>(dialog.Find(Search)).UserTyped(narrow ? L"office 7" : L"office");
    });
}

void LeaveTheRules(benchmark::State& state) {
    MainWindow(state).Measure([](ui::Dialog& dialog) {
        Rows(dialog).UserToggledCheck(0);
        Rows(dialog).UserFocused();
        Rows(dialog).UserLeft();
    });
}

void AddOne(benchmark::State& state) {
    const auto count = static_cast<size_t>(state.range(0));
    MainWindow(state).Measure([](ui::Dialog& dialog) { Press(dialog, AddRule); },
                              [count](ui::Dialog& dialog) {
                                  Select(dialog, count, count);
                                  Press(dialog, DeleteRules);
                              });
}

void EditOne(benchmark::State& state) {
    MainWindow(state).Measure([](ui::Dialog& dialog) {
        Select(dialog, editedRule, editedRule);
        Press(dialog, EditRule);
    });
}

void OpenTheEditor(benchmark::State& state) {
    MainWindow(state).Measure(
        [](ui::Dialog& dialog) {
            Select(dialog, editedRule, editedRule);
            Press(dialog, EditRule);
        },
        {}, false);
}

void EditOpenedProfile(benchmark::State& state) {
    MainWindow(state).Measure([](ui::Dialog& dialog) { Press(dialog, EditProfile); });
}

ui::ListView& ProfileList(ui::Dialog& dialog) {
    return dynamic_cast<ui::ListView&>(dialog.Find(ProfileRows));
}

void SelectProfile(ui::Dialog& dialog, size_t row) {
    ProfileList(dialog).UserSelected(row, row, true);
    Press(dialog, OpenProfile);
}

void OpenLastProfile(benchmark::State& state) {
    const auto last = static_cast<size_t>(state.range(0)) - 1;
    MainWindow(state, true)
        .Measure([last](ui::Dialog& dialog) { SelectProfile(dialog, last); },
                 [](ui::Dialog& dialog) { SelectProfile(dialog, 0); });
}

void DeleteLastProfile(ui::Dialog& dialog) {
    SelectProfile(dialog, ProfileList(dialog).RowCount() - 1);
    Press(dialog, DeleteProfile);
}

void AddAProfile(benchmark::State& state) {
    MainWindow(state, true).Measure([](ui::Dialog& dialog) { Press(dialog, AddProfile); }, DeleteLastProfile);
}

void DeleteAProfile(benchmark::State& state) {
    MainWindow(state, true).Measure(DeleteLastProfile, [](ui::Dialog& dialog) { Press(dialog, AddProfile); });
}

void EditLastProfile(benchmark::State& state) {
    const auto last = static_cast<size_t>(state.range(0)) - 1;
    MainWindow(state, true).Measure([last](ui::Dialog& dialog) {
        SelectProfile(dialog, last);
        Press(dialog, EditProfile);
    });
}

void CopyTheFirst(benchmark::State& state) {
    MainWindow(state).Measure(
        [](ui::Dialog& dialog) {
            Select(dialog, 0, 0);
            Press(dialog, CopyRule);
        },
        [](ui::Dialog& dialog) { Press(dialog, DeleteRules); });
}

void DeleteTheSecondHalf(benchmark::State& state) {
    const auto count = static_cast<size_t>(state.range(0));
    MainWindow(state).Measure(
        [count](ui::Dialog& dialog) {
            Select(dialog, count / 2, count - 1);
            Press(dialog, DeleteRules);
        },
        [count](ui::Dialog& dialog) {
            Select(dialog, 0, count / 2 - 1);
            Press(dialog, DeleteRules);
            Press(dialog, ImportRules);
        });
}

template <int Command>
void MoveFromTheMiddle(benchmark::State& state) {
    const auto middle = static_cast<size_t>(state.range(0) / 2);
    MainWindow(state).Measure([middle](ui::Dialog& dialog) {
        Select(dialog, middle, middle);
        Press(dialog, Command);
    });
}

void ImportFile(benchmark::State& state) {
    const auto count = static_cast<size_t>(state.range(0));
    MainWindow(state).Measure([](ui::Dialog& dialog) { Press(dialog, ImportRules); },
                              [count](ui::Dialog& dialog) {
                                  Select(dialog, count, 2 * count - 1);
                                  Press(dialog, DeleteRules);
                              });
}

void ExportFile(benchmark::State& state) {
    MainWindow(state).Measure([](ui::Dialog& dialog) { Press(dialog, ExportRules); });
}

void Sizes(benchmark::internal::Benchmark* line) {
    line->RangeMultiplier(10)->Range(1000, 100'000)->Unit(benchmark::kMicrosecond);
}

void ProfileSizes(benchmark::internal::Benchmark* line) {
    line->RangeMultiplier(10)->Range(10, 1000)->Unit(benchmark::kMicrosecond);
}

BENCHMARK(OpenAProfile)->Apply(Sizes);
BENCHMARK(TypeInSearch)->Apply(Sizes);
BENCHMARK(LeaveTheRules)->Apply(Sizes);
BENCHMARK(AddOne)->Apply(Sizes)->Iterations(bench::Rounds(200));
BENCHMARK(EditOne)->Apply(Sizes);
BENCHMARK(OpenTheEditor)->Apply(Sizes);
BENCHMARK(EditOpenedProfile)->Apply(Sizes);
BENCHMARK(OpenLastProfile)->Apply(ProfileSizes)->Iterations(bench::Rounds(200));
BENCHMARK(AddAProfile)->Apply(ProfileSizes)->Iterations(bench::Rounds(200));
BENCHMARK(EditLastProfile)->Apply(ProfileSizes);
BENCHMARK(DeleteAProfile)->Apply(ProfileSizes)->Iterations(bench::Rounds(200));
BENCHMARK(CopyTheFirst)->Apply(Sizes)->Iterations(bench::Rounds(200));
BENCHMARK(DeleteTheSecondHalf)->Apply(Sizes)->Iterations(bench::Rounds(20));
BENCHMARK(MoveFromTheMiddle<MakeFirst>)->Apply(Sizes);
BENCHMARK(MoveFromTheMiddle<MoveUp>)->Apply(Sizes);
BENCHMARK(MoveFromTheMiddle<MoveDown>)->Apply(Sizes);
BENCHMARK(MoveFromTheMiddle<MakeLast>)->Apply(Sizes);
BENCHMARK(ImportFile)->Apply(Sizes)->Iterations(bench::Rounds(20));
BENCHMARK(ExportFile)->Apply(Sizes);

}  // namespace
