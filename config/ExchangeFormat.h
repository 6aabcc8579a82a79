// The text in which the rules of a profile travel from one machine to another: a record for each rule, a line
// for each of its fields, in the ANSI code page.
#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "config/Records.h"
#include "platform/Machine.h"

namespace config {

// Nothing is escaped: a text that holds a line feed or a separator of list entries is not read back as it
// was.
std::string ExchangeText(std::span<const Rule> rules, const platform::CodePage& codePage);

struct ExchangedRules {
    bool anyRecord = false;  // there were records, even if all of them were too short to be rules
    std::vector<Rule> rules;
};

// Takes any bytes. The text ends at the first zero byte; what stands after its last whole record is left
// out.
ExchangedRules ParseExchangeText(std::string_view text, const platform::CodePage& codePage);

}  // namespace config
