#include "demo/OwnersText.h"

#include <algorithm>
#include <charconv>
#include <stdexcept>

namespace demo {
namespace {

std::string_view Trim(std::string_view text) {
    constexpr std::string_view blanks = " \t\r";
    const size_t begin = text.find_first_not_of(blanks);
    if (begin == std::string_view::npos) return {};
    return text.substr(begin, text.find_last_not_of(blanks) - begin + 1);
}

std::vector<std::string_view> Split(std::string_view text, char separator) {
    std::vector<std::string_view> parts;
    for (;;) {
        const size_t end = text.find(separator);
        parts.push_back(Trim(text.substr(0, end)));
        if (end == std::string_view::npos) return parts;
        text.remove_prefix(end + 1);
    }
}

template <class Number>
Number NumberIn(std::string_view text, int base) {
    Number number{};
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number, base);
    if (error != std::errc() || end != text.data() + text.size())
        throw std::runtime_error("'" + std::string(text) + "' is not a number that fits here");
    return number;
}

std::vector<uint8_t> SerialIn(std::string_view text) {
    std::vector<uint8_t> serial;
    if (text.empty()) return serial;
    for (const std::string_view byte : Split(text, ':')) serial.push_back(NumberIn<uint8_t>(byte, 16));
    return serial;
}

StandInCertificate CertificateIn(std::string_view line) {
    const std::vector<std::string_view> fields = Split(line, '|');
    if (fields.size() != 4 && fields.size() != 5) throw std::runtime_error("a certificate has four or five fields");
    if (fields[0] != "local" && fields[0] != "network")
        throw std::runtime_error("the store is neither local nor network");
    StandInCertificate certificate;
    certificate.InNetwork = fields[0] == "network";
    certificate.UsageBits = NumberIn<uint8_t>(fields[1], 16);
    certificate.Serial = SerialIn(fields[2]);
    certificate.OwnerName = fields[3];
    if (fields.size() == 5) certificate.SecondText = fields[4];
    return certificate;
}

void Set(StandInOwners& owners, std::string_view name, std::string_view value) {
    if (name == "delay") {
        owners.Delay = std::chrono::milliseconds(NumberIn<uint32_t>(value, 10));
    } else if (name == "network" && (value == "on" || value == "off")) {
        owners.NetworkAnswers = value == "on";
    } else if (name == "crl") {
        owners.CrlDiagnostic = value;
    } else {
        throw std::runtime_error("neither a certificate nor a setting");
    }
}

void Take(StandInOwners& owners, std::string_view line) {
    if (line.empty() || line.front() == '#') return;
    if (line.find('|') != std::string_view::npos) {
        owners.Certificates.push_back(CertificateIn(line));
        return;
    }
    const size_t equals = line.find('=');
    const std::string_view name = line.substr(0, equals);
    Set(owners, Trim(name), equals == std::string_view::npos ? name : Trim(line.substr(equals + 1)));
}

}  // namespace

StandInOwners ParseOwners(std::string_view text) {
    StandInOwners owners;
    size_t number = 0;
    for (const std::string_view line : Split(text, '\n')) {
        ++number;
        try {
            Take(owners, line);
        } catch (const std::runtime_error& error) {
            throw std::runtime_error("line " + std::to_string(number) + ": " + error.what());
        }
    }
    return owners;
}

}  // namespace demo
