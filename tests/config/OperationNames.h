// The operations as a user knows them: each code and its name, in the order in which they are offered.
#pragma once

#include <string_view>

namespace tests {

struct OperationName {
    std::wstring_view code;
    std::wstring_view name;
};

inline constexpr OperationName OperationNames[] = {
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

}  // namespace tests
