// The changes that a save makes in the service's tree, as bytes: all that is needed to make them again, by
// whoever is logged on then. Each is one of these, numbers of variable length with the low seven bits first,
// names in UTF-16 with the low byte first:
//
//     01, length of the path, path          delete this tree, if it is there
//     02, length of the path, path          create this key, if it is not there; the values that follow are
//     its 10 + type, length of the name, name, size of the data, data          set this value
//
// Paths are below the service's root; the root itself is an empty path.
#pragma once

#include <functional>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "config/RegistryStore.h"

namespace config {

struct RedoChange {
    enum class Kind { DeleteTree, CreateKey, SetValue };

    Kind What = Kind::SetValue;
    std::wstring Name;  // of the value, or the path of the key
    platform::ValueType Type = platform::ValueType::Binary;
    std::span<const std::byte> Data;  // of the value; part of the bytes that were decoded
};

// What the action is going to change through the store that it is given, which changes nothing. That store
// finds each key, without anything below it, and no value.
Bytes PlannedChanges(const RegistryStore& store, const std::function<void(RegistryStore&)>& action);

// The deletion of this tree alone.
Bytes DeletionOf(const std::wstring& path);

// Nothing when the bytes are not whole changes, or could concern anything but the service's tree.
std::optional<std::vector<RedoChange>> DecodeChanges(std::span<const std::byte> bytes);

}  // namespace config
