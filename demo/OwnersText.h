// The certificates that the stand-in library serves, as readable text:
//
//     # comment
//     delay = 1500
//     local   | 1C | 01:A2 | CN=Anna Keller,O=Kontor GmbH,C=DE
//     network | 04 |       | CN=Jean Moulin,C=FR               | a second text
//
// One certificate a line: its store, its usage bits (hexadecimal), its serial number, its owner's name and,
// if it has one, its second text. Settings: "delay", how many milliseconds it takes to open a context;
// "network = off", a network store that does not answer; "crl", the text with which loading the revocation
// lists fails.
#pragma once

#include <chrono>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace demo {

struct StandInCertificate {
    bool InNetwork = false;
    uint8_t UsageBits = 0x1C;
    std::vector<uint8_t> Serial{};
    std::string OwnerName{};
    std::string SecondText{};
    bool operator==(const StandInCertificate&) const = default;
};

struct StandInOwners {
    std::vector<StandInCertificate> Certificates{};
    std::chrono::milliseconds Delay{0};
    bool NetworkAnswers = true;
    std::string CrlDiagnostic{};  // empty: loading succeeds
};

// The text's encoding is that of the names served. Throws std::runtime_error naming the line that is wrong.
StandInOwners ParseOwners(std::string_view text);

}  // namespace demo
