// How the walk saves and leaves.
#include <gtest/gtest.h>

#include "tests/app/MainWindow.h"
#include "tests/model/Walk.h"

namespace tests::model {

// Whether something is going to be saved: profiles that would share a key are asked about first.
bool Walk::ExpectSaveQuestion() {
    const Texts names = model_.NamesWithoutKey();
    if (names.empty()) return true;
    std::wstring question = L"Some texts cannot be read back once they are saved:\r\n";
    for (const std::wstring& name : names)
        question += L"\r\nProfile '" + name + L"', Name: differs from another name at most in case";
    const bool saves = dice_.Chance(60);
    user_.ExpectBox(question + L"\r\n\r\nSave anyway?", boxes::Risk, saves ? ui::IdYes : ui::IdNo);
    return saves;
}

void Walk::AnswerSaveQuestion(const std::function<void()>& gesture) {
    gesture();
    if (!model_.NamesWithoutKey().empty()) model_.WindowOpens();
}

void Walk::Save() {
    const bool saves = ExpectSaveQuestion();
    AnswerSaveQuestion(dice_.Chance(30) ? ClickElsewhere(id::SaveIcon) : ButtonOrMenu(id::Save, command::Save));
    if (saves) model_.Save();
    CompareRegistry();
}

void Walk::SaveInVain() {
    world_.Registry().FailWhere(platform::memory::RegistryCall::Open, L"morcelservice", 5);
    if (ExpectSaveQuestion()) user_.ExpectBoxBeginning(L"Create (open) register key ", ui::box::ErrorIcon, ui::IdOk);
    ButtonOrMenu(id::Save, command::Save)();
    world_.Registry().NoFaults();
    model_.WindowOpens();
    CompareRegistry();
}

void Walk::SaveAndExit() {
    const auto pressEnterIn = [this](int control, Place place) {
        return [this, control, place] {
            model_.MoveKeyboard(place);
            model_.CommandIsGiven();
            user_.Click(control);
            user_.Press(Key::Enter);
        };
    };
    std::vector<std::function<void()>> ways{ClickElsewhere(ui::IdOk), pressEnterIn(id::Search, Place::Search)};
    if (model_.ShowsProfile()) ways.push_back(pressEnterIn(id::Rules, Place::Rules));
    const bool saves = ExpectSaveQuestion();
    AnswerSaveQuestion(dice_.Pick(ways));
    if (saves) model_.Save();
}

// While a search hides rules, a check box that the list has not been left with since is no change yet.
void Walk::Exit() {
    const size_t way = dice_.Below(4);
    way == 0 ? model_.MoveKeyboard(Place::Elsewhere) : model_.CommandIsGiven();
    const bool asks = model_.IsChanged();
    if (asks) user_.ExpectBox(boxes::LeaveText, boxes::Question, dice_.Chance(60) ? ui::IdNo : ui::IdYes);
    if (way == 0) user_.Click(ui::IdCancel);
    if (way == 1) user_.ChooseMenu(command::Exit);
    if (way == 2) user_.Press(Key::Escape);
    if (way == 3) user_.PressCloseBox();
    if (asks) model_.WindowOpens();
}

void Walk::ExitForGood() {
    model_.CommandIsGiven();
    if (model_.IsChanged()) user_.ExpectBox(boxes::LeaveText, boxes::Question, ui::IdYes);
    user_.PressCloseBox();
}

}  // namespace tests::model
