#include "crypto/NameList.h"

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <unordered_map>

namespace {

using crypto::NameList;

TEST(NameListTest, KeepsTheFirstOfEqualNamesInTheOrderOfAdding) {
    NameList names;
    EXPECT_TRUE(names.Add(L"CN=Beta"));
    EXPECT_TRUE(names.Add(L"CN=Alpha"));
    EXPECT_FALSE(names.Add(L"CN=Beta"));
    EXPECT_TRUE(names.Add(L"CN=BETA"));
    ASSERT_EQ(names.Size(), 3U);
    EXPECT_EQ(names[0], L"CN=Beta");
    EXPECT_EQ(names[1], L"CN=Alpha");
    EXPECT_EQ(names[2], L"CN=BETA");
}

TEST(NameListTest, FindsRowsByTheWholeName) {
    NameList names;
    EXPECT_FALSE(names.Contains(L"CN=A"));
    names.Add(L"CN=A");
    names.Add(L"CN=AB");
    EXPECT_EQ(names.Find(L"CN=A"), 0U);
    EXPECT_EQ(names.Find(L"CN=AB"), 1U);
    EXPECT_EQ(names.Find(L"CN="), std::nullopt);
    EXPECT_FALSE(names.Contains(L"cn=a"));
}

TEST(NameListTest, TheEmptyNameAndZeroCharactersAreNamesToo) {
    NameList names;
    EXPECT_TRUE(names.Add(L""));
    EXPECT_FALSE(names.Add(L""));
    EXPECT_TRUE(names.Add(std::wstring_view(L"a\0b", 3)));
    EXPECT_TRUE(names.Add(std::wstring_view(L"a\0c", 3)));
    EXPECT_TRUE(names.Add(L"a"));
    EXPECT_EQ(names.Size(), 4U);
}

TEST(NameListTest, ANameLongerThanABlockIsKeptWhole) {
    NameList names;
    const std::wstring longName(300000, L'x');
    names.Add(L"before");
    EXPECT_TRUE(names.Add(longName));
    EXPECT_TRUE(names.Add(L"after"));
    EXPECT_FALSE(names.Add(longName));
    EXPECT_EQ(names[0], L"before");
    EXPECT_EQ(names[1], longName);
    EXPECT_EQ(names[2], L"after");
}

TEST(NameListTest, ClearForgetsEverythingAndNamesCanBeAddedAgain) {
    NameList names;
    names.Add(L"CN=A");
    names.Clear();
    EXPECT_TRUE(names.IsEmpty());
    EXPECT_FALSE(names.Contains(L"CN=A"));
    EXPECT_TRUE(names.Add(L"CN=A"));
    EXPECT_EQ(names.Size(), 1U);
}

TEST(NameListTest, MovingTakesTheNamesAlongAndLeavesAnEmptyList) {
    NameList names;
    names.Add(L"CN=A");
    NameList moved = std::move(names);
    EXPECT_EQ(moved[0], L"CN=A");
    EXPECT_FALSE(moved.Add(L"CN=A"));
    EXPECT_TRUE(names.IsEmpty());
    EXPECT_TRUE(names.Add(L"CN=A"));
}

TEST(NameListTest, AgreesWithAnUnorderedMapOverManyNames) {
    std::mt19937 random(20);
    NameList names;
    std::unordered_map<std::wstring, size_t> rows;
    for (int i = 0; i < 20000; ++i) {
        const std::wstring name = L"CN=" + std::to_wstring(random() % 8000) + std::wstring(random() % 3, L'-');
        const auto [known, isNew] = rows.emplace(name, names.Size());
        if (i % 2 == 0) {
            ASSERT_EQ(names.Add(name), isNew);
        } else {
            ASSERT_EQ(names.RowOf(name), known->second);
        }
    }
    ASSERT_EQ(names.Size(), rows.size());
    for (const auto& [name, row] : rows) {
        ASSERT_EQ(names.Find(name), row);
        ASSERT_EQ(names[row], name);
    }
}

}  // namespace
