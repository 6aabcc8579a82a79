#include "certs/GroupsFile.h"

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

namespace {

using namespace std::string_literals;
using Lines = std::vector<std::string>;

Lines Read(std::string_view bytes) {
    Lines lines;
    certs::ReadGroupLines(bytes, [&lines](std::string_view line) { lines.emplace_back(line); });
    return lines;
}

TEST(GroupLines, TellsOfTheLinesThatCanBeNames) {
    const std::pair<std::string, Lines> cases[] = {
        {"", {}},
        {"CN=A\r\n", {"CN=A"}},
        {"CN=A\r\nCN=B\r\n", {"CN=A", "CN=B"}},
        {"CN=A", {}},                // no line end
        {"CN=A\r\nCN=B", {"CN=A"}},  //
        {"CN=A\n", {}},              // half a line end
        {"CN=A\nCN=B\rCN=C\r\n", {"CN=A\nCN=B\rCN=C"}},
        {"Ivanov\r\nCN=Ivanov\r\n", {"CN=Ivanov"}},
        {"\r\n\r\nCN=A\r\n\r\n", {"CN=A"}},
        {"=\r\n", {"="}},
        {" CN=A \r\n", {" CN=A "}},
        {"CN=A\r\r\n", {"CN=A\r"}},
        {"CN=A\r\nCN=B\0\r\nCN=C\r\n"s, {"CN=A"}},  // a zero ends the text
        {"\0CN=A\r\n"s, {}},
        {"CN=A\r\n\0CN=B\r\n"s, {"CN=A"}},
        {"CN=A\r\nCN=A\r\n", {"CN=A", "CN=A"}},
        {"CN=\xC8\xFF\r\n", {"CN=\xC8\xFF"}},
    };
    for (const auto& [bytes, lines] : cases) EXPECT_EQ(Read(bytes), lines) << testing::PrintToString(bytes);
}

TEST(GroupLines, WrittenLinesComeBack) {
    std::mt19937 random(9);
    for (int round = 0; round < 200; ++round) {
        Lines lines(random() % 6);
        std::string bytes;
        for (std::string& line : lines) {
            line = "=";
            for (size_t i = random() % 8; i > 0; --i) line += "ab,=\n \xE0"[random() % 7];
            bytes += line + "\r\n";
        }
        ASSERT_EQ(Read(bytes), lines);
    }
}

TEST(GroupLines, HugeTextsAreReadInOneGo) {
    EXPECT_EQ(Read(std::string(20'000'000, '\r')), Lines{});
    std::string lines;
    for (int i = 0; i < 1'000'000; ++i) lines += "\r\n\r\r\n";
    EXPECT_EQ(Read(lines + "CN=A\r\n"), Lines{"CN=A"});
}

}  // namespace
