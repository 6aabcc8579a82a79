// The only user of the registry: one current key through which typed values are read and written. A value
// that cannot be read or written is reported here, once; what happens to keys is reported by the callers, who
// know their paths.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "config/RegistryValues.h"
#include "errors/ErrorReport.h"
#include "platform/Machine.h"

namespace config {

// What became of a read. Failure: it has been reported and the target is unchanged. Default: there was no
// value, or one of another type or shape.
enum class ReadOutcome { Value, Default, Failure };

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

    // Key operations return the system's code, 0 for success. A key that is opened or created becomes the
    // current one and the former one is closed; when that fails, the former one stays.
    [[nodiscard]] platform::Win32Code Open(platform::RootKey root, const std::wstring& path);
    [[nodiscard]] platform::Win32Code CreateMachineKey(const std::wstring& path);
    [[nodiscard]] platform::Win32Code Close();
    [[nodiscard]] platform::Win32Code Flush();
    // Names of the current key's subkeys in the registry's order; 0 also when there are none.
    [[nodiscard]] platform::Win32Code EnumerateSubkeys(std::vector<std::wstring>& names);
    // Deletes the subkey of the current key with everything below it; ends at the first deletion that fails.
    [[nodiscard]] platform::Win32Code DeleteKeyTree(const std::wstring& name);

    ReadOutcome ReadInteger(const std::wstring& name, int32_t& target, const errors::ReportContext& context,
                            int32_t defaultValue);
    ReadOutcome ReadString(const std::wstring& name, std::wstring& target,
                           const errors::ReportContext& context, const std::wstring& defaultValue = {});
    // Lists have no default but the empty list; a failed read, which returns false, leaves them empty too.
    bool ReadStringList(const std::wstring& name, std::vector<std::wstring>& target, const ui::Dialog* owner);
    bool ReadIntegerList(const std::wstring& name, std::vector<int32_t>& target, const ui::Dialog* owner);

    // A value of the type REG_BINARY.
    ReadOutcome ReadBinary(const std::wstring& name, Bytes& target, const errors::ReportContext& context);

    // Writes return false after a report.
    bool WriteInteger(const std::wstring& name, int32_t value, const errors::ReportContext& context);
    bool WriteString(const std::wstring& name, const std::wstring& text,
                     const errors::ReportContext& context);
    // An empty entry is written as "0", so that the list keeps its length.
    bool WriteTextList(const std::wstring& name, const std::vector<std::wstring>& texts,
                       const ui::Dialog* owner);
    bool WriteIntegerList(const std::wstring& name, const std::vector<int32_t>& numbers,
                          const ui::Dialog* owner);
    // Entries as they are.
    bool WritePlainList(const std::wstring& name, const std::vector<std::wstring>& entries,
                        const ui::Dialog* owner);
    // The value's bytes as they lie in the registry.
    bool WriteValue(const std::wstring& name, platform::ValueType type, std::span<const std::byte> data,
                    const errors::ReportContext& context);

  private:
    RegistryStore(platform::RegistryBackend& registry, platform::Memory& memory,
                  const errors::ErrorReporter& reporter)
        : registry_(registry),
          memory_(memory),
          reporter_(reporter) {}

    platform::Win32Code MakeCurrent(platform::Win32Code code, platform::KeyHandle key);
    platform::Win32Code DeleteTree(platform::KeyHandle parent, const std::wstring& name);
    bool ReportValue(const errors::ReportContext& context, platform::Win32Code code, const wchar_t* operation,
                     const std::wstring& name) const;

    platform::RegistryBackend& registry_;
    platform::Memory& memory_;
    const errors::ErrorReporter& reporter_;
    platform::KeyHandle current_ = platform::KeyHandle::None;
};

// The path as messages show it: "HKEY_LOCAL_MACHINE\" or "HKEY_CURRENT_USER\" in front.
std::wstring DisplayPath(platform::RootKey root, const std::wstring& path);

}  // namespace config
