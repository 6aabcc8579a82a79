// The table of operations, looked up in every direction.
#include "config/Operations.h"

#include <gtest/gtest.h>

#include <string_view>

#include "tests/config/OperationNames.h"

namespace {

using config::OperationIndex;
using config::Operations;
using tests::OperationNames;

TEST(Operations, StandInTheOrderInWhichTheyAreOffered) {
    ASSERT_EQ(Operations().size(), std::size(OperationNames));
    for (size_t i = 0; i < std::size(OperationNames); ++i) {
        EXPECT_EQ(Operations()[i].code, OperationNames[i].code);
        EXPECT_EQ(Operations()[i].displayName, OperationNames[i].name);
    }
}

TEST(Operations, EveryCodeHasItsIndex) {
    for (size_t i = 0; i < std::size(OperationNames); ++i) EXPECT_EQ(OperationIndex(OperationNames[i].code), i);
}

TEST(Operations, UnknownCodesHaveNone) {
    for (const std::wstring_view code : {L"", L"encr", L"Encr", L"ENC", L"ENCR ", L" ENCR", L"ENCRX", L"Encrypt"})
        EXPECT_EQ(OperationIndex(code), std::nullopt) << testing::PrintToString(code);
}

}  // namespace
