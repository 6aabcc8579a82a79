#include "text/Finder.h"

#include <gtest/gtest.h>

#include <random>
#include <string>

namespace {

template <class Unit>
std::basic_string<Unit> RandomText(std::mt19937& random, size_t longest) {
    std::basic_string<Unit> text(random() % (longest + 1), Unit{});
    for (Unit& unit : text) unit = static_cast<Unit>('A' + random() % 2);
    return text;
}

template <class Unit>
void CompareWithTheLibrary() {
    std::mt19937 random(11);
    for (int i = 0; i < 30'000; ++i) {
        const auto wanted = RandomText<Unit>(random, 5);
        const auto other = RandomText<Unit>(random, 20);
        const text::Finder<Unit> finder(wanted);
        ASSERT_EQ(finder.FindIn(other), other.find(wanted));
        ASSERT_EQ(finder.IsIn(other), other.find(wanted) != other.npos);
        ASSERT_EQ(finder.Length(), wanted.size());
    }
}

TEST(Finder, FindsTheFirstPlace) {
    CompareWithTheLibrary<wchar_t>();
    CompareWithTheLibrary<char16_t>();
}

TEST(Finder, TheEmptyTextIsEverywhere) {
    const text::Finder<wchar_t> nothing{std::wstring_view()};
    EXPECT_EQ(nothing.FindIn(L""), 0U);
    EXPECT_EQ(nothing.FindIn(L"abc"), 0U);
}

TEST(Finder, KeepsItsOwnCopyAndFindsZeros) {
    text::Finder<wchar_t> finder{std::wstring(L"b\0c", 3)};
    EXPECT_EQ(finder.FindIn(std::wstring_view(L"ab\0b\0c", 6)), 3U);
    EXPECT_FALSE(finder.IsIn(L"abc"));
}

}  // namespace
