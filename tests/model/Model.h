// What the main window must do, told a second time and in the simplest way: plain values, no controls,
// nothing of the program. The walk gives every command to the program and to this model and compares.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "tests/model/Configuration.h"

namespace tests::model {

enum class Place { Profiles, Rules, Search, Elsewhere };  // where the keyboard is

struct Row {
    size_t rule = 0;  // its position among the profile's rules, when the list was filled
    Texts cells;
    bool checked = false;
    bool selected = false;
};

class Model {
  public:
    explicit Model(Tree registry) : registry_(std::move(registry)) {}

    // The program starts: loads and opens the first profile.
    void Start();

    // What there is to be seen.
    const Tree& Registry() const { return registry_; }
    Texts ProfileNames() const;
    const std::vector<Row>& Rows() const { return rows_; }
    std::optional<size_t> SelectedProfile() const { return selectedProfile_; }
    std::optional<size_t> FocusedRow() const { return focusedRow_; }
    Place Keyboard() const { return keyboard_; }
    const std::wstring& Search() const { return search_; }
    bool IsChanged() const { return changed_; }
    // Something that is not stored, be it only a tick.
    bool HasUnsaved() const;
    std::wstring ProfileLabel() const;
    std::wstring CsProfileLabel() const;
    // Whether a profile is shown as the opened one; without one, its commands and its rules cannot be used.
    bool ShowsProfile() const { return showsProfile_; }

    // What commands ask for.
    Values& Settings() { return memory_.settings; }
    const Profile* Opened() const;  // null: none
    const std::wstring& OpenedName() const { return opened_; }
    std::optional<size_t> FirstSelectedRow() const;
    size_t SelectedRows() const;
    Texts SuggestedMasks() const;
    // Of profiles whose key in the registry an earlier one has.
    Texts NamesWithoutKey() const;

    // The user's hands in the lists and the search.
    void MoveKeyboard(Place place);
    // Before it is carried out, while all rules are seen.
    void CommandIsGiven() {
        if (search_.empty()) LeaveRules();
    }
    void WindowOpens() { LeaveRules(); }  // in front of the main window, which gets the keyboard back later
    void SelectProfile(std::optional<size_t> row) { selectedProfile_ = row; }
    void OpenProfile();
    void ClickRow(size_t row);
    void ToggleRowSelection(size_t row);
    void RightClickRow(size_t row);
    void ClickBelowRows();
    void ToggleCheck(size_t row) { rows_.at(row).checked = !rows_.at(row).checked; }
    void PressSpace(size_t focused) {
        ToggleCheck(focused);
        const bool checked = rows_.at(focused).checked;
        for (Row& row : rows_)
            if (row.selected) row.checked = checked;
    }
    void TypeSearch(const std::wstring& text);

    // Commands on profiles. Each does what is left to do after questions and dialogs.
    void AddProfile(const Profile& profile);
    void ReplaceProfile(const Profile& profile);
    void DeleteProfile();

    // Commands on rules. Each does what is left to do after questions and dialogs.
    void AddRule(const Rule& rule);
    void ImportRules(const std::vector<Rule>& rules);
    void CopyRule();
    void ReplaceRule(size_t position, const Rule& rule);
    void DeleteRules();
    void MakeFirst();
    void MoveUp();
    void MoveDown();
    void MakeLast();

    void MarkChanged() { changed_ = true; }
    void Save();

  private:
    Profile* OpenedProfile();
    void Fill();
    void LeaveRules();
    void SelectOnly(size_t row);
    void ShowChanged(std::optional<size_t> row);  // a row that is not there is not selected
    void ShowChangedOrLast(size_t row);
    void Move(size_t from, size_t to);

    Tree registry_;
    Configuration memory_;
    std::wstring opened_;
    std::wstring shownProfile_;
    size_t shownStoreProfiles_ = 0;
    std::wstring search_;
    std::vector<Row> rows_;
    std::optional<size_t> selectedProfile_;
    std::optional<size_t> focusedRow_;
    Place keyboard_ = Place::Profiles;
    bool showsProfile_ = false;
    bool changed_ = false;
};

// The cells of the row that shows the rule at the position.
Texts Cells(const Rule& rule, size_t position);

}  // namespace tests::model
