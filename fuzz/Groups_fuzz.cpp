// Any bytes as a user groups file. The lines told must be those that a plain walk over the bytes finds, and
// written again they must come back.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>
#include <vector>

#include "certs/GroupsFile.h"

namespace {

std::vector<std::string> Lines(std::string_view bytes) {
    std::vector<std::string> lines;
    certs::ReadGroupLines(bytes, [&lines](std::string_view line) { lines.emplace_back(line); });
    return lines;
}

// Byte by byte, the line so far in hand.
std::vector<std::string> LinesByBytes(std::string_view bytes) {
    std::vector<std::string> lines;
    std::string line;
    for (const char byte : bytes) {
        if (byte == '\0') break;
        line += byte;
        if (!line.ends_with("\r\n")) continue;
        line.resize(line.size() - 2);
        if (line.find('=') != std::string::npos) lines.push_back(line);
        line.clear();
    }
    return lines;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    const std::vector<std::string> lines = Lines(bytes);
    if (lines != LinesByBytes(bytes)) std::abort();
    std::string written;
    for (const std::string& line : lines) written += line + "\r\n";
    if (Lines(written) != lines) std::abort();
    return 0;
}
