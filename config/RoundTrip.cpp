#include "config/RoundTrip.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <unordered_set>
#include <utility>

#include "config/RegistryLayout.h"
#include "text/Case.h"
#include "text/Format.h"

namespace config {
namespace {

using Reason = Unreadable::Reason;

// What the forms call the texts that the registry keeps under these names.
using Word = std::pair<std::wstring_view, std::wstring_view>;
constexpr std::array words{
    Word{L"SigExt", L"Signed files"},
    Word{L"DsigExt", L"Files with detached signature"},
    Word{L"EncExt", L"Encrypted files"},
    Word{L"B64Ext", L"Files in b64 format"},
    Word{L"HashExt", L"Hash files"},
    Word{L"VerifyFileExt", L"Files with signature verification report"},
    Word{L"ZIPArchiveExt", L"ZIP archives"},
    Word{L"GZIPArchiveExt", L"GZIP archives"},
    Word{L"ExtExt", L"Additional file name extension"},
    Word{L"LogPath", L"Log path"},
    Word{L"ServerTSP", L"TSP server"},
    Word{L"ZCSProfile", L"CS profile"},
    Word{L"ResignProfile", L"New signature profile"},
    Word{L"Path In", L"Input folder"},
    Word{L"Path Out", L"Output folder"},
    Word{L"Path Out 2", L"Second Output folder"},
    Word{L"Path Error", L"Error folder"},
    Word{L"DelExt", L"Delete extension"},
    Word{L"AddExt", L"Add extension"},
    Word{L"Folders", L"Accounting format"},
    Word{L"Copyfolders", L"Accounting copy format"},
    Word{L"ArchName", L"Archives name format"},
    Word{L"ExecName", L"Executable file"},
    Word{L"Descryption", L"Description"},
};

// A text whose name in the registry is a good one, too, needs no other.
std::wstring WordFor(std::wstring_view name) {
    const auto found = std::find_if(words.begin(), words.end(), [name](Word word) { return word.first == name; });
    return std::wstring(found == words.end() ? name : found->second);
}

bool Holds(std::wstring_view text, wchar_t unit) {
    return text.find(unit) != std::wstring_view::npos;
}

// Names of keys that lie side by side.
class KeyNames {
  public:
    std::optional<Reason> WhyUnreadable(const std::wstring& name) {
        if (name.empty()) return Reason::Empty;
        if (name.size() > LongestKeyName) return Reason::NameTooLong;
        if (Holds(name, L'\0')) return Reason::ZeroCharacter;
        if (Holds(name, L'\\')) return Reason::Backslash;
        return taken_.insert(text::Upper(name)).second ? std::nullopt : std::optional(Reason::SharedKey);
    }

  private:
    std::unordered_set<std::wstring> taken_;
};

// Names are cut, so that a box stays readable; what is no character would end its text or its line.
std::wstring Shown(std::wstring_view name) {
    constexpr size_t longest = 40;
    std::wstring shown(name.substr(0, longest));
    std::replace_if(
        shown.begin(), shown.end(), [](wchar_t unit) { return unit < L' '; }, L'?');
    return name.size() > longest ? shown + L"..." : shown;
}

// Goes through the records as a save does, and as a visitor through their fields.
class Search {
  public:
    std::vector<Unreadable> In(const Configuration& configuration);

    void Text(const wchar_t* name, std::wstring_view text) {
        if (const auto why = WhyUnreadable(text)) Add(WordFor(name), *why);
    }
    void Number(const wchar_t* /*name*/, int32_t /*number*/) {}
    void List(const wchar_t* name, const std::vector<std::wstring>& entries) {
        for (size_t i = 0; i < entries.size(); ++i)
            if (Holds(entries[i], L'\0')) Add(Numbered(name, i), Reason::ZeroCharacter);
    }
    void List(const wchar_t* /*name*/, const std::vector<int32_t>& /*numbers*/) {}
    void PlainList(const wchar_t* name, const std::vector<std::wstring>& entries) {
        List(name, entries);
        for (size_t i = 0; i < entries.size(); ++i)
            if (entries[i].empty()) Add(Numbered(name, i), Reason::Empty);
    }
    void Masks(const wchar_t* /*countName*/, const wchar_t* /*prefix*/, const Rule& rule) {
        Texts(L"Mask %d", rule.Masks);
    }
    void Count(const wchar_t* /*name*/, const std::vector<CertificateRef>& /*certificates*/) {}
    void StoresOf(const Rule& /*rule*/) {}
    void Values(const wchar_t* /*prefix*/, const std::vector<CertificateRef>& certificates) {
        Texts(L"Recipient %d", certificates);
    }

