// Any answers of the cryptographic library: counts without entries, missing names, absurd serial lengths,
// error stacks and texts without an end. They must be read without harm, and everything must go back exactly
// once.
#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "crypto/LibrarySearch.h"
#include "crypto/OpenCryptoContext.h"
#include "crypto/RefreshCrl.h"
#include "fuzz/Input.h"
#include "platform/memory/MemoryMachine.h"
#include "ui/memory/MemoryScreen.h"

namespace {

namespace kseal = platform::kseal;

using fuzz::Require;

fuzz::Input input;

std::string AnyText() {
    std::string text;
    for (size_t length = input.Byte(); length > 0 && !input.IsEmpty(); --length)
        text += static_cast<char>(std::max<uint8_t>(1, input.Byte()));
    return text;
}

// What the library handed out. Each block has exactly the size that its user may read.
struct HandedOut {
    std::vector<kseal::CertEntry> entries;
    std::vector<std::unique_ptr<char[]>> texts;
    std::vector<std::unique_ptr<uint8_t[]>> serials;
};

std::map<void*, std::unique_ptr<char[]>> texts;
std::optional<HandedOut> result;

char* MaybeText(std::vector<std::unique_ptr<char[]>>& owner) {
    if (input.Byte() % 4 == 0) return nullptr;
    const std::string text = AnyText();
    owner.push_back(std::make_unique<char[]>(text.size() + 1));
    std::copy(text.begin(), text.end(), owner.back().get());
    return owner.back().get();
}

char* MaybeHandedOut() {
    std::vector<std::unique_ptr<char[]>> made;
    char* const text = MaybeText(made);
    if (text != nullptr) texts.emplace(text, std::move(made.front()));
    return text;
}

kseal::CertEntry AnyEntry(HandedOut& owner) {
    kseal::CertEntry entry{};
    entry.OwnerName = MaybeText(owner.texts);
    entry.UsageBits = input.Byte();
    entry.SecondText = MaybeText(owner.texts);
    const uint8_t kind = input.Byte();
    const uint32_t length = kind % 3 == 0 ? input.Word() : input.Byte();
    entry.SerialLength = length;
    if (kind % 5 == 0) return entry;
    // Beyond the bound the length is a lie, and there are no bytes to be read.
    owner.serials.push_back(std::make_unique<uint8_t[]>(length <= crypto::LongestSerial ? length : 0));
    entry.Serial = owner.serials.back().get();
    return entry;
}

kseal::Code FindCert(kseal::Context, const kseal::CertFindRequest*, kseal::CertFindResult* found) {
    Require(!result);
    const uint8_t kind = input.Byte();
    if (kind % 8 == 0) return input.Word() | 1;
    if (kind % 8 == 1) return kseal::NothingFound;
    result.emplace();
    for (size_t count = input.Byte(); count > 0 && !input.IsEmpty(); --count)
        result->entries.push_back(AnyEntry(*result));
    found->Count = static_cast<uint32_t>(result->entries.size());
    found->Entries = result->entries.data();
    if (kind % 8 == 2) {
        found->Count = input.Word();
        found->Entries = nullptr;
    }
    return 0;
}

kseal::Code FreeFindResult(kseal::Context, kseal::CertFindResult*) {
    result.reset();
    return input.Word();
}

void WriteAnyText(char* buffer, uint32_t size) {
    Require(std::count(buffer, buffer + size, '\0') == size);
    const std::string text = input.Byte() % 4 == 0 ? std::string(size, 'x') : AnyText();
    std::copy_n(text.begin(), std::min<size_t>(text.size(), size), buffer);
}

kseal::Code GetErrorText(kseal::Code, char* buffer, uint32_t size) {
    Require(size == 1024);
    WriteAnyText(buffer, size);
    return input.Word();
}

kseal::Code Ctrl(kseal::Context, uint32_t controlCode, void* controlBlock) {
    const auto& block = *static_cast<const kseal::CrlControlBlock*>(controlBlock);
    Require(controlCode == 4 && block.BufferLength == 1024);
    WriteAnyText(block.Buffer, block.BufferLength);
    return input.Word();
}

kseal::Code GetErrorLineEx(kseal::Context, char** errorText, char** sourceFile, int32_t* line, char** data) {
    if (input.Byte() % 2 == 0) return 1;
    *errorText = MaybeHandedOut();
    *sourceFile = MaybeHandedOut();
    *line = static_cast<int32_t>(input.Word());
    *data = MaybeHandedOut();
    return 0;
}

void FreeMem(void* memory) {
    Require(texts.erase(memory) == 1);
}

constexpr kseal::Exports exports{
    .Initialize = [](const char*, uint32_t, kseal::Context*) { return kseal::Code{1}; },
    .Uninitialize = [](kseal::Context) { return input.Word(); },
    .Ctrl = Ctrl,
    .FindCert = FindCert,
    .FreeFindResult = FreeFindResult,
    .GetErrorText = GetErrorText,
    .GetErrorLineEx = GetErrorLineEx,
    .FreeMem = FreeMem,
};

// Closes what opens and reads nothing.
class Passer final : public ui::memory::User {
  public:
    void DialogOpened(ui::Dialog& /*dialog*/) override {}
    int BoxOpened(const std::wstring&, const std::wstring&, uint32_t) override { return ui::IdOk; }
    std::optional<std::wstring> FolderPickerOpened() override { return std::nullopt; }
    std::optional<std::wstring> FilePickerOpened(ui::FilePickerKind) override { return std::nullopt; }
};

void Use(const config::Services& services, ui::Dialog& parent, const crypto::CryptoContext& context) {
    crypto::PickerSettings settings;
    const uint8_t switches = input.Byte();
    settings.IncludeAllCertificates = switches & 1;
    settings.ReportLibraryDetail = switches & 2;
    crypto::LibrarySearch search(services, context, settings);
    crypto::NameList names;
    crypto::OwnerCertificates certificates;
    bool ldapUsable = false;
    const auto isReleased = [] { return !result && texts.empty(); };

    crypto::CheckLdapStore(services, parent, context, ldapUsable);
    Require(isReleased());
    if (!search.FindAllLocalNames(parent, names)) Require(names.IsEmpty());
    Require(isReleased());
    search.FindOwnerNames(parent, L"*", names);
    Require(isReleased());
    search.FindCertificatesByName(parent, names.IsEmpty() ? L"" : std::wstring(names[0]), certificates);
    Require(isReleased() && certificates.Texts.size() == certificates.Serials.size());
    Require(crypto::RefreshCrl(services, parent, context, L"", settings.CrlUpdatePeriod));
    Require(isReleased());
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    input = fuzz::Input({data, size});
    platform::memory::MemoryMachine machine;
    machine.CryptoLibrary.Install(exports);
    Passer user;
    ui::memory::MemoryScreen screen(machine.ScreenMetrics, user);
    const errors::ErrorReporter reporter(machine.Machine, screen);
    config::RegistryStore store(machine.Machine, reporter);
    Require(store.CreateMachineKey(L"SOFTWARE\\TALVERON\\morcelservice", {}));
    const config::Services services{machine.Machine, screen, reporter, store};
    ui::Dialog parent(screen, nullptr, {.size = {100, 50}});
    parent.OpenModeless();
    int somewhere = 0;
    Use(services, parent, crypto::CryptoContext(exports, &somewhere, reporter));
    return 0;
}
