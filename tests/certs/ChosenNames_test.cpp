#include "certs/PickerNames.h"

#include <gtest/gtest.h>

namespace {

using certs::ChosenNames;
using config::SignerListEntry;
using Names = std::vector<std::wstring>;

Names Chosen(const ChosenNames& chosen) {
    Names names;
    for (const certs::NameId id : chosen.Listed()) names.emplace_back(chosen.Names()[id]);
    return names;
}

certs::NameId IdOf(const ChosenNames& chosen, std::wstring_view name) {
    return static_cast<certs::NameId>(chosen.Names().Find(name).value());
}

TEST(ChosenNames, BeginWithTheNamesGivenAndShowNoEmptyOnes) {
    EXPECT_EQ(Chosen(ChosenNames({L"CN=B", L"", L"CN=A", L"CN=B"})), (Names{L"CN=B", L"CN=A", L"CN=B"}));
    EXPECT_EQ(Chosen(ChosenNames({})), Names{});
}

TEST(ChosenNames, TakeANameOnlyOnce) {
    ChosenNames chosen({L"CN=B"});
    for (const wchar_t* name : {L"CN=A", L"CN=B", L"CN=b", L"CN=A"}) chosen.Add(name);
    EXPECT_EQ(Chosen(chosen), (Names{L"CN=B", L"CN=A", L"CN=b"}));
}

TEST(ChosenNames, LoseEveryEqualNameAndMayTakeItAgain) {
    ChosenNames chosen({L"CN=A", L"CN=B", L"CN=A", L"CN=C"});
    chosen.RemoveEvery({IdOf(chosen, L"CN=A")});
    EXPECT_EQ(Chosen(chosen), (Names{L"CN=B", L"CN=C"}));
    chosen.RemoveEvery({});
    chosen.Add(L"CN=A");
    EXPECT_EQ(Chosen(chosen), (Names{L"CN=B", L"CN=C", L"CN=A"}));
}

TEST(ChosenNames, LoseTheSignersOfOtherLists) {
    ChosenNames chosen({L"CN=A", L"CN=B", L"CN=C", L"CN=D"});
    const std::vector<SignerListEntry> lists{
        {L"first", {L"CN=C", L"CN=X", L"CN=A"}}, {L"own", {L"CN=B"}}, {L"last", {L"CN=A", L"CN=D"}}};
    EXPECT_EQ(chosen.ExcludeSignersOf(lists, L"own"),
              L"Signer\r\n\"CN=C\"\r\nis used in list\r\n\"first\"\r\n\r\n"
              L"Signer\r\n\"CN=A\"\r\nis used in list\r\n\"first\"\r\n\r\n"
              L"Signer\r\n\"CN=D\"\r\nis used in list\r\n\"last\"\r\n\r\n");
    EXPECT_EQ(Chosen(chosen), Names{L"CN=B"});
    EXPECT_EQ(chosen.ExcludeSignersOf(lists, L"own"), L"");
}

TEST(ChosenNames, EachOfEqualNamesIsRemovedAndTold) {
    ChosenNames chosen({L"CN=A", L"CN=B", L"CN=A"});
    const std::wstring told = L"Signer\r\n\"CN=A\"\r\nis used in list\r\n\"x\"\r\n\r\n";
    EXPECT_EQ(chosen.ExcludeSignersOf({{L"x", {L"CN=A"}}}, L""), told + told);
    EXPECT_EQ(Chosen(chosen), Names{L"CN=B"});
}

TEST(ChosenNames, NamesAreComparedExactly) {
    ChosenNames chosen({L"CN=A"});
    EXPECT_EQ(chosen.ExcludeSignersOf({{L"x", {L"cn=a"}}, {L"OWN", {L"CN=B"}}}, L"own"), L"");
    EXPECT_EQ(Chosen(chosen), Names{L"CN=A"});
    EXPECT_EQ(chosen.ExcludeSignersOf({}, L"own"), L"");
    EXPECT_NE(chosen.ExcludeSignersOf({{L"OWN", {L"CN=A"}}}, L"own"), L"");
}

TEST(ChosenNames, PerCentSignsInNamesStayAsTheyAre) {
    ChosenNames chosen({L"CN=100%s"});
    EXPECT_EQ(chosen.ExcludeSignersOf({{L"%d", {L"CN=100%s"}}}, L""),
              L"Signer\r\n\"CN=100%s\"\r\nis used in list\r\n\"%d\"\r\n\r\n");
}

}  // namespace
