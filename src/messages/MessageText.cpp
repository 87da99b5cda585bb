#include "messages/MessageText.h"

#include <array>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <limits>

namespace Kvt::Mrl::MrlIO {

namespace {

constexpr int decimals = 14;
/// Sign, digits of the largest number, point and decimals.
constexpr std::size_t longestTime = 1 + std::numeric_limits<double>::max_exponent10 + 1 + 1 + decimals;
/// More days than the calendar of Time has, and few enough to be counted in milliseconds.
constexpr double beyondCalendar = 33000 * 366.0;

std::string_view escapeOf(char c)
{
    switch (c) {
    case '"':
        return "&quot;";
    case '&':
        return "&amp;";
    case '\'':
        return "&apos;";
    case '<':
        return "&lt;";
    case '>':
        return "&gt;";
    default:
        return {};
    }
}

void appendEscaped(std::string& out, std::string_view text)
{
    for (const char c : text) {
        const std::string_view escape = escapeOf(c);
        if (escape.empty())
            out += c;
        else
            out += escape;
    }
}

void appendAttribute(std::string& out, std::string_view name, std::string_view value)
{
    out.append(" ").append(name).append("=\"").append(value).append("\"");
}

} // namespace

std::string elementText(const MessageElement& element)
{
    std::string out;
    out.append("<").append(element.tag);
    appendAttribute(out, "date", element.date);
    appendAttribute(out, "time", element.time);
    if (!element.name.empty())
        appendAttribute(out, "name", element.name);
    if (!element.typeName.empty())
        appendAttribute(out, "type", element.typeName);
    if (!element.guid.empty())
        appendAttribute(out, "guid", element.guid);
    out += ">\n ";
    appendEscaped(out, element.text);
    out.append("\n</").append(element.tag).append(">\n");
    return out;
}

std::string dateText(const Service::Time& start, double elapsedDays)
{
    const double days = std::floor(elapsedDays);
    if (!(days < beyondCalendar))
        return {};
    Service::Time date = start;
    date += static_cast<std::int64_t>(days) * Service::Time::DAY;
    if (!date.IsDef())
        return {};
    return std::to_string(date.GetDay()) + '/' + std::to_string(date.GetMonth()) + '/' + std::to_string(date.GetYear());
}

std::string timeText(const Service::Time& start, double elapsedDays)
{
    if (!start.IsDef() || elapsedDays == 0)
        return {};
    std::array<char, longestTime> digits;
    const auto end =
        std::to_chars(digits.data(), digits.data() + digits.size(), elapsedDays, std::chars_format::fixed, decimals);
    return {digits.data(), end.ptr};
}

} // namespace Kvt::Mrl::MrlIO
