// The cryptographic library as its maker lays it out: records, results and functions, for x64 only.
// Everything that comes back from there is to be read with care: pointers may be null and lengths absurd.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <type_traits>

namespace platform::kseal {

using Context = void*;  // null: no context
using Code = uint32_t;  // 0: success; the library's own codes have bit 29 set

inline constexpr Code NothingFound = 0xE0700046;

// What a search asks for. Whatever has no name here stays zero.
struct CertFindRequest {
    uint32_t SearchWord = 0;
    std::array<std::byte, 12> Zero4{};
    uint32_t StoreScope = 0;
    std::array<std::byte, 20> Zero20{};
    const char* Query = nullptr;  // in the ANSI code page
    std::array<std::byte, 376> Zero48{};
    uint32_t FieldsWanted = 0;
    std::array<std::byte, 4> Zero428{};
};

// One certificate found. Texts are in the ANSI code page; the fields without a name are not read.
struct CertEntry {
    std::array<std::byte, 24> Unread0;
    char* OwnerName;
    std::array<std::byte, 32> Unread32;
    uint8_t UsageBits;
    std::array<std::byte, 255> Unread65;
    char* SecondText;
    std::array<std::byte, 64> Unread328;
    uint32_t SerialLength;  // in bytes
    std::array<std::byte, 4> Unread396;
    uint8_t* Serial;
};

struct CertFindResult {
    uint32_t Count = 0;
    std::array<std::byte, 4> Unread4{};
    CertEntry* Entries = nullptr;
};

inline constexpr uint32_t LoadCrlControl = 4;

// With LoadCrlControl: where the library may write a diagnostic text.
struct CrlControlBlock {
    uint32_t BufferLength = 0;
    std::array<std::byte, 4> Zero4{};
    char* Buffer = nullptr;
};

static_assert(sizeof(void*) == 8);
static_assert(std::is_standard_layout_v<CertFindRequest> && sizeof(CertFindRequest) == 432);
static_assert(offsetof(CertFindRequest, SearchWord) == 0 && offsetof(CertFindRequest, StoreScope) == 16);
static_assert(offsetof(CertFindRequest, Query) == 40 && offsetof(CertFindRequest, FieldsWanted) == 424);
static_assert(std::is_standard_layout_v<CertEntry> && sizeof(CertEntry) == 408);
static_assert(offsetof(CertEntry, OwnerName) == 24 && offsetof(CertEntry, UsageBits) == 64);
static_assert(offsetof(CertEntry, SecondText) == 320 && offsetof(CertEntry, SerialLength) == 392);
static_assert(offsetof(CertEntry, Serial) == 400);
static_assert(std::is_standard_layout_v<CertFindResult> && sizeof(CertFindResult) == 16);
static_assert(offsetof(CertFindResult, Count) == 0 && offsetof(CertFindResult, Entries) == 8);
static_assert(std::is_standard_layout_v<CrlControlBlock> && sizeof(CrlControlBlock) == 16);
static_assert(offsetof(CrlControlBlock, BufferLength) == 0 && offsetof(CrlControlBlock, Buffer) == 8);

extern "C" {
using InitializeFunction = Code(const char* profileName, uint32_t flags, Context* context);
using UninitializeFunction = Code(Context context);
using CtrlFunction = Code(Context context, uint32_t controlCode, void* controlBlock);
using FindCertFunction = Code(Context context, const CertFindRequest* request, CertFindResult* result);
using FreeFindResultFunction = Code(Context context, CertFindResult* result);
using GetErrorTextFunction = Code(Code code, char* buffer, uint32_t size);
using GetErrorLineExFunction = Code(Context context, char** errorText, char** sourceFile, int32_t* line, char** data);
using FreeMemFunction = void(void* memory);
}

// All that the editor calls. Where there is a library, none of them is null.
struct Exports {
    InitializeFunction* Initialize = nullptr;
    UninitializeFunction* Uninitialize = nullptr;
    CtrlFunction* Ctrl = nullptr;
    FindCertFunction* FindCert = nullptr;
    FreeFindResultFunction* FreeFindResult = nullptr;
    GetErrorTextFunction* GetErrorText = nullptr;
    GetErrorLineExFunction* GetErrorLineEx = nullptr;
    FreeMemFunction* FreeMem = nullptr;
};

}  // namespace platform::kseal
