#include "core/TextValueParser.h"

#include <algorithm>
#include <charconv>
#include <clocale>
#include <cstdlib>
#include <string>
#include <system_error>

#include <locale.h>

namespace Kvt::Mrl::MrlIO {

namespace {

/// strtod with a point as decimal mark whatever the process has set; gives where the conversion stopped.
std::size_t convertClassic(const std::string& text, double& value)
{
    static const locale_t classic = newlocale(LC_ALL_MASK, "C", nullptr);
    char* stop = nullptr;
    value = strtod_l(text.c_str(), &stop, classic);
    return static_cast<std::size_t>(stop - text.c_str());
}

bool convertInRange(const char* begin, const char* end, double& value)
{
    const auto [stop, error] = std::from_chars(begin, end, value);
    return error == std::errc() && stop == end;
}

/// The last D or d becomes the exponent letter; a D further in front then leaves a rest and fails the conversion.
std::string withExponentLetterE(const char* begin, const char* end)
{
    std::string text(begin, end);
    const std::size_t letter = text.find_last_of("Dd");
    if (letter != std::string::npos)
        text[letter] = 'e';
    return text;
}

} // namespace

namespace TextValueParserDetails {

bool convertLongInteger(const char* begin, const char* end, int& value) noexcept
{
    const bool negative = takeSign(begin);
    const char* const firstDigit = std::find_if(begin, end, [](char c) { return c != '0'; });
    if (end - firstDigit > safeDigits)
        return false;
    const char* p = firstDigit;
    std::uint64_t magnitude = 0;
    takeDigits(p, magnitude);
    return boundedInteger(negative, magnitude, value);
}

double convertDecimal(const char* begin, const char* end)
{
    if (*begin == '+')
        ++begin;
    double value = 0.0;
    if (convertInRange(begin, end, value))
        return value;
    const std::string text = withExponentLetterE(begin, end);
    // Out of range, strtod tells infinity from zero and gives subnormal numbers.
    if (!convertInRange(text.data(), text.data() + text.size(), value))
        convertClassic(text, value);
    return value;
}

bool convertDoubleToken(const char* begin, const char* end, double& value)
{
    const std::string text = withExponentLetterE(begin, end);
    return !text.empty() && convertClassic(text, value) == text.size();
}

} // namespace TextValueParserDetails

} // namespace Kvt::Mrl::MrlIO
