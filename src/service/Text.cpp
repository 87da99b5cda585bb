#include "service/Text.h"

#include <algorithm>

namespace Kvt::Mrl::Core::Service {
namespace {

bool isBlank(char c)
{
    return c == ' ';
}

bool isWhiteSpace(char c)
{
    return c == ' ' || (c >= '\t' && c <= '\r'); // tab, line feed, vertical tab, form feed, carriage return
}

using Test = bool (*)(char);

std::string_view trimmed(std::string_view text, Test isUnwanted, bool left, bool right)
{
    while (left && !text.empty() && isUnwanted(text.front()))
        text.remove_prefix(1);
    while (right && !text.empty() && isUnwanted(text.back()))
        text.remove_suffix(1);
    return text;
}

void trim(std::string& text, Test isUnwanted, bool left, bool right)
{
    const std::string_view kept = trimmed(text, isUnwanted, left, right);
    const auto begin = static_cast<std::size_t>(kept.data() - text.data());
    text.erase(begin + kept.size());
    text.erase(0, begin);
}

} // namespace

bool AllBlanks(std::string_view text)
{
    return std::all_of(text.begin(), text.end(), isBlank);
}

std::string StringTrim(std::string_view text)
{
    return std::string(trimmed(text, isWhiteSpace, true, true));
}

void StringTrimBlank(std::string& text, bool left, bool right)
{
    trim(text, isBlank, left, right);
}

void StringTrimSpace(std::string& text, bool left, bool right)
{
    trim(text, isWhiteSpace, left, right);
}

void StringToLower(std::string& text)
{
    std::transform(text.begin(), text.end(), text.begin(), toLower);
}

bool NoCaseStringEqual(std::string_view a, std::string_view b)
{
    return std::equal(a.begin(), a.end(), b.begin(), b.end(), [](char x, char y) { return toLower(x) == toLower(y); });
}

bool NoCaseStringLess(std::string_view a, std::string_view b)
{
    return std::lexicographical_compare(a.begin(), a.end(), b.begin(), b.end(), [](char x, char y) {
        return static_cast<unsigned char>(toLower(x)) < static_cast<unsigned char>(toLower(y));
    });
}

void StringSplit(std::string_view text, std::uint64_t width, std::vector<std::string>& pieces)
{
    pieces.clear();
    const std::size_t step = width == 0 ? text.size() : static_cast<std::size_t>(width);
    for (; text.size() > step; text.remove_prefix(step))
        pieces.emplace_back(text.substr(0, step));
    if (!text.empty())
        pieces.emplace_back(text);
}

} // namespace Kvt::Mrl::Core::Service
