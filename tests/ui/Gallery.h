// A dialog with a control of every kind, which notes what its handlers hear.
#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "tests/support/World.h"
#include "ui/Choices.h"
#include "ui/Controls.h"
#include "ui/Dialog.h"
#include "ui/ListView.h"

namespace tests {

namespace gallery {
inline constexpr int Apply = 100, Save = 101, Tick = 102, Name = 103, Digits = 104, Arrows = 105, Notes = 106;
inline constexpr int Kinds = 107, Mask = 108, Names = 109, Rows = 110, Hint = 111, Sign = 112, Frame = 113;
inline constexpr int Fixed = 114;
inline constexpr int Open = 2001, Print = 2002, About = 16;
}  // namespace gallery

class Gallery : public ui::Dialog {
  public:
    explicit Gallery(ui::Screen& screen, ui::Dialog* owner = nullptr)
        : Dialog(screen, owner, {.size = {300, 230}, .resizable = true, .minimizeBox = true}, L"Gallery") {}

    using Dialog::AppendToSystemMenu;
    using Dialog::EnableMenuItems;
    using Dialog::EndDialog;
    using Dialog::NormalRect;
    using Dialog::SetCaption;
    using Dialog::SetIcon;
    using Dialog::SetMenuBar;
    using Dialog::SetNormalRect;

    ui::Size MinimumTrackSize() const override { return smallest; }

    // What the handlers heard since the last call.
    std::vector<std::wstring> TakeHeard() { return std::exchange(heard_, {}); }
    void Hear(std::wstring what) {
        heard_.push_back(std::move(what));
        if (onHear) onHear(heard_.back());
    }

    std::function<void()> onInit;
    std::function<void(const std::wstring&)> onHear;
    std::function<void()> onOk = [this] { EndDialog(ui::IdOk); };
    ui::Size smallest;

    ui::Label hint{*this, gallery::Hint, {7, 7, 60, 8}, L"Name & more:"};
    ui::Edit name{
        *this, gallery::Name, {70, 5, 90, 14}, {.takesPaths = true}, [this] { Hear(L"name " + name.Text()); }};
    ui::Edit digits{
        *this, gallery::Digits, {165, 5, 40, 14}, {.digitsOnly = true}, [this] { Hear(L"digits " + digits.Text()); }};
    ui::UpDown arrows{*this, gallery::Arrows, digits, 0, 99};
    ui::CheckBox tick{*this, gallery::Tick, {212, 7, 80, 10}, L"Tick & tock", [this] {
                          Hear(tick.IsChecked() ? L"ticked" : L"unticked");
                      }};
    ui::GroupBox frame{*this, gallery::Frame, {7, 24, 150, 66}, L"R&D"};
    ui::Edit notes{
        *this, gallery::Notes, {13, 36, 138, 46}, {.multiLine = true}, [this] { Hear(L"notes " + notes.Text()); }};
    ui::ComboBox kinds{*this, gallery::Kinds, {165, 26, 60, 14}, [this] { Hear(L"kind " + kinds.SelectedItem()); }};
    ui::EditableCombo mask{*this, gallery::Mask, {232, 26, 60, 14}, [this] { Hear(L"mask " + mask.Text()); }};
    ui::ListBox names{
        *this, gallery::Names, {165, 44, 60, 46, {0, 0, 50, 0}}, ui::ListBox::Order::Alphabetical, [this] {
            Hear(L"chose " + names.SelectedItem());
        }};
    ui::Picture sign{*this, gallery::Sign, {232, 44, 24, 24, {50, 0, 0, 0}}, ui::Icon::Warning};
    ui::IconButton save{*this,          gallery::Save, {260, 44, 32, 32, {100, 0, 0, 0}},
                        ui::Icon::Save, L"Save",       [this] { Hear(L"save"); }};
    ui::ListView rows{
        *this, gallery::Rows, {7, 96, 285, 104, ui::GrowBoth}, {.checkBoxes = true, .sortableHeaders = true}};
    ui::Edit fixed{*this, gallery::Fixed, {7, 207, 80, 14, {0, 100, 0, 0}}, {.readOnly = true}};
    ui::Button apply{*this, gallery::Apply, {110, 206, 50, 16, ui::MoveBoth}, L"Apply", [this] { Hear(L"apply"); }};
    ui::Button ok{*this, ui::IdOk, {176, 206, 50, 16, ui::MoveBoth}, L"OK"};
    ui::Button cancel{*this, ui::IdCancel, {242, 206, 50, 16, ui::MoveBoth}, L"Exit"};

  protected:
    void OnInitDialog() override {
        SetIcon(ui::Icon::App);
        kinds.SetItems({L"One", L"Two", L"Three"});
        mask.SetItems({L"*.txt", L"*.p7s"});
        names.Replace({L"xml", L"Abc", L"zip"});
        fixed.SetText(L"fixed");
        fixed.Enable(false);
        FillRows(20);
        ListenToRows();
        if (onInit) onInit();
    }
    void OnOK() override {
        Hear(L"OK");
        onOk();
    }
    void OnCancel() override {
        Hear(L"Cancel");
        Dialog::OnCancel();
    }
    void OnMenuCommand(int command) override { Hear(L"menu " + std::to_wstring(command)); }
    void OnSystemCommand(int command) override { Hear(L"system menu " + std::to_wstring(command)); }
    void OnResized() override { ++resized; }

  public:
    void FillRows(size_t count) {
        rows.SetCells([](size_t row, size_t column) {
            return (column == 0 ? L"row " : column == 1 ? L"first " : L"second ") + std::to_wstring(row);
        });
        if (rows.Columns().empty()) rows.SetColumns({{L"", 90}, {L"First", 100}, {L"Second", 120}});
        rows.SetRows(std::vector<bool>(count));
    }

    int resized = 0;

  private:
    static std::wstring Place(const ui::ListHit& hit) {
        if (!hit.row) return L"nowhere";
        return std::to_wstring(*hit.row) + L"," + std::to_wstring(hit.column);
    }
    void ListenToRows() {
        rows.OnClick([this](const ui::ListHit& hit) { Hear(L"click " + Place(hit)); });
        rows.OnDoubleClick([this](const ui::ListHit& hit) { Hear(L"double click " + Place(hit)); });
        rows.OnRightClick([this](const ui::ListHit& hit) { Hear(L"right click " + Place(hit)); });
        rows.OnKeyDown([this](int key) { Hear(L"key " + std::to_wstring(key)); });
        rows.OnHeaderClick([this](size_t column) { Hear(L"header " + std::to_wstring(column)); });
        rows.OnFocusLost([this] { Hear(L"rows left"); });
    }

    std::vector<std::wstring> heard_;
};

using Heard = std::vector<std::wstring>;

class GalleryTest : public ::testing::Test {
  protected:
    // Runs the gallery; after the script the user leaves it if it is still open.
    int Run(const std::function<void()>& script) {
        user_.Expect<Gallery>([this, script](Gallery& dialog) {
            script();
            if (!dialog.HasEnded()) {
                dialog.onHear = nullptr;
                user_.PressCloseBox();
            }
        });
        return gallery_.DoModal();
    }

    const std::unique_ptr<World> world_ = World::Make();
    Robot& user_ = world_->User();
    Gallery gallery_{world_->Screen()};
};

}  // namespace tests
