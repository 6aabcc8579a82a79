// The table of operations, looked up in every direction.
#include "config/Operations.h"

#include <gtest/gtest.h>

#include <string_view>

namespace {

using config::OperationIndex;
using config::Operations;

struct Row {
    std::wstring_view code;
    std::wstring_view displayName;
};

constexpr Row rows[] = {
    {L"ENCR", L"Encrypt"},
    {L"DECR", L"Decrypt"},
    {L"HASH", L"Hash file"},
    {L"B64E", L"Encode b64"},
    {L"B64D", L"Decode b64"},
    {L"SIGN", L"Attached signature"},
    {L"CHCK", L"Verify attached signature"},
    {L"CHKX", L"Verify and delete attached signature"},
    {L"MOVE", L"Move"},
    {L"DELE", L"Delete"},
    {L"LENC", L"Encrypt long file"},
    {L"LDEC", L"Decrypt long file"},
    {L"CDSG", L"Create detached signature"},
    {L"DSIG", L"Add detached signature"},
    {L"DCHK", L"Verify detached signature"},
    {L"DELS", L"Delete signatures without verification"},
    {L"RESG", L"Resign"},
    {L"SGEN", L"Create attached signature and encrypt"},
    {L"DCCX", L"Decrypt, verify and delete attached signatures"},
    {L"ARCH", L"Archivate file"},
    {L"UNAR", L"Unarchivate file"},
    {L"PACK", L"Pack files"},
    {L"UNPK", L"Unpack files"},
    {L"EXEC", L"Execute"},
};

TEST(Operations, StandInTheOrderInWhichTheyAreOffered) {
    ASSERT_EQ(Operations().size(), std::size(rows));
    for (size_t i = 0; i < std::size(rows); ++i) {
        EXPECT_EQ(Operations()[i].code, rows[i].code);
        EXPECT_EQ(Operations()[i].displayName, rows[i].displayName);
    }
}

TEST(Operations, EveryCodeHasItsIndex) {
    for (size_t i = 0; i < std::size(rows); ++i) EXPECT_EQ(OperationIndex(rows[i].code), i);
}

TEST(Operations, UnknownCodesHaveNone) {
    for (const std::wstring_view code :
         {L"", L"encr", L"Encr", L"ENC", L"ENCR ", L" ENCR", L"ENCRX", L"Encrypt"})
        EXPECT_EQ(OperationIndex(code), std::nullopt) << testing::PrintToString(code);
}

}  // namespace
