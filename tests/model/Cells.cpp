// How the model shows a rule in the list.
#include "tests/model/Model.h"

namespace tests::model {
namespace {

std::wstring OperationName(const Rule& rule) {
    if (rule.text.at(L"Path Out") == L"0") return L"";
    for (const auto& [code, name] : OperationNames)
        if (code == rule.Operation()) return std::wstring(name);
    return rule.Operation();
}

class Extra {
  public:
    explicit Extra(const Rule& rule) : rule_(rule) {}

    std::wstring Text() {
        if (rule_.Is(L"MOVE")) {
            for (const wchar_t* name : {L"Path Out 2", L"DelExt", L"AddExt", L"Folders", L"Copyfolders"})
                Append(rule_.text.at(name));
            return text_;
        }
        if (rule_.Is(L"RESG")) return Resign();
        const bool signers = IsOneOf(rule_.Operation(), L"CHCK CHKX DCHK DCCX");
        AppendNumber(static_cast<int32_t>(signers ? rule_.signerLists.size() : rule_.recipients.size()));
        Tail();
        return text_;
    }

  private:
    void Append(const std::wstring& part) {
        if (!part.empty()) text_ += (text_.empty() ? L"" : L"; ") + part;
    }
    void AppendNumber(int32_t number) {
        if (number > 0) Append(std::to_wstring(number));
    }
    std::wstring Resign() const {
        const auto kind = [this](const wchar_t* name) -> std::wstring {
            return rule_.number.at(name) != 0 ? L"Detached signature" : L"Attached signature";
        };
        const size_t lists = rule_.signerLists.size();
        return (lists > 0 ? std::to_wstring(lists) + L"; " : L"") + rule_.text.at(L"ResignProfile") + L"; " +
               kind(L"In format det") + L"->" + kind(L"Out format det");
    }
    void Tail() {
        const int32_t archive = rule_.number.at(L"ZipFile");
        if (archive != 0) {
            if (!rule_.recipients.empty() || !rule_.signerLists.empty()) text_ += L"; ";
            if (archive == 1) text_ += L"ZIP archivation";
            if (archive == 2) text_ += L"GZIP archivation";
        }
        if (rule_.Is(L"PACK")) {
            for (const wchar_t* name : {L"ArchCount", L"ArchSize", L"ArchTimeout"}) AppendNumber(rule_.number.at(name));
            Append(rule_.text.at(L"ArchName"));
        }
        if (rule_.Is(L"EXEC")) {
            text_ += (text_.empty() ? L"" : L"; ") + rule_.text.at(L"ExecName");
            const int32_t timeout = rule_.number.at(L"ExecTimeout");
            if (timeout > 0) text_ += L"; " + std::to_wstring(timeout);
        }
    }

    const Rule& rule_;
    std::wstring text_;
};

}  // namespace

Texts Cells(const Rule& rule, size_t position) {
    const bool noStoreProfile = rule.text.at(L"ZCSProfile") == L"0";
    return {std::to_wstring(position + 1),
            rule.text.at(L"Descryption"),
            OperationName(rule),
            rule.text.at(L"Path In"),
            rule.text.at(L"Path Out"),
            noStoreProfile ? L"" : rule.text.at(L"Path Error"),
            rule.masks.size() == 1 ? rule.masks[0] : std::to_wstring(rule.masks.size()),
            rule.text.at(L"ZCSProfile"),
            Extra(rule).Text()};
}

}  // namespace tests::model
