#include "tests/support/Robot.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <memory>
#include <stdexcept>
#include <string_view>
#include <utility>

#include "ui/ListView.h"

#if __has_include(<cxxabi.h>)
#include <cxxabi.h>
#endif

namespace tests {
namespace {

// Good enough for messages: everything beyond ASCII becomes a question mark.
std::string Narrow(std::wstring_view text) {
    std::string narrow;
    for (const wchar_t unit : text) narrow += unit < 0x80 ? static_cast<char>(unit) : '?';
    return narrow;
}

std::string Readable(const char* typeName) {
#if __has_include(<cxxabi.h>)
    int status = 0;
    const std::unique_ptr<char, decltype(&std::free)> name(abi::__cxa_demangle(typeName, nullptr, nullptr, &status),
                                                           &std::free);
    if (name != nullptr) return name.get();
#endif
    return typeName;
}

std::string BoxNamed(const std::wstring& text, uint32_t flags, const std::wstring& caption = {}) {
    std::string name = "a message box \"" + Narrow(text) + "\" with flags " + std::to_string(flags);
    if (!caption.empty()) name += " and caption \"" + Narrow(caption) + "\"";
    return name;
}

std::string FilePickerNamed(ui::FilePickerKind kind) {
    return kind == ui::FilePickerKind::Open ? "a file picker for opening" : "a file picker for saving";
}

// What changes least, for a box that must not stay open.
int RefusalOf(uint32_t flags) {
    switch (flags & ui::box::Buttons) {
        case ui::box::OkCancel:
            return ui::IdCancel;
        case ui::box::YesNo:
            return ui::IdNo;
        default:
            return ui::IdOk;
    }
}

}  // namespace

// The script that is running, and what it expects to open.
class Robot::Running {
  public:
    Running(Robot& robot, ui::Dialog& dialog) : robot_(robot) {
        robot_.queues_.emplace_back();
        robot_.open_.push_back(&dialog);
    }
    ~Running() {
        robot_.ReportUnmet(robot_.queues_.back());
        robot_.queues_.pop_back();
        robot_.open_.pop_back();
    }
    Running(const Running&) = delete;
    Running& operator=(const Running&) = delete;

