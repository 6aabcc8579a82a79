#include "text/CompactText.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>

namespace tests {
namespace {

using text::CompactText;

TEST(CompactText, HoldsWhatItIsGiven) {
    const std::wstring zeros(L"a\0b\0", 4);
    for (const std::wstring& text : {std::wstring(), std::wstring(L"x"), std::wstring(600, L'y'), zeros}) {
        const CompactText compact(text);
        EXPECT_EQ(std::wstring_view(compact), text);
        EXPECT_EQ(compact.empty(), text.empty());
    }
    EXPECT_TRUE(CompactText().empty());
    EXPECT_EQ(CompactText(L"literal"), std::wstring(L"literal"));
}

TEST(CompactText, ACopyStandsForItself) {
    CompactText original(L"before");
    CompactText copy(original);
    original = L"after";
    EXPECT_EQ(copy, L"before");
    EXPECT_EQ(original, L"after");

    copy = original;
    original.clear();
    EXPECT_EQ(copy, L"after");
    EXPECT_TRUE(original.empty());
    EXPECT_EQ(original, L"");
}

TEST(CompactText, IsMovedWithoutBeingCopied) {
    CompactText original(L"some text");
    const wchar_t* const units = std::wstring_view(original).data();
    CompactText moved(std::move(original));
    EXPECT_EQ(std::wstring_view(moved).data(), units);
    CompactText assigned(L"other");
    assigned = std::move(moved);
    EXPECT_EQ(std::wstring_view(assigned).data(), units);
}

TEST(CompactText, IsAssignedToItselfOrToAPartOfItself) {
    CompactText compact(L"whole text");
    const CompactText& same = compact;
    compact = same;
    EXPECT_EQ(compact, L"whole text");
    compact = std::wstring_view(compact).substr(6);
    EXPECT_EQ(compact, L"text");
}

TEST(CompactText, ComparesLikeAnyText) {
    const CompactText compact(L"text");
    EXPECT_TRUE(compact == CompactText(L"text"));
    EXPECT_FALSE(compact == CompactText(L"texts"));
    EXPECT_FALSE(compact == CompactText(L"next"));
    EXPECT_TRUE(compact != CompactText());
    EXPECT_TRUE(CompactText() == CompactText(L""));
    EXPECT_TRUE(compact == std::wstring(L"text"));
    EXPECT_TRUE(std::wstring_view(L"tex") != compact);
}

// What it is for: thousands of records consist of such texts.
TEST(CompactText, TakesAPointerInARecord) {
    EXPECT_EQ(sizeof(CompactText), sizeof(void*));
}

}  // namespace
}  // namespace tests
