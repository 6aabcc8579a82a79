#include "tests/model/Configuration.h"

#include <sstream>

namespace tests::model {
namespace {

std::wstring RandomText(Dice& dice) {
    static const Texts words{L"",         L"0",      L"report",       L"Encrypt mail",  L"reports in", L"p7s",
                             L"C:\\Data", L"C:\\In", L"\x0436\x0416", L"\x00E4nderung", L"%d",         L"a \"b\""};
    return dice.Pick(words);
}

Texts RandomList(Dice& dice, const Texts& words, size_t most) {
    Texts list(dice.Below(most + 1));
    for (std::wstring& entry : list) entry = dice.Pick(words);
    return list;
}

void PutNumbered(Dice& dice, Values& key, const wchar_t* count, const std::wstring& name, const Texts& entries) {
    key[count] = static_cast<int32_t>(entries.size());
    for (size_t i = 0; i < entries.size(); ++i)
        if (!dice.Chance(5)) key[name + std::to_wstring(i)] = entries[i];
}

void PutRule(Dice& dice, const std::wstring& path, Tree& tree) {
    static const Texts people{L"CN=Anna", L"CN=Boris, O=Bank", L"Bank", L"CN=\x0416"};
    Values& key = tree.Key(path);
    for (const auto& [name, text] : Rule().text)
        if (dice.Chance(60)) key[name] = RandomText(dice);
    for (const auto& [name, number] : Rule().number)
        if (dice.Chance(60)) key[name] = static_cast<int32_t>(dice.Below(3));
    if (dice.Chance(80)) key[L"ZCSProfile"] = dice.Pick(Texts{L"Office", L"Bank", L"Tax", L"Gone", L"0"});
    if (dice.Chance(50)) key[L"ResignProfile"] = dice.Pick(Texts{L"Office", L"Bank", L"Tax", L"Gone"});
    key[L"Operation"] =
        dice.Chance(15) ? L"" : std::wstring(OperationNames[dice.Below(std::size(OperationNames))].code);
    if (dice.Chance(20)) {
        key[L"Mask"] = L"*.old";
    } else {
        PutNumbered(dice, key, L"Mask num", L"M", RandomList(dice, {L"*.txt", L"*.TXT", L"*.p7s", L"*"}, 3));
    }
    if (dice.Chance(40)) PutNumbered(dice, key, L"Ext num", L"C", RandomList(dice, people, 3));
    for (const wchar_t* list : {L"chiefs", L"Clerks"})
        if (dice.Chance(20))
            PutNumbered(dice, tree.Key(path + L"\\" + list), L"Signer Num", L"S", RandomList(dice, people, 3));
}

// Beside the names of the CS profiles, mostly as many.
void PutStoreProfileSettings(Dice& dice, Values& key) {
    const size_t stores = std::get<Texts>(key.at(L"ZCSProfile")).size();
    for (const wchar_t* list : {L"NotUseLDAP", L"NotCopyToLocal", L"AutoUseTSP", L"AutoVerifyTSP", L"NoTSPisError",
                                L"UseAIA", L"NotAddCert", L"NotLoadCrl", L"ServerTSP", L"CrlUpdatePeriod"}) {
        if (dice.Chance(10)) continue;
        Texts entries(dice.Chance(70) ? stores : dice.Below(5));
        for (std::wstring& entry : entries) entry = dice.Pick(Texts{L"0", L"0", L"1", L"1", L"2"});
        if (list == std::wstring(L"ServerTSP"))
            for (std::wstring& entry : entries) entry = dice.Pick(Texts{L"0", L"http://tsp", L"tsp 2"});
        if (list == std::wstring(L"CrlUpdatePeriod"))
            for (std::wstring& entry : entries) entry = std::to_wstring(dice.Below(8761));
        key[list] = entries;
    }
}

void PutProfile(Dice& dice, const std::wstring& name, Tree& tree) {
    const size_t stores = dice.Chance(40) ? 3 : dice.Below(4);
    Values& key = tree.Key(name);
    if (dice.Chance(30)) key[L"Unknown"] = L"stays";
    Texts csProfiles{L"Office", L"Bank", L"Tax"};
    csProfiles.resize(stores);
    if (dice.Chance(30) && stores > 0) csProfiles.back() = dice.Pick(Texts{L"Gone", L"TAX", L"office"});
    key[L"ZCSProfile"] = csProfiles;
    PutStoreProfileSettings(dice, key);
    for (const wchar_t* number :
         {L"Verify File", L"Verify x file", L"Verify det file", L"Verify resign file", L"Rename conf files"})
        if (dice.Chance(70)) key[number] = static_cast<int32_t>(dice.Below(3));
    if (dice.Chance(70)) key[L"Handler timeout"] = static_cast<int32_t>(dice.Below(20));
    tree.Key(name + L"\\rules");
    const size_t rules = dice.Chance(15) ? 9 + dice.Below(5) : dice.Below(6);
    const size_t first = dice.Chance(20) ? 9 : dice.Below(4);
    for (size_t i = 0; i < rules; ++i)
        if (!dice.Chance(10)) PutRule(dice, name + L"\\rules\\Rule " + std::to_wstring(first + i), tree);
}

}  // namespace

const std::vector<std::pair<std::wstring, std::wstring>>& StoreProfileFolders() {
    static const std::vector<std::pair<std::wstring, std::wstring>> folders{
        {L"Office", L"C:\\Keys"}, {L"Bank", L"C:\\Bank"}, {L"Tax", L"C:\\Tax"}, {L"Bank", L"D:\\Bank"}};
    return folders;
}

bool IsOneOf(const std::wstring& word, const wchar_t* words) {
    std::wistringstream stream(words);
    for (std::wstring one; stream >> one;)
        if (one == word) return true;
    return false;
}

Tree RandomTree(Dice& dice) {
    Tree tree;
    Values& root = tree.Key(L"");
    if (dice.Chance(50)) root[L"SigExt"] = L"sig";
    if (dice.Chance(20)) root[L"EncExt"] = L"";
    if (dice.Chance(50)) root[L"ExtExt"] = Texts{L"xml", L"DOC", L"edi"};
    if (dice.Chance(50)) root[L"LogPath"] = L"C:\\Logs";
    if (dice.Chance(50)) root[L"Log filesize"] = static_cast<int32_t>(dice.Below(10'000));
    // No profile's revocation lists are due as long as a walk lasts: the editor would note the time.
    Texts& fresh = std::get<Texts>(root[L"LastCrlUpdate"] = Texts());
    for (const wchar_t* name : {L"", L"Office", L"office", L"Bank", L"Tax", L"TAX", L"Gone"})
        fresh.push_back(name + std::wstring(L";;2147483647"));
    for (const wchar_t* name : {L"Alpha", L"beta", L"Gamma"})
        if (dice.Chance(70)) PutProfile(dice, name, tree);
    return tree;
}

}  // namespace tests::model
