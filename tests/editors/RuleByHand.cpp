#include "tests/editors/RuleByHand.h"

#include <map>

#include "editors/MaskList.h"

namespace tests {
namespace {

using config::Rule;
using Fill = std::function<void(Rule&)>;

// What a rule holds besides folders, description and masks, for the operations that hold more. Whatever is
// not named here stays empty.
const std::map<std::wstring, Fill>& OwnFields() {
    static const Fill recipients = [](Rule& r) { r.Certificates = {L"CN=Anna", L"CN=Boris"}; };
    static const Fill signers = [](Rule& r) {
        r.SignerLists = {{L"chiefs", {L"CN=Dora"}}, {L"clerks", {L"CN=Egon", L"CN=Fritz"}}};
    };
    static const Fill zip = [](Rule& r) { r.ZipFile = 1; };
    static const Fill gzip = [](Rule& r) { r.ZipFile = 2; };
    static const auto both = [](const Fill& a, const Fill& b) {
        return [&a, &b](Rule& r) {
            a(r);
            b(r);
        };
    };
    static const std::map<std::wstring, Fill> fields{
        {L"ENCR", both(recipients, gzip)},
        {L"DECR", zip},
        {L"CHCK", signers},
        {L"CHKX", signers},
        {L"MOVE",
         [](Rule& r) {
             r.PathOut2 = L"C:\\Second";
             r.DelExt = L"del";
             r.AddExt = L"add";
             r.Folders = L"%d";
             r.Copyfolders = L"%c";
         }},
        {L"DELE", [](Rule& r) { r.PathOut = L""; }},
        {L"LENC", recipients},
        {L"LDEC", gzip},
        {L"DCHK", signers},
        {L"RESG",
         [](Rule& r) {
             signers(r);
             r.InFormatDet = 1;
             r.OutFormatDet = 1;
             r.ResignProfile = L"Tax";
         }},
        {L"SGEN", both(recipients, zip)},
        {L"DCCX", both(signers, gzip)},
        {L"ARCH", zip},
        {L"UNAR", gzip},
        {L"PACK",
         [](Rule& r) {
             r.ArchCount = 11;
             r.ArchSize = 22;
             r.ArchTimeout = 2147483647;
             r.ArchName = L"archive";
         }},
        {L"EXEC",
         [](Rule& r) {
             r.ExecName = L"run.exe";
             r.ExecTimeout = 44;
         }},
    };
    return fields;
}

}  // namespace

config::Rule RuleByHandTest::Expected(const std::wstring& code) {
    Rule rule = PlainRule(code);
    const std::wstring without = L"MOVE DELE B64E B64D ARCH UNAR PACK UNPK EXEC";
    if (without.find(code) != std::wstring::npos) rule.ZCSProfile = L"";
    rule.IsOn = 1;
    if (const auto own = OwnFields().find(code); own != OwnFields().end()) own->second(rule);
    return rule;
}

void RuleByHandTest::PutIn(const Rule& rule) {
    ChooseOperation(rule.Operation);
    PutInIfUsable(ruleid::CsProfile, 1);
    user_.Type(ruleid::Description, rule.Descryption);
    user_.Type(ruleid::PathIn, rule.PathIn);
    if (user_.CanUse(ruleid::PathOut)) user_.Type(ruleid::PathOut, rule.PathOut);
    user_.Type(ruleid::PathError, rule.PathError);
    PutInAction(rule);
    for (const std::wstring& mask : rule.Masks) PutInMask(mask);
    const bool resigns = rule.Operation == L"RESG";
    const bool always = rule.Operation == L"ARCH" || rule.Operation == L"UNAR";
    PutInIfUsable(ruleid::ListA, rule.InFormatDet);
    PutInIfUsable(ruleid::ListB, resigns ? rule.OutFormatDet : always ? rule.ZipFile - 1 : rule.ZipFile);
    PutInIfUsable(ruleid::ListC, 2);
    PutInIfUsable(ruleid::TextA, rule.DelExt);
    PutInIfUsable(ruleid::TextB, rule.AddExt);
    PutInIfUsable(ruleid::TextC, rule.Folders);
    PutInIfUsable(ruleid::TextD, rule.Operation == L"PACK" ? rule.ArchName : rule.Copyfolders);
    PutInIfUsable(ruleid::NumberA, std::to_wstring(rule.ArchCount + rule.ExecTimeout));
    PutInIfUsable(ruleid::NumberB, std::to_wstring(rule.ArchSize));
    PutInIfUsable(ruleid::NumberC, std::to_wstring(rule.ArchTimeout));
}

void RuleByHandTest::PutInIfUsable(int list, int choice) {
    if (user_.CanUse(list)) user_.Choose(list, choice);
}

void RuleByHandTest::PutInIfUsable(int edit, std::wstring_view text) {
    if (user_.CanUse(edit)) user_.Type(edit, text);
}

void RuleByHandTest::PutInAction(const Rule& rule) {
    certificates_.recipients = rule.Certificates;
    certificates_.signerLists = rule.SignerLists;
    const std::wstring_view path = rule.PathOut2.empty() ? rule.ExecName : rule.PathOut2;
    if (!path.empty()) {
        user_.Type(ruleid::ActionField, path);
    } else if (user_.CanUse(ruleid::ActionButton)) {
        user_.Click(ruleid::ActionButton);
    }
}

void RuleByHandTest::PutInMask(const std::wstring& mask) {
    user_.Expect<editors::AddMask>([this, mask](editors::AddMask&) {
        user_.Type(ruleid::MaskCombo, mask);
        user_.Click(ui::IdOk);
    });
    user_.Click(ruleid::AddMask);
}

}  // namespace tests
