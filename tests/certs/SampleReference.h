// What a sample with asterisks means, tried out in every way: slow, and easy to see to be right.
#pragma once

#include <string_view>

namespace tests {

inline bool MatchesInSomeWay(std::wstring_view sample, std::wstring_view value) {
    if (sample.empty()) return value.empty();
    if (sample.front() == L'*')
        return MatchesInSomeWay(sample.substr(1), value) ||
               (!value.empty() && MatchesInSomeWay(sample, value.substr(1)));
    return !value.empty() && value.front() == sample.front() && MatchesInSomeWay(sample.substr(1), value.substr(1));
}

}  // namespace tests
