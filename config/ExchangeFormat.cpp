#include "config/ExchangeFormat.h"

#include <algorithm>

#include "text/Numbers.h"

namespace config {
namespace {

constexpr wchar_t fieldEnd = L'\n';
constexpr wchar_t recordEnd = L'\r';  // after the end of the last field
constexpr char fieldEndByte = '\n';
constexpr std::string_view recordEndBytes = "\n\r";
constexpr std::wstring_view betweenEntries = L";;";
constexpr std::wstring_view betweenSignerLists = L";\\;";
constexpr std::wstring_view emptyList = L"0";
constexpr auto fewestFields = 12;  // of a rule; those after the second output folder may be missing

// All fields of a record in their order, each on a line of its own. A record may end after any of them from
// the twelfth on.
template <class AnyRule, class Visitor>
void VisitRecord(AnyRule& rule, Visitor& visit) {
    visit.Text(rule.Operation);
    visit.Text(rule.PathIn);
    visit.Text(rule.PathOut);
    visit.Text(rule.PathError);
    visit.List(rule.Masks);
    visit.List(rule.Certificates);
    visit.Number(rule.IsOn);
    visit.Text(rule.ZCSProfile);
    visit.Number(rule.InFormatDet);
    visit.Number(rule.OutFormatDet);
    visit.Text(rule.ResignProfile);
    visit.Text(rule.PathOut2);
    visit.Text(rule.Descryption);
    visit.SignerLists(rule.SignerLists);
    visit.Number(rule.ZipFile);
    visit.Text(rule.DelExt);
    visit.Text(rule.AddExt);
    visit.Text(rule.Folders);
    visit.Text(rule.Copyfolders);
    visit.Number(rule.ArchCount);
    visit.Number(rule.ArchSize);
    visit.Number(rule.ArchTimeout);
    visit.Text(rule.ArchName);
    visit.Text(rule.ExecName);
    visit.Number(rule.ExecTimeout);
}

class RecordWriter {
  public:
    explicit RecordWriter(std::wstring& record) : record_(record) {}

    void Text(std::wstring_view text) {
        record_ += text;
        record_ += fieldEnd;
    }
    void Number(int32_t number) { Text(text::Decimal(number)); }
    void List(const std::vector<std::wstring>& entries) {
        if (entries.empty()) return Text(emptyList);
        for (const std::wstring& entry : entries) {
            if (&entry != &entries.front()) record_ += betweenEntries;
            record_ += entry;
        }
        record_ += fieldEnd;
    }
    void SignerLists(const std::vector<SignerListEntry>& lists) {
        if (lists.empty()) return Text(emptyList);
        for (const SignerListEntry& list : lists) {
            if (&list != &lists.front()) record_ += betweenSignerLists;
            record_ += list.Name;
            for (const CertificateRef& signer : list.Signers) (record_ += betweenEntries) += signer;
        }
        record_ += fieldEnd;
    }

  private:
    std::wstring& record_;
};

// Gives every piece of the text between separators to the function; without a separator there is one piece.
template <class Take>
void Split(std::wstring_view text, std::wstring_view separator, Take take) {
    for (;;) {
        const size_t end = text.find(separator);
        take(text.substr(0, end));
        if (end == std::wstring_view::npos) return;
        text.remove_prefix(end + separator.size());
    }
}

SignerListEntry ReadSignerList(std::wstring_view text) {
    const size_t nameEnd = text.find(betweenEntries);
    SignerListEntry list{std::wstring(text.substr(0, nameEnd)), {}};
    if (nameEnd == std::wstring_view::npos) return list;
    Split(text.substr(nameEnd + betweenEntries.size()), betweenEntries,
          [&list](std::wstring_view signer) { list.Signers.emplace_back(signer); });
    return list;
}

// Each function takes the next field. Where the record has no more, the rule keeps what it holds: a default.
class RecordReader {
  public:
    explicit RecordReader(std::wstring_view record) : rest_(record) {}

    void Text(Rule::Text& target) {
        if (std::wstring_view field; Take(field)) target = field;
    }
    void Number(int32_t& target) {
        if (std::wstring_view field; Take(field)) target = text::LeadingNumber(field);
    }
    void List(std::vector<std::wstring>& target) {
        std::wstring_view field;
        if (!Take(field) || field == emptyList) return;
        Split(field, betweenEntries, [&target](std::wstring_view entry) {
            if (!entry.empty()) target.emplace_back(entry);
        });
    }
    void SignerLists(std::vector<SignerListEntry>& target) {
        std::wstring_view field;
        if (!Take(field) || field == emptyList) return;
        Split(field, betweenSignerLists, [&target](std::wstring_view list) { target.push_back(ReadSignerList(list)); });
    }

  private:
    // False: the record has no more.
    bool Take(std::wstring_view& field) {
        if (ended_) return false;
        const size_t end = rest_.find(fieldEnd);
        field = rest_.substr(0, end);
        ended_ = end == std::wstring_view::npos;
        if (!ended_) rest_.remove_prefix(end + 1);
        return true;
    }

    std::wstring_view rest_;
    bool ended_ = false;  // the last field has been taken
};

void ReadRule(std::wstring_view record, Rule& rule) {
    RecordReader reader(record);
    VisitRecord(rule, reader);
    SetLegacyArchiveKind(rule);
}

}  // namespace

std::string ExchangeText(std::span<const Rule> rules, const platform::CodePage& codePage) {
    std::string text;
    std::wstring record;
    for (const Rule& rule : rules) {
        record.clear();
        RecordWriter writer(record);
        VisitRecord(rule, writer);
        record += recordEnd;
        text += codePage.ToAnsi(record);
    }
    return text;
}

ExchangedRules ParseExchangeText(std::string_view text, const platform::CodePage& codePage) {
    text = text.substr(0, text.find('\0'));
    ExchangedRules exchanged;
    std::vector<std::string_view> records;
    for (size_t end = text.find(recordEndBytes); end != std::string_view::npos; end = text.find(recordEndBytes)) {
        const std::string_view record = text.substr(0, end);
        text.remove_prefix(end + recordEndBytes.size());
        const auto separators = std::count(record.begin(), record.end(), fieldEndByte);
        if (separators > 0) exchanged.anyRecord = true;
        if (separators + 1 >= fewestFields) records.push_back(record);
    }
    exchanged.rules.reserve(records.size());
    for (const std::string_view record : records) ReadRule(codePage.ToWide(record), exchanged.rules.emplace_back());
    return exchanged;
}

}  // namespace config
