#include "wellresults/CacheText.h"

#include <mrlio/MrlIOException.h>

#include <algorithm>
#include <boost/lexical_cast/bad_lexical_cast.hpp>
#include <charconv>
#include <cstdint>
#include <system_error>
#include <typeinfo>

namespace Kvt::Mrl::MrlIO {

namespace {

bool isAscii(std::string_view text)
{
    return std::ranges::none_of(text, [](char c) { return static_cast<unsigned char>(c) >= 0x80; });
}

template <class Float>
std::string digitsOf(Float value, int precision)
{
    char digits[40];
    const auto end = std::to_chars(digits, digits + sizeof digits, value, std::chars_format::general, precision).ptr;
    return {digits, end};
}

} // namespace

std::string toCacheText(const std::string& bytes)
{
    if (isAscii(bytes))
        return bytes;
    std::string text;
    for (const char c : bytes) {
        const auto byte = static_cast<unsigned char>(c);
        if (byte < 0x80) {
            text += c;
        } else {
            text += static_cast<char>(0xC0 | byte >> 6);
            text += static_cast<char>(0x80 | (byte & 0x3F));
        }
    }
    return text;
}

std::string fromCacheText(std::string_view text)
{
    if (isAscii(text))
        return std::string(text);
    std::string bytes;
    for (std::size_t place = 0; place < text.size(); ++place) {
        const auto lead = static_cast<unsigned char>(text[place]);
        if (lead < 0x80) {
            bytes += text[place];
            continue;
        }
        // The two lead bytes of U+0080 to U+00FF.
        if ((lead != 0xC2 && lead != 0xC3) || ++place == text.size())
            throw MrlIOException("Kvt::Mrl::MrlIO::fromCacheText: a text of the cache holds a foreign character");
        bytes += static_cast<char>((lead & 0x03) << 6 | (static_cast<unsigned char>(text[place]) & 0x3F));
    }
    return bytes;
}

std::string numberText(float value)
{
    return digitsOf(value, 9);
}

std::string numberText(double value)
{
    return digitsOf(value, 17);
}

template <class Number>
Number numberOf(std::string_view text)
{
    if (text.size() > 1 && text.front() == '+' && text[1] != '-')
        text.remove_prefix(1);
    Number number{};
    const auto result = std::from_chars(text.data(), text.data() + text.size(), number);
    if (result.ec != std::errc() || result.ptr != text.data() + text.size())
        throw boost::bad_lexical_cast(typeid(std::string), typeid(Number));
    return number;
}

template int numberOf<int>(std::string_view);
template std::int64_t numberOf<std::int64_t>(std::string_view);
template float numberOf<float>(std::string_view);
template double numberOf<double>(std::string_view);

} // namespace Kvt::Mrl::MrlIO
