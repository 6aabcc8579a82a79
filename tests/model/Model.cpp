#include "tests/model/Model.h"

#include <algorithm>
#include <set>

namespace tests::model {

void Model::Start() {
    memory_ = Load(registry_);
    opened_.clear();
    search_.clear();
    rows_.clear();
    focusedRow_.reset();
    changed_ = false;
    keyboard_ = Place::Profiles;
    selectedProfile_ = 0;
    showsProfile_ = false;
    OpenProfile();
}

Texts Model::ProfileNames() const {
    Texts names;
    for (const Profile& profile : memory_.profiles) names.push_back(profile.name);
    return names;
}

std::wstring Model::ProfileLabel() const {
    return L"Profile: " + shownProfile_;
}

std::wstring Model::CsProfileLabel() const {
    return L"CS profile's num: " + std::to_wstring(shownStoreProfiles_);
}

const Profile* Model::Opened() const {
    for (const Profile& profile : memory_.profiles)
        if (profile.name == opened_) return &profile;
    return nullptr;
}

Profile* Model::OpenedProfile() {
    for (Profile& profile : memory_.profiles)
        if (profile.name == opened_) return &profile;
    return nullptr;
}

std::optional<size_t> Model::FirstSelectedRow() const {
    for (size_t row = 0; row < rows_.size(); ++row)
        if (rows_[row].selected) return row;
    return std::nullopt;
}

size_t Model::SelectedRows() const {
    return static_cast<size_t>(std::count_if(rows_.begin(), rows_.end(), [](const Row& row) { return row.selected; }));
}

Texts Model::NamesWithoutKey() const {
    std::set<std::wstring> keys;
    Texts names;
    for (const Profile& profile : memory_.profiles)
        if (!keys.insert(Capitals(profile.name)).second) names.push_back(profile.name);
    return names;
}

Texts Model::SuggestedMasks() const {
    Texts masks;
    const auto isNew = [&](const std::wstring& mask) {  // an empty one is no choice
        return !mask.empty() && std::find(masks.begin(), masks.end(), mask) == masks.end();
    };
    Texts extensions;
    for (const wchar_t* name : {L"SigExt", L"DsigExt", L"EncExt", L"B64Ext", L"HashExt", L"VerifyFileExt"})
        extensions.push_back(std::get<std::wstring>(memory_.settings.at(name)));
    for (const std::wstring& extension : std::get<Texts>(memory_.settings.at(L"ExtExt")))
        extensions.push_back(extension);
    for (const std::wstring& extension : extensions)
        if (isNew(L"*." + extension)) masks.push_back(L"*." + extension);
    const std::vector<Rule>& rules = Opened()->rules;
    for (auto rule = rules.rbegin(); rule != rules.rend(); ++rule)
        for (auto mask = rule->masks.rbegin(); mask != rule->masks.rend(); ++mask)
            if (isNew(*mask)) masks.insert(masks.begin(), *mask);
    return masks;
}

void Model::MoveKeyboard(Place place) {
    if (place != Place::Rules) LeaveRules();
    keyboard_ = place;
}

// Whenever the list loses the keyboard, each box switches the rule at its row's position, whichever rule the
// row shows; a row that is not there counts as checked.
void Model::LeaveRules() {
    Profile* const profile = OpenedProfile();
    if (keyboard_ != Place::Rules || profile == nullptr) return;
    for (size_t i = 0; i < profile->rules.size(); ++i) {
        Rule& rule = profile->rules[i];
        if (rule.Operation().empty()) continue;
        int32_t& isOn = rule.number[L"Is on"];
        const bool checked = i >= rows_.size() || rows_[i].checked;
        if (checked ? isOn != 1 : isOn != 0) {
            isOn = checked ? 1 : 0;
            changed_ = true;
        }
    }
}

bool Model::HasUnsaved() const {
    const Profile* const profile = Opened();
    if (changed_ || keyboard_ != Place::Rules || profile == nullptr) return changed_;
    return std::any_of(rows_.begin(), rows_.end(), [profile](const Row& row) {
        return (profile->rules.at(row.rule).number.at(L"Is on") != 0) != row.checked;
    });
}

void Model::OpenProfile() {
    if (!selectedProfile_) return;
    const Profile& profile = memory_.profiles.at(*selectedProfile_);
    opened_ = shownProfile_ = profile.name;
    shownStoreProfiles_ = profile.CsProfiles().size();
    showsProfile_ = true;
    Fill();
}

void Model::AddProfile(const Profile& profile) {
    memory_.profiles.push_back(profile);
    changed_ = true;
}

void Model::ReplaceProfile(const Profile& profile) {
    *OpenedProfile() = profile;
    opened_ = shownProfile_ = profile.name;
    shownStoreProfiles_ = profile.CsProfiles().size();
    Fill();
    changed_ = true;
}

// No profile is shown then; but unless the last row has gone, the last name stays the opened one.
void Model::DeleteProfile() {
    const size_t row = *selectedProfile_;
    memory_.profiles.erase(memory_.profiles.begin() + static_cast<std::ptrdiff_t>(row));
    selectedProfile_.reset();
    opened_ = row < memory_.profiles.size() ? memory_.profiles.back().name : L"";
    shownProfile_.clear();
    shownStoreProfiles_ = 0;
    showsProfile_ = false;
    rows_.clear();
    focusedRow_.reset();
    keyboard_ = Place::Profiles;
    changed_ = true;
}

void Model::Fill() {
    rows_.clear();
    focusedRow_.reset();
    const Profile* const profile = Opened();
    if (profile == nullptr) return;
    for (size_t i = 0; i < profile->rules.size(); ++i) {
        const Rule& rule = profile->rules[i];
        const bool found = Capitals(rule.text.at(L"Descryption")).find(Capitals(search_)) != std::wstring::npos;
        if (!rule.Operation().empty() && found)
            rows_.push_back({i, Cells(rule, i), rule.number.at(L"Is on") != 0, false});
    }
}

void Model::ClickRow(size_t row) {
    SelectOnly(row);
}

void Model::ToggleRowSelection(size_t row) {
    rows_.at(row).selected = !rows_.at(row).selected;
    focusedRow_ = row;
}

void Model::RightClickRow(size_t row) {
    if (rows_.at(row).selected) {
        focusedRow_ = row;
    } else {
        SelectOnly(row);
    }
}

void Model::ClickBelowRows() {
    for (Row& row : rows_) row.selected = false;
}

void Model::SelectOnly(size_t row) {
    for (size_t i = 0; i < rows_.size(); ++i) rows_[i].selected = i == row;
    focusedRow_ = row;
}

void Model::TypeSearch(const std::wstring& text) {
    if (text.empty() && search_.empty()) return;
    search_ = text;
    Fill();
}

// Rows beyond the end mean the last one.
void Model::ShowChanged(std::optional<size_t> row) {
    Fill();
    keyboard_ = Place::Rules;
    if (row && *row < rows_.size()) SelectOnly(*row);
    changed_ = true;
}

void Model::ShowChangedOrLast(size_t row) {
    ShowChanged(row);
    if (row >= rows_.size() && !rows_.empty()) SelectOnly(rows_.size() - 1);
}

void Model::AddRule(const Rule& rule) {
    OpenedProfile()->rules.push_back(rule);
    ShowChanged(Opened()->rules.size() - 1);
}

void Model::ImportRules(const std::vector<Rule>& rules) {
    OpenedProfile()->rules.insert(OpenedProfile()->rules.end(), rules.begin(), rules.end());
    ShowChangedOrLast(Opened()->rules.size() - 1);
}

void Model::CopyRule() {
    const auto row = FirstSelectedRow();
    if (!row) return;
    std::vector<Rule>& rules = OpenedProfile()->rules;
    const Rule copy = rules.at(*row);
    rules.insert(rules.begin() + static_cast<std::ptrdiff_t>(*row) + 1, copy);
    ShowChanged(*row + 1);
}

void Model::ReplaceRule(size_t position, const Rule& rule) {
    OpenedProfile()->rules.at(position) = rule;
    ShowChanged(position);
}

void Model::DeleteRules() {
    std::vector<Rule> kept;
    const std::vector<Rule>& rules = Opened()->rules;
    for (size_t i = 0; i < rules.size(); ++i)
        if (i >= rows_.size() || !rows_[i].selected) kept.push_back(rules[i]);
    const size_t first = *FirstSelectedRow();
    OpenedProfile()->rules = kept;
    ShowChanged(std::nullopt);
    if (!rows_.empty()) focusedRow_ = std::min(first, rows_.size() - 1);
}

void Model::Move(size_t from, size_t to) {
    std::vector<Rule>& rules = OpenedProfile()->rules;
    const Rule moved = rules.at(from);
    rules.erase(rules.begin() + static_cast<std::ptrdiff_t>(from));
    rules.insert(rules.begin() + static_cast<std::ptrdiff_t>(to), moved);
    ShowChangedOrLast(to);
}

void Model::MakeFirst() {
    if (const auto row = FirstSelectedRow()) Move(*row, 0);
}

void Model::MoveUp() {
    if (const auto row = FirstSelectedRow(); row && *row > 0) Move(*row, *row - 1);
}

void Model::MoveDown() {
    if (const auto row = FirstSelectedRow(); row && *row + 1 < rows_.size()) Move(*row, *row + 1);
}

void Model::MakeLast() {
    if (const auto row = FirstSelectedRow()) Move(*row, Opened()->rules.size() - 1);
}

void Model::Save() {
    model::Save(memory_, registry_);
    changed_ = false;
}

}  // namespace tests::model
