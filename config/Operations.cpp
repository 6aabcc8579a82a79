#include "config/Operations.h"

#include <algorithm>

namespace config {
namespace {

using namespace option;
using enum Holds;
using Options = std::array<const Option*, OptionRows>;

constexpr Options archiveIfAny{nullptr, &ArchiveIfAny};
constexpr Options archiveKind{nullptr, &ArchiveKind};
constexpr Options formats{&InputFormat, &OutputFormat, &NewSignatureProfile};
constexpr Options moving{&DeleteExtension, &AddExtension, &AccountingFormat, &AccountingCopyFormat};
constexpr Options packing{&FileCount, &ArchiveSize, &ArchiveTimeout, &ArchiveNames};
constexpr Options executing{&ExecutionTimeout};

constexpr auto operations = std::to_array<Operation>({
    {.code = L"ENCR", .displayName = L"Encrypt", .holds = Recipients, .options = archiveIfAny},
    {.code = L"DECR", .displayName = L"Decrypt", .options = archiveIfAny},
    {.code = L"HASH", .displayName = L"Hash file"},
    {.code = L"B64E", .displayName = L"Encode b64", .usesCsProfile = false},
    {.code = L"B64D", .displayName = L"Decode b64", .usesCsProfile = false},
    {.code = L"SIGN", .displayName = L"Attached signature"},
    {.code = L"CHCK", .displayName = L"Verify attached signature", .holds = SignerLists},
    {.code = L"CHKX", .displayName = L"Verify and delete attached signature", .holds = SignerLists},
    {.code = L"MOVE", .displayName = L"Move", .holds = SecondFolder, .usesCsProfile = false, .options = moving},
    {.code = L"DELE", .displayName = L"Delete", .usesCsProfile = false, .hasOutputFolder = false},
    {.code = L"LENC", .displayName = L"Encrypt long file", .holds = Recipients, .options = archiveIfAny},
    {.code = L"LDEC", .displayName = L"Decrypt long file", .options = archiveIfAny},
    {.code = L"CDSG", .displayName = L"Create detached signature"},
    {.code = L"DSIG", .displayName = L"Add detached signature"},
    {.code = L"DCHK", .displayName = L"Verify detached signature", .holds = SignerLists},
    {.code = L"DELS", .displayName = L"Delete signatures without verification"},
    {.code = L"RESG", .displayName = L"Resign", .holds = SignerLists, .options = formats},
    {.code = L"SGEN",
     .displayName = L"Create attached signature and encrypt",
     .holds = Recipients,
     .options = archiveIfAny},
    {.code = L"DCCX",
     .displayName = L"Decrypt, verify and delete attached signatures",
     .holds = SignerLists,
     .options = archiveIfAny},
    {.code = L"ARCH", .displayName = L"Archivate file", .usesCsProfile = false, .options = archiveKind},
    {.code = L"UNAR", .displayName = L"Unarchivate file", .usesCsProfile = false, .options = archiveKind},
    {.code = L"PACK", .displayName = L"Pack files", .usesCsProfile = false, .options = packing},
    {.code = L"UNPK", .displayName = L"Unpack files", .usesCsProfile = false},
    {.code = L"EXEC", .displayName = L"Execute", .holds = Executable, .usesCsProfile = false, .options = executing},
});

}  // namespace

size_t ChoiceOf(const Option& option, int32_t stored) {
    const auto index = static_cast<size_t>(std::max(stored, option.firstStored) - option.firstStored);
    return index < option.choices.size() ? index : 0;
}

int32_t StoredChoice(const Option& option, size_t index) {
    return static_cast<int32_t>(index) + option.firstStored;
}

std::span<const Operation> Operations() {
    return operations;
}

const Operation* FindOperation(std::wstring_view code) {
    const auto found =
        std::find_if(operations.begin(), operations.end(), [code](const Operation& o) { return o.code == code; });
    return found == operations.end() ? nullptr : &*found;
}

std::optional<size_t> OperationIndex(std::wstring_view code) {
    const Operation* found = FindOperation(code);
    return found == nullptr ? std::nullopt : std::optional(static_cast<size_t>(found - operations.data()));
}

}  // namespace config
