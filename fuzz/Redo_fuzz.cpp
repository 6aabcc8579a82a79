// Any bytes as the record of an unfinished save, and any as the changes of one that is whole. It is refused
// and nothing changes, or it is completed exactly: only below the service's key, and the same however often.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "config/RedoRecord.h"
#include "config/RegistryLayout.h"
#include "fuzz/Input.h"
#include "fuzz/Reports.h"
#include "fuzz/TreeText.h"
#include "platform/memory/MemoryMachine.h"

namespace {

using config::Bytes;
using config::RedoRecord;
using fuzz::Require;
using platform::RootKey;
using State = RedoRecord::State;

constexpr char tree[] =
    "[HKEY_CURRENT_USER\\SOFTWARE\\Other]\nx = 1\n"
    "[HKEY_LOCAL_MACHINE\\SOFTWARE\\Other]\nx = 1\n"
    "[HKEY_LOCAL_MACHINE\\SOFTWARE\\TALVERON\\morcelservice]\nLogPath = \"C:\\Logs\"\n"
    "[a]\nx = 1\n[a\\rules\\Rule 0]\nx = 1\n[b\\rules]\n";

class Program {
  public:
    Program() { fuzz::BuildTree(tree, machine_.StoredRegistry); }

    RedoRecord Record() { return {store_, nullptr}; }
    void StoreRecord(const Bytes& bytes) {
        const std::wstring path = std::wstring(config::EditorParent) + L"\\" + config::EditorKey;
        demo::RegistryKey::Create(machine_.StoredRegistry, RootKey::LocalMachine, path)
            .Set(L"Unfinished save", {platform::ValueType::Binary, bytes});
    }
    bool HasRecord() {
        const std::wstring path = std::wstring(config::EditorParent) + L"\\" + config::EditorKey;
        return demo::RegistryKey::Exists(machine_.StoredRegistry, RootKey::LocalMachine, path);
    }
    // All that is neither the service's nor the editor's.
    fuzz::Tree Others() {
        fuzz::Tree others = fuzz::ReadTree(machine_.StoredRegistry, RootKey::LocalMachine, L"");
        std::erase_if(others,
                      [](const auto& item) { return item.first.starts_with(L"\\SOFTWARE\\TALVERON\\morcelservice"); });
        others.merge(fuzz::ReadTree(machine_.StoredRegistry, RootKey::CurrentUser, L""));
        return others;
    }
    fuzz::Tree Service() { return fuzz::ReadTree(machine_.StoredRegistry, RootKey::LocalMachine, config::ServiceRoot); }
    size_t Reports() const { return reports_.Count(); }
    size_t OpenKeys() const { return machine_.StoredRegistry.OpenKeys(); }

  private:
    platform::memory::MemoryMachine machine_;
    fuzz::Reports reports_{machine_.ScreenMetrics};
    const errors::ErrorReporter reporter_{machine_.Machine, reports_};
    config::RegistryStore store_{machine_.Machine, reporter_};
};

// What a start finds in the registry.
void Start(Program& program, bool mayBeWhole) {
    const fuzz::Tree before = program.Service();
    const fuzz::Tree others = program.Others();
    RedoRecord record = program.Record();
    const auto state = record.Find();
    Require(state.has_value() && program.Reports() == 0);
    Require(state != State::Whole || mayBeWhole);
    Require(program.Service() == before);
    if (state == State::Whole) {
        // A name can be longer than the registry takes: one report, and the record stays.
        const bool completed = record.Complete();
        Require(program.Reports() == (completed ? 0U : 1U));
        Require(program.HasRecord() == !completed);
    }
    Require(program.Others() == others && program.OpenKeys() == 0);
}

Bytes BytesOf(std::span<const uint8_t> data) {
    Bytes bytes;
    for (const uint8_t byte : data) bytes.push_back(static_cast<std::byte>(byte));
    return bytes;
}

void CheckChanges(const Bytes& changes) {
    Program once;
    Require(once.Record().Keep(changes));
    Start(once, true);
    // Made in part first, whatever part that is, and then from the beginning.
    const auto decoded = config::DecodeChanges(changes);
    if (!decoded) return;
    Program twice;
    Require(twice.Record().Keep(changes));
    RedoRecord first = twice.Record();
    Require(first.Find() == State::Whole);
    if (!first.Complete()) return;
    Require(twice.Record().Keep(changes));
    Start(twice, true);
    Require(once.Service() == twice.Service());
}

}  // namespace

// The first byte tells whether the rest is the record's value or its changes.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    fuzz::Input input({data, size});
    const bool isValue = input.Byte() % 4 == 0;
    const Bytes bytes = BytesOf(input.Rest());
    if (!isValue) {
        CheckChanges(bytes);
        return 0;
    }
    Program program;
    program.StoreRecord(bytes);
    Start(program, true);
    return 0;
}
