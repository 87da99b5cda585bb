#pragma once

#include <algorithm>
#include <cctype>
#include <string_view>

namespace MrlIOFuzz {

inline std::string_view withoutDigits(std::string_view text)
{
    const auto end = std::ranges::find_if_not(text, [](unsigned char c) { return std::isdigit(c) != 0; });
    return {end, text.end()};
}

inline std::string_view without(std::string_view text, std::string_view anyOf)
{
    return text.substr(!text.empty() && anyOf.find(text.front()) != anyOf.npos ? 1 : 0);
}

/// Whether a text is one number, truth value or quoted text and nothing else.
inline bool isOneValue(std::string_view text)
{
    if (text == "T" || text == "F" || text == "NAN" || text == "INF" || text == "-INF")
        return true;
    text = without(withoutDigits(without(text, "+-")), ".");
    text = withoutDigits(text);
    const std::string_view exponent = without(text, "DdEe");
    return text.empty() || (exponent.size() < text.size() && withoutDigits(without(exponent, "+-")).empty());
}

/// Whether white space stands around every value of a text. Where "1.5-2.5" stands, a reader takes two values, but
/// passes over one: then a slice rightly differs from the whole array.
inline bool areValuesSeparate(std::string_view text)
{
    constexpr std::string_view whiteSpace = " \t\n\v\f\r";
    while (true) {
        text.remove_prefix(std::min(text.find_first_not_of(whiteSpace), text.size()));
        if (text.empty())
            return true;
        const bool isQuoted = text.front() == '\'';
        const std::size_t closing = isQuoted ? text.find('\'', 1) : 0;
        const std::size_t end = std::min(text.find_first_of(whiteSpace, std::min(closing, text.size())), text.size());
        if (isQuoted ? closing == text.npos || end != closing + 1 : !isOneValue(text.substr(0, end)))
            return false;
        text.remove_prefix(end);
    }
}

} // namespace MrlIOFuzz
