#include "certs/PickerNames.h"

#include <gtest/gtest.h>

#include <random>

#include "text/Case.h"

namespace {

using certs::Candidates;
using Names = std::vector<std::wstring>;

class CandidatesTest : public ::testing::Test {
  protected:
    void Add(const Names& names) {
        for (const std::wstring& name : names) candidates_.Add(name);
    }
    Names Shown(std::wstring_view filter = {}) {
        Names shown;
        for (const certs::NameId id : candidates_.Listed(filter)) shown.emplace_back(candidates_.Names()[id]);
        return shown;
    }
    Candidates candidates_;
};

TEST_F(CandidatesTest, AreShownOnceInTheOrderInWhichTheyCame) {
    Add({L"CN=B", L"CN=A", L"CN=B", L"cn=b"});
    EXPECT_EQ(Shown(), (Names{L"CN=B", L"CN=A", L"cn=b"}));
}

TEST_F(CandidatesTest, AFilterTextMayStandAnywhereInAnyCase) {
    Add({L"CN=IVANOV", L"CN=Petrov,O=Ivan & Sons", L"CN=Sidorov", L"IVA", L"N"});
    EXPECT_EQ(Shown(L"ivan"), (Names{L"CN=IVANOV", L"CN=Petrov,O=Ivan & Sons"}));
    EXPECT_EQ(Shown(L"OV"), (Names{L"CN=IVANOV", L"CN=Petrov,O=Ivan & Sons", L"CN=Sidorov"}));
    EXPECT_EQ(Shown(L"N"), (Names{L"CN=IVANOV", L"CN=Petrov,O=Ivan & Sons", L"CN=Sidorov", L"N"}));
    EXPECT_EQ(Shown(L"x"), Names{});
    EXPECT_EQ(Shown(L" "), Names{L"CN=Petrov,O=Ivan & Sons"});
}

TEST_F(CandidatesTest, OtherAlphabetsAreFilteredToo) {
    Add({L"CN=\x0418\x0432\x0430\x043D", L"CN=\x00DC\x00F6", L"CN=\xFF41"});
    EXPECT_EQ(Shown(L"\x0438\x0412"), Names{L"CN=\x0418\x0432\x0430\x043D"});
    EXPECT_EQ(Shown(L"\x00FC\x00D6"), Names{L"CN=\x00DC\x00F6"});
    EXPECT_EQ(Shown(L"\xFF21"), Names{L"CN=\xFF41"});
}

TEST_F(CandidatesTest, EmptyNamesAreKeptAndNeverShown) {
    Add({L"", L"CN=A"});
    EXPECT_EQ(Shown(), Names{L"CN=A"});
    EXPECT_EQ(candidates_.Names().Size(), 2U);
}

TEST_F(CandidatesTest, AFilterFindsNamesThatCameLaterAsWell) {
    Add({L"CN=A1"});
    EXPECT_EQ(Shown(L"a"), Names{L"CN=A1"});
    Add({L"CN=B", L""});
    EXPECT_EQ(Shown(L"a"), Names{L"CN=A1"});
    Add({L"CN=A2", L"CN=A1"});
    EXPECT_EQ(Shown(L"a"), (Names{L"CN=A1", L"CN=A2"}));
    EXPECT_EQ(Shown(L"b"), Names{L"CN=B"});
    EXPECT_EQ(Shown(), (Names{L"CN=A1", L"CN=B", L"CN=A2"}));
}

TEST_F(CandidatesTest, ClearingForgetsTheNamesForTheFilterToo) {
    Add({L"CN=A"});
    EXPECT_EQ(Shown(L"a"), Names{L"CN=A"});
    candidates_.Clear();
    EXPECT_EQ(Shown(), Names{});
    EXPECT_EQ(Shown(L"a"), Names{});
    Add({L"CN=B", L"CN=A"});
    EXPECT_EQ(Shown(L"a"), Names{L"CN=A"});
}

TEST_F(CandidatesTest, AgreeWithASearchInEachName) {
    std::mt19937 random(3);
    const std::wstring_view letters = L"aAbB=,\x0436\x0416";
    Names names;
    for (int i = 0; i < 500; ++i) {
        std::wstring name(random() % 12, L' ');
        for (wchar_t& unit : name) unit = letters[random() % letters.size()];
        if (std::find(names.begin(), names.end(), name) == names.end()) names.push_back(name);
    }
    for (size_t i = 0; i < names.size(); ++i) {
        candidates_.Add(names[i]);
        if (i % 50 == 0) Shown();
    }
    for (const std::wstring filter : {L"a", L"ab", L"\x0436=", L"aab", L",b=", L"zz"}) {
        Names expected;
        for (const std::wstring& name : names)
            if (text::Upper(name).find(text::Upper(filter)) != std::wstring::npos) expected.push_back(name);
        EXPECT_EQ(Shown(filter), expected) << testing::PrintToString(filter);
    }
}

}  // namespace
