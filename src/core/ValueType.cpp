#include <mrlio/ValueType.h>

#include "core/EnumLabels.h"
#include "core/Fail.h"
#include "core/ValueTypeDetails.h"
#include "core/ValueTypeLayout.h"
#include "service/Text.h"

#include <mrlio/MrlIOException.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdint>
#include <string_view>
#include <system_error>

namespace Kvt::Mrl::MrlIO {

namespace {

constexpr std::array<std::string_view, 8> labels{"DOUB", "REAL", "INTE", "LOGI", "CHAR", "MESS", "C0nn", "X231"};
static_assert(labels.size() == valueTypeLayouts.size());

constexpr std::size_t longestTypeText = 4;
constexpr std::string_view widthPrefix = "C0";

/// The text as one number, with NUL for what it is short of.
constexpr std::uint32_t packed(std::string_view text)
{
    std::uint32_t number = 0;
    for (std::size_t i = 0; i < longestTypeText; ++i)
        number = number << 8 | (i < text.size() ? static_cast<unsigned char>(text[i]) : 0u);
    return number;
}

/// One comparison a label, since a type is parsed for every header that is read.
constexpr auto packedLabels = [] {
    std::array<std::uint32_t, labels.size()> numbers{};
    for (std::size_t i = 0; i < labels.size(); ++i)
        numbers[i] = packed(labels[i]);
    return numbers;
}();

[[noreturn]] void failParsing(std::string_view text)
{
    fail<MrlIOException>("Kvt::Mrl::MrlIO::ValueTypeInfo::ValueTypeInfo",
                         ": string cannot be parsed into ValueTypeInfo: \"", text, "\"");
}

/// A whole decimal number with an optional sign, of either kind.
bool parseWidth(std::string_view digits, int& width)
{
    if (digits.size() > 1 && digits.front() == '+' && Service::isDigit(digits[1]))
        digits.remove_prefix(1);
    const char* const end = digits.data() + digits.size();
    const auto result = std::from_chars(digits.data(), end, width);
    return result.ec == std::errc() && result.ptr == end;
}

} // namespace

const std::vector<Service::EnumInfo<ValueType>>& ValueType::EnumInfos()
{
    static const auto* const types = makeEnumInfos<ValueType>(labels);
    return *types;
}

ValueTypeInfo::ValueTypeInfo(const std::string& text)
    : ValueTypeInfo(ValueTypeImplementationDetails::parseTypeText(text))
{}

namespace ValueTypeImplementationDetails {

int binaryStorageSize(const ValueTypeInfo& info)
{
    static constexpr const char* where = "Kvt::Mrl::MrlIO::ValueTypeImplementationDetails::binaryStorageSize";
    const ValueTypeLayout* const layout = findValueTypeLayout(info.type());
    if (layout == nullptr)
        fail<MrlIOException>(where, ": unhandled type");
    if (layout->readWidth != elementWidthVaries)
        return layout->readWidth;
    if (info.intData() < 0)
        fail<MrlIOException>(where, ": invalid C0nn size");
    return info.intData();
}

ValueTypeInfo parseTypeText(std::string_view text)
{
    if (text.size() > longestTypeText)
        failParsing(text);
    std::array<char, longestTypeText> upperCase{};
    for (std::size_t i = 0; i < longestTypeText && i < text.size(); ++i)
        upperCase[i] = Service::toUpper(text[i]);
    const std::string_view upper(upperCase.data(), text.size());

    // The label C0nn is in mixed case, so it never matches.
    const auto* const label = std::find(packedLabels.begin(), packedLabels.end(), packed(upper));
    if (label != packedLabels.end())
        return {static_cast<ValueType::Enum>(label - packedLabels.begin()), -1};
    int width = -1;
    if (!upper.starts_with(widthPrefix) || !parseWidth(upper.substr(widthPrefix.size()), width))
        failParsing(text);
    return {ValueType::C0nn, width};
}

std::string_view trimmedText(const char* bytes, int count)
{
    // Most texts are a few characters long: plain loops beat searches here.
    const char* first = bytes;
    const char* const end = bytes + count;
    while (first != end && *first == ' ')
        ++first;
    const char* behindLast = first;
    for (const char* c = first; c != end && *c != '\0'; ++c)
        if (*c != ' ')
            behindLast = c + 1;
    return {first, static_cast<std::size_t>(behindLast - first)};
}

bool readUnformattedString(Service::BufferedBinaryFileReader& file, int width, std::string& out)
{
    if (width < 0 || width > longestString)
        return false;
    const char* const bytes = file.view(width);
    if (bytes == nullptr)
        return false;
    out.assign(trimmedText(bytes, width));
    return true;
}

bool readUnformattedStrings(Service::BufferedBinaryFileReader& file, int width, std::string* out, std::int64_t count)
{
    for (std::int64_t i = 0; i < count; ++i)
        if (!readUnformattedString(file, width, out[i]))
            return false;
    return true;
}

} // namespace ValueTypeImplementationDetails

} // namespace Kvt::Mrl::MrlIO
