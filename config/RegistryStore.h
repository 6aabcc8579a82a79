// The only user of the registry: one current key through which typed values are read and written. Whatever
// fails, with a key or a value, is reported here, once.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "config/RegistryLayout.h"
#include "errors/ErrorReport.h"
#include "platform/Machine.h"

namespace config {

// What became of a read. Failure: it has been reported and the target is unchanged. Default: there was no
// value, or one of another type or shape.
enum class ReadOutcome { Value, Default, Failure };

// What became of opening a key that need not be there. Failure: it has been reported.
enum class KeyOutcome { Opened, Missing, Failure };

class RegistryStore {
  public:
    RegistryStore(const platform::Machine& machine, const errors::ErrorReporter& reporter)
        : RegistryStore(machine.Registry, machine.Memory, reporter) {}
    ~RegistryStore();
    RegistryStore(const RegistryStore&) = delete;
    RegistryStore& operator=(const RegistryStore&) = delete;

    // Another store with a current key of its own, none at first, on the same registry or on another one.
    [[nodiscard]] RegistryStore Another() const { return {registry_, memory_, reporter_}; }
    [[nodiscard]] RegistryStore On(platform::RegistryBackend& registry, platform::Memory& memory) const {
        return {registry, memory, reporter_};
    }

    // How many failures have been reported so far, of whatever operation; the silent ones left out.
    size_t ReportCount() const { return reporter_.Count(); }

    // Key operations return false after a report that names the key. A key that is opened or created becomes
    // the current one and the former one is closed; when that fails, the former one stays.
    [[nodiscard]] bool Open(platform::RootKey root, const std::wstring& path, const errors::ReportContext& context);
    [[nodiscard]] KeyOutcome OpenIfThere(platform::RootKey root, const std::wstring& path,
                                         const errors::ReportContext& context);
    [[nodiscard]] bool CreateMachineKey(const std::wstring& path, const errors::ReportContext& context);
    // reportedPath: what a report names, in the tree of the current key.
    [[nodiscard]] bool Close(const errors::ReportContext& context, const std::wstring& reportedPath);
    // Silent: what was written is not lost when this fails, only later on the disk.
    void Flush();
    // Names of the current key's subkeys in the registry's order.
    [[nodiscard]] bool EnumerateSubkeys(std::vector<std::wstring>& names, const errors::ReportContext& context);
    // Deletes the subkey of the current key with everything below it; ends at the first deletion that fails.
    [[nodiscard]] bool DeleteKeyTree(const std::wstring& name, const errors::ReportContext& context,
                                     const std::wstring& reportedPath);
    // True, too, when there is no such key.
    [[nodiscard]] bool DeleteKeyTreeIfThere(const std::wstring& name, const errors::ReportContext& context);
    // The same with the subkey of a key that becomes the current one, which need not be there either.
    [[nodiscard]] bool DeleteKeyTreeIfThere(platform::RootKey root, const std::wstring& parent,
                                            const std::wstring& name, const errors::ReportContext& context);

    ReadOutcome ReadInteger(std::wstring_view name, int32_t& target, const errors::ReportContext& context,
                            int32_t defaultValue);
    ReadOutcome ReadString(std::wstring_view name, std::wstring& target, const errors::ReportContext& context,
                           const std::wstring& defaultValue = {});
    // Lists have no default but the empty list; a failed read, which returns false, leaves them empty too.
    bool ReadStringList(std::wstring_view name, std::vector<std::wstring>& target,
                        const errors::ReportContext& context);
    bool ReadIntegerList(std::wstring_view name, std::vector<int32_t>& target, const errors::ReportContext& context);

    // A value of the type REG_BINARY.
    ReadOutcome ReadBinary(std::wstring_view name, Bytes& target, const errors::ReportContext& context);

    // Writes return false after a report.
    bool WriteInteger(std::wstring_view name, int32_t value, const errors::ReportContext& context);
    bool WriteString(std::wstring_view name, std::wstring_view text, const errors::ReportContext& context);
    // An empty entry is written as "0", so that the list keeps its length.
    bool WriteTextList(std::wstring_view name, const std::vector<std::wstring>& texts,
                       const errors::ReportContext& context);
    bool WriteIntegerList(std::wstring_view name, const std::vector<int32_t>& numbers,
                          const errors::ReportContext& context);
    // Entries as they are.
    bool WritePlainList(std::wstring_view name, const std::vector<std::wstring>& entries,
                        const errors::ReportContext& context);
    // The value's bytes as they lie in the registry.
    bool WriteValue(std::wstring_view name, platform::ValueType type, std::span<const std::byte> data,
                    const errors::ReportContext& context);

  private:
    RegistryStore(platform::RegistryBackend& registry, platform::Memory& memory, const errors::ErrorReporter& reporter)
        : registry_(registry),
          memory_(memory),
          reporter_(reporter) {}

    struct Key {
        platform::KeyHandle handle = platform::KeyHandle::None;
        platform::RootKey root{};
        std::wstring path;
    };

    platform::Win32Code TryOpen(platform::RootKey root, const std::wstring& path);
    void MakeCurrent(Key key);
    platform::Win32Code DeleteTree(platform::KeyHandle parent, const std::wstring& name);
    bool ReportKey(const errors::ReportContext& context, platform::Win32Code code, const wchar_t* operation,
                   platform::RootKey root, const std::wstring& path) const;
    bool ReportValue(const errors::ReportContext& context, platform::Win32Code code, const wchar_t* operation,
                     std::wstring_view name) const;
    const std::wstring& Named(std::wstring_view name);

    platform::RegistryBackend& registry_;
    platform::Memory& memory_;
    const errors::ErrorReporter& reporter_;
    Key current_;
    // Kept for their room: there are dozens of values in each of thousands of keys.
    std::wstring valueName_;
    Bytes encoded_;
};

}  // namespace config
