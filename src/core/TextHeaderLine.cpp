#include "core/TextHeaderLine.h"

#include "core/Fail.h"
#include "service/FileUtils.h"
#include "service/Text.h"

#include <mrlio/MrlIOException.h>
#include <mrlio/ValueType.h>
#include <mrlio/service/FileName.h>

#include <cstdlib>
#include <limits>

namespace Kvt::Mrl::MrlIO {

namespace {

constexpr const char* where = "Kvt::Mrl::MrlIO::MorvaneAsciiReader::parseKeywordHeaderLine";

constexpr std::size_t nameColumn = 2, nameLength = 8;
constexpr std::size_t countColumn = 12, countEndColumn = 23;
constexpr std::size_t typeColumn = 25, typeLength = 4;
constexpr std::size_t shortestLine = 30;

struct Place
{
    const std::string& fileName;
    std::int64_t position;
};

std::string tailOf(const Place& place)
{
    const std::int64_t line = Service::FileUtils::ComputeLineNumber(Service::FileName(place.fileName), place.position);
    return "\nFile : " + place.fileName + "\nLine : " + std::to_string(line);
}

std::string trimmedColumns(const std::string& line, std::size_t column, std::size_t length)
{
    std::string text = line.substr(column, length);
    Service::StringTrimBlank(text, true, true);
    return text;
}

std::int64_t parseCount(std::string& line, const Place& place)
{
    line[countEndColumn] = '\0';
    const char* const text = line.c_str() + countColumn;
    char* stop = nullptr;
    const std::int64_t count = std::strtoll(text, &stop, 0);
    if ((*stop & ~0x20) != 0)
        fail<MrlIOException>(where, ": invalid array length ", text, tailOf(place));
    return count;
}

std::uint64_t magnitudeOf(std::int64_t count)
{
    return count < 0 ? 0 - static_cast<std::uint64_t>(count) : static_cast<std::uint64_t>(count);
}

ValueTypeInfo parseType(const std::string& line, const Place& place)
{
    try {
        return ValueTypeInfo(trimmedColumns(line, typeColumn, typeLength));
    } catch (const MrlIOException& error) {
        fail<MrlIOException>(error.what(), tailOf(place));
    }
}

struct HeaderLine
{
    std::string name;
    std::int64_t count;
    ValueTypeInfo type;
};

HeaderLine parseColumns(std::string& line, const Place& place)
{
    if (line.size() < shortestLine)
        fail<MrlIOException>(where, ": line too short to contain keyword header", tailOf(place));
    std::string name = trimmedColumns(line, nameColumn, nameLength);
    if (name.empty())
        fail<MrlIOException>(where, ": empty array name", tailOf(place));
    const std::int64_t count = parseCount(line, place);
    return {std::move(name), count, parseType(line, place)};
}

/// The count of both halves together. The columns can hold more than 64 bits do; such a count becomes the largest one,
/// which no file bears out.
std::int64_t foldedSize(std::int64_t multiplier, std::uint64_t remainder)
{
    constexpr auto largest = std::numeric_limits<std::int64_t>::max();
    const auto high = static_cast<std::uint64_t>(multiplier);
    if (high > std::uint64_t{largest} >> 31 || remainder > std::uint64_t{largest} - (high << 31))
        return largest;
    return static_cast<std::int64_t>((high << 31) + remainder);
}

void completeDoubleHeader(KeywordHeader& header, const HeaderLine& second, const Place& place)
{
    header.size(foldedSize(header.size(), magnitudeOf(second.count)));
    header.valueTypeInfo(second.type);
    header.second_keywordLargePos(place.position);
    if (second.name != header.name())
        fail<MrlIOException>(where, ": header name does not match X231 header", tailOf(place));
    if (second.count < 0 || second.type.type() == ValueType::X231)
        fail<MrlIOException>(where, ": header size should be positive", tailOf(place));
}

} // namespace

void parseTextHeaderLine(KeywordHeader& header, std::string& line, std::int64_t position, const std::string& fileName)
{
    const Place place{fileName, position};
    const HeaderLine parsed = parseColumns(line, place);
    // A walk that begins again at the first half meets that half with its own header in hand.
    const bool firstAgain = parsed.type.type() == ValueType::X231 && position == header.keywordLargePos();
    if (header.valueType() == ValueType::X231 && !firstAgain) {
        completeDoubleHeader(header, parsed, place);
        return;
    }
    header.name(parsed.name);
    header.size(static_cast<std::int64_t>(magnitudeOf(parsed.count)));
    header.valueTypeInfo(parsed.type);
    header.keywordLargePos(position);
    if (parsed.type.type() == ValueType::X231 && parsed.count >= 1)
        fail<MrlIOException>(where, ": header size should be negative", tailOf(place));
}

} // namespace Kvt::Mrl::MrlIO
