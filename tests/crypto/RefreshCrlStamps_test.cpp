// Which stamp of a CS profile counts, and when it is too old.
#include "crypto/RefreshCrl.h"

#include <gtest/gtest.h>

#include <limits>

namespace {

using crypto::CrlStampSearch;
using crypto::FindCrlStamp;
using crypto::SetCrlStamp;
using Stamps = std::vector<std::wstring>;

constexpr int64_t tenOClock = 10 * 3600;

CrlStampSearch Find(const Stamps& stamps, int64_t now, int32_t hours = 1) {
    return FindCrlStamp(stamps, L"Office", hours, now);
}

TEST(CrlStampsTest, WholeMinutesDecide) {
    const Stamps stamps{L"Office;;" + std::to_wstring(tenOClock + 59)};
    EXPECT_FALSE(Find(stamps, tenOClock + 59).due);
    EXPECT_FALSE(Find(stamps, tenOClock + 3599).due);
    EXPECT_TRUE(Find(stamps, tenOClock + 3600).due);
    EXPECT_FALSE(Find(stamps, tenOClock + 8759 * 3600 + 3599, 8760).due);
    EXPECT_TRUE(Find(stamps, tenOClock + 8760 * 3600, 8760).due);
}

TEST(CrlStampsTest, OnlyStampsOfTheStoreProfileCount) {
    struct Case {
        Stamps stamps;
        bool due;
        std::optional<size_t> position;
    };
    const Case cases[] = {
        {{}, true, {}},
        {{L"Bank;;36000"}, true, {}},
        {{L"office;;36000"}, true, {}},
        {{L"Office"}, true, {}},
        {{L"Office;36000"}, true, {}},
        {{L" Office;;36000"}, true, {}},
        {{L"OfficeX;;36000", L";;36000"}, true, {}},
        {{L"Bank;;1", L"Office;;36000"}, false, 1},
        {{L"Office;;36000;;9"}, false, 0},
        {{L"Office;;9;;36000"}, true, 0},
        {{L"Office;;"}, true, 0},
        {{L"Office;;noon"}, true, 0},
        {{L"Office;; +36000x"}, false, 0},
        {{L"Office;;-36000"}, true, 0},
        {{L"Office;;;36000"}, true, 0},
    };
    for (const Case& c : cases) {
        const CrlStampSearch found = Find(c.stamps, tenOClock + 60);
        EXPECT_EQ(found.due, c.due) << testing::PrintToString(c.stamps);
        EXPECT_EQ(found.position, c.position) << testing::PrintToString(c.stamps);
    }
}

TEST(CrlStampsTest, OneYoungStampIsEnoughAndTheLastOneIsReplaced) {
    EXPECT_FALSE(Find({L"Office;;36000", L"Office;;1"}, tenOClock).due);
    EXPECT_FALSE(Find({L"Office;;1", L"Office;;36000"}, tenOClock).due);
    EXPECT_EQ(Find({L"Office;;36000", L"Office;;1", L"Bank;;1"}, tenOClock).position, 1U);
}

TEST(CrlStampsTest, AStoreProfileMayHaveNoName) {
    EXPECT_EQ(FindCrlStamp({L"Office;;1", L";;36000"}, L"", 1, tenOClock).position, 1U);
}

TEST(CrlStampsTest, NumbersBeyondTheirRangeAreTheNearestWithinIt) {
    constexpr int64_t farFuture = int64_t{1} << 40;
    EXPECT_TRUE(Find({L"Office;;99999999999999999999"}, farFuture).due);
    EXPECT_FALSE(Find({L"Office;;99999999999999999999"}, std::numeric_limits<int32_t>::max()).due);
    EXPECT_TRUE(Find({L"Office;;-99999999999999999999"}, 0).due);
    EXPECT_FALSE(Find({L"Office;;1"}, tenOClock, std::numeric_limits<int32_t>::max()).due);
    EXPECT_TRUE(Find({L"Office;;36000"}, tenOClock, std::numeric_limits<int32_t>::min()).due);
}

TEST(CrlStampsTest, AStampIsReplacedInItsPlaceOrAppended) {
    Stamps stamps{L"Bank;;1", L"Office;;2", L"House;;3"};
    SetCrlStamp(stamps, 1, L"Office", 1'700'000'000);
    EXPECT_EQ(stamps, (Stamps{L"Bank;;1", L"Office;;1700000000", L"House;;3"}));
    SetCrlStamp(stamps, std::nullopt, L"100%", int64_t{1} << 33);
    EXPECT_EQ(stamps, (Stamps{L"Bank;;1", L"Office;;1700000000", L"House;;3", L"100%;;8589934592"}));
}

}  // namespace
