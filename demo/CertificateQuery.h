// Which owner names a query means: "CN=Iv*,C=RU".
#pragma once

#include <string_view>

namespace demo {

// "*" stands for any run of characters; the letters A to Z match in either case.
bool MatchesSample(std::string_view text, std::string_view sample);

// "*=*" means every owner. Else the whole name matches the query, or each of the query's assertions, which
// commas separate, matches one of the name's.
bool MatchesQuery(std::string_view ownerName, std::string_view query);

}  // namespace demo
