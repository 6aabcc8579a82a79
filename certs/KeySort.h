// Sorting very many long texts.
#pragma once

#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

namespace certs {

// The places of the keys in ascending or descending order of their character codes; equal keys keep their
// order. Takes time for each unit that has to be seen to tell the keys apart, and for sorting as many
// numbers.
std::vector<uint32_t> SortedOrder(std::span<const std::wstring_view> keys, bool descending);

}  // namespace certs
