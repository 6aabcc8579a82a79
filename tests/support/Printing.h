// How a failed expectation shows values of the program's own types.
#pragma once

#include <gtest/gtest.h>

#include <ostream>
#include <string>

#include "text/CompactText.h"

namespace text {

inline void PrintTo(const CompactText& text, std::ostream* out) {
    *out << testing::PrintToString(std::wstring(text));
}

}  // namespace text
