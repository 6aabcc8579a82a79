#include "config/Operations.h"

#include <algorithm>

namespace config {
namespace {

constexpr std::array<Operation, 24> operations{{
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
}};

}  // namespace

std::span<const Operation> Operations() {
    return operations;
}

std::optional<size_t> OperationIndex(std::wstring_view code) {
    const auto found = std::find_if(operations.begin(), operations.end(),
                                    [code](const Operation& o) { return o.code == code; });
    if (found == operations.end()) return std::nullopt;
    return static_cast<size_t>(found - operations.begin());
}

}  // namespace config
