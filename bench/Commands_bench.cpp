// The commands of the main window as the user gives them, with everything that belongs to each: the change,
// the list filled again, the selection. The dialog runs on the in-memory screen, so that what is measured is
// the program's own time.
#include <benchmark/benchmark.h>

#include <functional>
#include <string>
#include <utility>

#include "app/BrisgateDlg.h"
#include "bench/Sample.h"
#include "config/ExchangeFormat.h"
#include "editors/AddRule.h"
#include "editors/MaskList.h"
#include "platform/memory/MemoryMachine.h"
#include "ui/Choices.h"
#include "ui/Controls.h"
#include "ui/ListView.h"
#include "ui/memory/MemoryScreen.h"

namespace {

constexpr int AddRule = 1023, EditRule = 1024, CopyRule = 1037, DeleteRules = 1025, MakeFirst = 1026, MoveUp = 1027,
              MoveDown = 1028, MakeLast = 1029, ExportRules = 1034, ImportRules = 1035, OpenProfile = 1053;
constexpr int RuleRows = 1030, ProfileRows = 1001, Search = 1079;
constexpr const wchar_t* rulesFile = L"C:\\rules.prx";

constexpr int PathIn = 1045, PathOut = 1046, PathError = 1047, Operations = 1042, AddMask = 1124, MaskField = 1095;
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

// Works in the main window, accepts rules and masks, agrees to every question, and picks the one file.
class Administrator final : public ui::memory::User {
  public:
    explicit Administrator(std::function<void(ui::Dialog&)> work) : work_(std::move(work)) {}
    void DialogOpened(ui::Dialog& dialog) override {
        if (dynamic_cast<editors::CAddRule*>(&dialog) != nullptr) return AcceptRule(dialog);
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

  private:
    std::function<void(ui::Dialog&)> work_;
};

// The main window with one profile of state.range(0) rules, opened.
class MainWindow {
  public:
    explicit MainWindow(benchmark::State& state) : state_(state) {
        const auto rules = static_cast<size_t>(state.range(0));
        const config::Configuration sample = bench::SampleConfiguration(rules);
        const config::Rule& edited = sample.Profiles.front().Rules.at(editedRule);
        for (const std::wstring& folder : {std::wstring(someFolder), edited.PathIn, edited.PathOut, edited.PathError})
            machine_.Files.AddFolder(folder);
        bench::CreateTrees(machine_.StoredRegistry);
        bench::Save(machine_.Machine, screen_, sample);
        machine_.Files.AddFile(rulesFile, config::ExchangeText(sample.Profiles.front().Rules, machine_.CodePage));
    }

    // command: what is measured. undo: what puts the rules back, unmeasured.
    void Measure(const std::function<void(ui::Dialog&)>& command, const std::function<void(ui::Dialog&)>& undo = {}) {
        Administrator administrator([&](ui::Dialog& dialog) {
            for (auto _ : state_) {
                command(dialog);
                if (!undo) continue;
                state_.PauseTiming();
                undo(dialog);
                state_.ResumeTiming();
            }
        });
        screen_.SetUser(administrator);
        const errors::ErrorReporter reporter(machine_.Machine, screen_);
        config::RegistryStore store(machine_.Machine, reporter);
        app::CBrisgateDlg({machine_.Machine, screen_, reporter, store}).DoModal();
    }

  private:
    benchmark::State& state_;
    platform::memory::MemoryMachine machine_;
    ui::memory::MemoryScreen screen_{machine_.ScreenMetrics};
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
    line->RangeMultiplier(10)->Range(100, 10'000)->Unit(benchmark::kMicrosecond);
}

BENCHMARK(OpenAProfile)->Apply(Sizes);
BENCHMARK(TypeInSearch)->Apply(Sizes);
BENCHMARK(LeaveTheRules)->Apply(Sizes);
BENCHMARK(AddOne)->Apply(Sizes)->Iterations(200);
BENCHMARK(EditOne)->Apply(Sizes);
BENCHMARK(CopyTheFirst)->Apply(Sizes)->Iterations(200);
BENCHMARK(DeleteTheSecondHalf)->Apply(Sizes)->Iterations(20);
BENCHMARK(MoveFromTheMiddle<MakeFirst>)->Apply(Sizes);
BENCHMARK(MoveFromTheMiddle<MoveUp>)->Apply(Sizes);
BENCHMARK(MoveFromTheMiddle<MoveDown>)->Apply(Sizes);
BENCHMARK(MoveFromTheMiddle<MakeLast>)->Apply(Sizes);
BENCHMARK(ImportFile)->Apply(Sizes)->Iterations(20);
BENCHMARK(ExportFile)->Apply(Sizes);

}  // namespace