  private:
    Robot& robot_;
};

Robot::Robot() : queues_(1) {}

Robot::~Robot() {
    ReportUnmet(queues_.front());
}

void Robot::ExpectDialog(std::string what, std::function<bool(ui::Dialog&)> script) {
    Expectation expectation;
    expectation.what = "a dialog " + Readable(what.c_str());
    expectation.dialog = std::move(script);
    Queue(std::move(expectation));
}

void Robot::ExpectBox(const std::wstring& text, uint32_t flags, int answer) {
    Expectation expectation;
    expectation.what = BoxNamed(text, flags);
    expectation.box = [text, flags, answer](const std::wstring& shown, const std::wstring&, uint32_t given) {
        return shown == text && given == flags ? std::optional(answer) : std::nullopt;
    };
    Queue(std::move(expectation));
}

void Robot::ExpectBox(const std::wstring& text, uint32_t flags, int answer, const std::wstring& caption) {
    Expectation expectation;
    expectation.what = BoxNamed(text, flags, caption);
    expectation.box = [=](const std::wstring& shown, const std::wstring& shownCaption, uint32_t given) {
        const bool same = shown == text && shownCaption == caption && given == flags;
        return same ? std::optional(answer) : std::nullopt;
    };
    Queue(std::move(expectation));
}

void Robot::ExpectBoxBeginning(const std::wstring& beginning, uint32_t flags, int answer) {
    Expectation expectation;
    expectation.what = BoxNamed(beginning + L"...", flags);
    expectation.box = [=](const std::wstring& shown, const std::wstring&, uint32_t given) {
        return shown.starts_with(beginning) && given == flags ? std::optional(answer) : std::nullopt;
    };
    Queue(std::move(expectation));
}

void Robot::ExpectFolderPicker(std::optional<std::wstring> answer) {
    Expectation expectation;
    expectation.what = "a folder picker";
    expectation.isFolderPicker = true;
    expectation.pickerAnswer = std::move(answer);
    Queue(std::move(expectation));
}

void Robot::ExpectFilePicker(ui::FilePickerKind kind, std::optional<std::wstring> answer) {
    Expectation expectation;
    expectation.what = FilePickerNamed(kind);
    expectation.filePicker = kind;
    expectation.pickerAnswer = std::move(answer);
    Queue(std::move(expectation));
}

void Robot::Queue(Expectation expectation) {
    queues_.back().push_back(std::move(expectation));
}

std::optional<Robot::Expectation> Robot::Next(const std::string& opened) {
    std::deque<Expectation>& queue = queues_.back();
    if (queue.empty()) {
        ADD_FAILURE() << "nobody expected " << opened;
        return std::nullopt;
    }
    Expectation next = std::move(queue.front());
    queue.pop_front();
    return next;
}

void Robot::ReportUnmet(const std::deque<Expectation>& expectations) {
    for (const Expectation& expectation : expectations) ADD_FAILURE() << expectation.what << " never opened";
}

ui::Dialog& Robot::Top() const {
    if (open_.empty()) throw std::logic_error("Robot: no dialog's script is running");
    return *open_.back();
}

bool Robot::CanUse(int id) const {
    const ui::Control& control = Top().Find(id);
    return control.IsVisible() && control.IsEnabled();
}

std::vector<std::wstring> Robot::Row(int id, size_t row) const {
    const auto& list = Get<ui::ListView>(id);
    if (row >= list.RowCount()) {
        ADD_FAILURE() << "list " << id << " has no row " << row;
        return {};
    }
    std::vector<std::wstring> cells;
    for (size_t column = 0; column < list.Columns().size(); ++column) cells.push_back(list.CellText(row, column));
    return cells;
}

size_t Robot::RowCount(int id) const {
    return Get<ui::ListView>(id).RowCount();
}

std::vector<std::wstring> Robot::Column(int id, size_t column) const {
    std::vector<std::wstring> cells;
    for (size_t row = 0; row < RowCount(id); ++row) cells.push_back(Row(id, row).at(column));
    return cells;
}

std::vector<int> Robot::TabOrder() {
    constexpr size_t MoreThanAnyFormHas = 100;
    std::vector<int> order{Top().Focus()->Id()};
    for (Press(Key::Tab); Top().Focus()->Id() != order.front() && order.size() < MoreThanAnyFormHas; Press(Key::Tab))
        order.push_back(Top().Focus()->Id());
    return order;
}

void Robot::CheckOwner(const ui::Dialog* owner, const std::string& opened) const {
    if (open_.empty()) return;
    const ui::Dialog* from = owner;
    while (from != nullptr && from != open_.back()) from = from->Parent();
    if (from == nullptr) ADD_FAILURE() << "does not belong to the dialog that it opened from: " << opened;
}

void Robot::DialogOpened(ui::Dialog& dialog, const std::function<void()>& closeByForce) {
    const std::string opened = "a dialog " + Readable(typeid(dialog).name());
    const std::optional<Expectation> expected = Next(opened);
    if (!expected || !expected->isOwnerless) CheckOwner(dialog.Parent(), opened);
    if (expected) {
        const Running running(*this, dialog);
        CheckWindows(dialog);
        if (!expected->dialog || !expected->dialog(dialog))
            ADD_FAILURE() << "expected " << expected->what << ", but this opened: " << opened;
    }
    if (dialog.HasEnded()) return;
    if (expected) ADD_FAILURE() << "its script left open " << opened;
    closeByForce();
}

int Robot::BoxOpened(const ui::Dialog* owner, const std::wstring& text, const std::wstring& caption, uint32_t flags) {
    const std::string opened = BoxNamed(text, flags, caption);
    CheckOwner(owner, opened);
    const std::optional<Expectation> expected = Next(opened);
    if (!expected) return RefusalOf(flags);
    const std::optional<int> answer = expected->box ? expected->box(text, caption, flags) : std::nullopt;
    if (!answer) ADD_FAILURE() << "expected " << expected->what << ", but this opened: " << opened;
    return answer.value_or(RefusalOf(flags));
}

int CodeOf(Key key) {
    namespace k = ui::key;
    constexpr std::array Codes{k::Tab,  k::Enter, k::Escape, k::Space,  k::Delete, k::Up,
                               k::Down, k::Home,  k::End,    k::Insert, k::Menu,   k::F1,
                               k::F2,   k::F10,   int{'A'},  int{'D'},  int{'F'},  int{'S'}};
    static_assert(Codes.size() == static_cast<size_t>(Key::S) + 1);
    return Codes.at(static_cast<size_t>(key));
}

std::optional<std::wstring> Robot::FolderPickerOpened(const ui::Dialog* owner, const std::wstring& folder) {
    lastPickedFrom_ = folder;
    CheckOwner(owner, "a folder picker");
    const std::optional<Expectation> expected = Next("a folder picker");
    if (!expected) return std::nullopt;
    if (!expected->isFolderPicker) ADD_FAILURE() << "expected " << expected->what << ", but a folder picker opened";
    return expected->pickerAnswer;
}

std::optional<std::wstring> Robot::FilePickerOpened(const ui::Dialog* owner, const ui::FilePicker& picker) {
    const std::string opened = FilePickerNamed(picker.kind);
    lastFilePicker_ = picker;
    CheckOwner(owner, opened);
    const std::optional<Expectation> expected = Next(opened);
    if (!expected) return std::nullopt;
    if (expected->filePicker != picker.kind)
        ADD_FAILURE() << "expected " << expected->what << ", but " << opened << " opened";
    return expected->pickerAnswer;
}

}  // namespace tests
