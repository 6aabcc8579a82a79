#include "certs/NameRows.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

#include "certs/NameFields.h"

namespace {

using certs::NameRows;
using Names = std::vector<std::wstring>;

class NameRowsTest : public ::testing::Test {
  protected:
    void Show(const Names& names) {
        rows_.Show({});
        names_.Clear();
        std::vector<certs::NameId> ids;
        for (const std::wstring& name : names) {
            names_.Add(name);
            ids.push_back(static_cast<certs::NameId>(names_.Find(name).value()));
        }
        rows_.Show(ids);
    }
    std::vector<uint32_t> Sort(std::wstring_view fieldKey, bool descending) {
        std::vector<uint32_t> order = rows_.SortedOrder(fieldKey, descending);
        rows_.Show(rows_.InOrder(order));
        return order;
    }
    Names Shown() const {
        Names shown;
        for (size_t row = 0; row < rows_.Count(); ++row) shown.emplace_back(rows_.Text(row));
        return shown;
    }

    crypto::NameList names_;
    NameRows rows_{names_};
};

TEST_F(NameRowsTest, SortByTheFieldAndWhatFollowsIt) {
    Show({L"CN=C,O=1", L"CN=A,O=2", L"CN=B,O=1"});
    EXPECT_EQ(Sort(L"CN", false), (std::vector<uint32_t>{1, 2, 0}));
    EXPECT_EQ(Shown(), (Names{L"CN=A,O=2", L"CN=B,O=1", L"CN=C,O=1"}));
    EXPECT_EQ(Sort(L"O", true), (std::vector<uint32_t>{0, 1, 2}));
    Show({L"CN=A,O=1,C=B", L"CN=B,O=1,C=A"});
    Sort(L"O", false);
    EXPECT_EQ(Shown(), (Names{L"CN=B,O=1,C=A", L"CN=A,O=1,C=B"}));
}

TEST_F(NameRowsTest, ThoseWithoutTheFieldComeFirstAndDescendingLast) {
    Show({L"CN=B,O=2", L"CN=X", L"CN=A,O=1"});
    Sort(L"O", false);
    EXPECT_EQ(Shown(), (Names{L"CN=X", L"CN=A,O=1", L"CN=B,O=2"}));
    Sort(L"O", true);
    EXPECT_EQ(Shown(), (Names{L"CN=B,O=2", L"CN=A,O=1", L"CN=X"}));
}

TEST_F(NameRowsTest, EqualKeysKeepTheirOrderInBothDirections) {
    const Names names{L"CN=C", L"CN=A", L"CN=B,O=1", L"CN=D,O=1"};
    Show(names);
    Sort(L"O", false);
    EXPECT_EQ(Shown(), names);
    Show(names);
    Sort(L"O", true);
    EXPECT_EQ(Shown(), (Names{L"CN=B,O=1", L"CN=D,O=1", L"CN=C", L"CN=A"}));
}

TEST_F(NameRowsTest, CharacterCodesDecide) {
    Show({L"CN=a", L"CN=B", L"CN=\x0416", L"CN=", L"CN=Ba", L"CN=\x00C4", L"CN=\xFF21"});
    Sort(L"CN", false);
    EXPECT_EQ(Shown(), (Names{L"CN=", L"CN=B", L"CN=Ba", L"CN=a", L"CN=\x00C4", L"CN=\x0416", L"CN=\xFF21"}));
}

TEST_F(NameRowsTest, ABeginningThatAllShareDoesNotMatter) {
    Show({L"CN=AAAAAAAAB", L"CN=AAAAAAAA", L"CN=AAAAAAAABBBBC", L"O=x", L"CN=AAAAAAAABBBBB", L"CN=AAAAAAAA,O=x"});
    Sort(L"CN", false);
    EXPECT_EQ(Shown(), (Names{L"O=x", L"CN=AAAAAAAA", L"CN=AAAAAAAA,O=x", L"CN=AAAAAAAAB", L"CN=AAAAAAAABBBBB",
                              L"CN=AAAAAAAABBBBC"}));
}

TEST_F(NameRowsTest, AgreeWithAStableSortOfTheKeys) {
    std::mt19937 random(5);
    for (int round = 0; round < 300; ++round) {
        const bool descending = round % 2 == 1;
        Names names(random() % 40);
        for (std::wstring& name : names) {
            name = random() % 4 == 0 ? L"CN=x,O=" : L"O=";
            for (size_t i = random() % 8; i > 0; --i) name += L"ab\0\xFFFF"[random() % 4];
            if (random() % 5 == 0) name = L"CN=" + std::to_wstring(random() % 9);
        }
        Show(names);
        std::stable_sort(names.begin(), names.end(), [descending](const auto& a, const auto& b) {
            return descending ? certs::SortKey(b, L"O") < certs::SortKey(a, L"O")
                              : certs::SortKey(a, L"O") < certs::SortKey(b, L"O");
        });
        Sort(L"O", descending);
        ASSERT_EQ(Shown(), names);
    }
}

TEST_F(NameRowsTest, CheckedAndOtherRowsComeInTheirOrder) {
    Show({L"CN=C", L"CN=A", L"CN=B"});
    Sort(L"CN", false);
    EXPECT_EQ(rows_.Checked({true, false, true}), (std::vector<certs::NameId>{1, 0}));
    EXPECT_EQ(rows_.Checked({true, false, true}, false), std::vector<certs::NameId>{2});
}

}  // namespace