  private:
    static std::optional<Reason> WhyUnreadable(std::wstring_view text) {
        if (text.size() > LongestText) return Reason::TextTooLong;
        return Holds(text, L'\0') ? std::optional(Reason::ZeroCharacter) : std::nullopt;
    }
    static std::wstring Numbered(const wchar_t* name, size_t index) {
        return text::Format(L"%s %d", WordFor(name), index + 1);
    }
    // field: with the place of a number, from 1 on.
    void Texts(const std::wstring& field, const std::vector<std::wstring>& texts) {
        for (size_t i = 0; i < texts.size(); ++i)
            if (const auto why = WhyUnreadable(texts[i])) Add(text::Format(field, i + 1), *why);
    }
    void Add(std::wstring field, Reason why) { found_.push_back({profile_, rule_, std::move(field), why}); }

    void InProfile(const ServiceProfile& profile);
    void InRule(const Rule& rule);
    void InSignerLists(const std::vector<SignerListEntry>& lists);

    KeyNames profileNames_;
    std::wstring profile_;
    std::optional<size_t> rule_;
    std::vector<Unreadable> found_;
};

std::vector<Unreadable> Search::In(const Configuration& configuration) {
    VisitSettings(configuration.Settings, *this);
    for (const ServiceProfile& profile : configuration.Profiles) InProfile(profile);
    return std::move(found_);
}

void Search::InProfile(const ServiceProfile& profile) {
    profile_ = profile.Name;
    rule_.reset();
    if (const auto why = profileNames_.WhyUnreadable(profile.Name)) Add(L"Name", *why);
    VisitProfile(profile, *this);
    for (size_t position = 0; position < profile.Rules.size(); ++position) {
        rule_ = position;
        InRule(profile.Rules[position]);
    }
}

void Search::InRule(const Rule& rule) {
    if (rule.Operation.empty()) return;
    VisitRule(rule, *this);
    InSignerLists(rule.SignerLists);
}

void Search::InSignerLists(const std::vector<SignerListEntry>& lists) {
    KeyNames names;
    for (const SignerListEntry& list : lists) {
        if (const auto why = names.WhyUnreadable(list.Name))
            Add(text::Format(L"Signer list '%s'", Shown(list.Name)), *why);
        for (size_t i = 0; i < list.Signers.size(); ++i)
            if (const auto why = WhyUnreadable(list.Signers[i]))
                Add(text::Format(L"Signer list '%s', signer %d", Shown(list.Name), i + 1), *why);
    }
}

std::wstring InWords(Reason why) {
    switch (why) {
        case Reason::TextTooLong:
            return text::Format(L"longer than %d characters", LongestText);
        case Reason::NameTooLong:
            return text::Format(L"longer than %d characters", LongestKeyName);
        case Reason::ZeroCharacter:
            return L"holds a zero character";
        case Reason::Backslash:
            return L"holds a backslash";
        case Reason::Empty:
            return L"empty";
        case Reason::SharedKey:
            return L"differs from another name at most in case";
    }
    return {};
}

std::wstring PlaceOf(const Unreadable& one) {
    if (one.Rule) return text::Format(L"Profile '%s', rule %d, ", Shown(one.Profile), *one.Rule + 1);
    return one.Profile.empty() ? L"" : text::Format(L"Profile '%s', ", Shown(one.Profile));
}

}  // namespace

std::vector<Unreadable> FindUnreadable(const Configuration& configuration) {
    return Search().In(configuration);
}

std::wstring UnreadableQuestion(std::span<const Unreadable> found) {
    constexpr size_t most = 10;
    std::wstring question = L"Some texts cannot be read back once they are saved:\r\n";
    for (const Unreadable& one : found.first(std::min(most, found.size())))
        question += text::Format(L"\r\n%s%s: %s", PlaceOf(one), one.Field, InWords(one.Why));
    if (found.size() > most) question += text::Format(L"\r\nand %d more", found.size() - most);
    return question + L"\r\n\r\nSave anyway?";
}

}  // namespace config
