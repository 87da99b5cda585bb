#include "summary/SummarySpecFile.h"

#include "core/Fail.h"
#include "service/Text.h"
#include "summary/FileChecksum.h"

#include <mrlio/FileIdentifiers.h>
#include <mrlio/KeywordHeader.h>
#include <mrlio/MorvaneReader.h>
#include <mrlio/MorvaneReaderUtils.h>
#include <mrlio/MrlIOException.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <string_view>
#include <utility>

namespace Kvt::Mrl::MrlIO {

namespace {

/// The arrays of the file that are put together when all of it has been read.
struct SpecArrays
{
    std::vector<std::string> restart;
    std::vector<std::string> keywords;
    std::vector<std::string> names;
    std::vector<int> nums;
    std::vector<std::string> lgrs;
    std::vector<int> numlx;
    std::vector<int> numly;
    std::vector<int> numlz;
    std::vector<std::string> units;
    std::vector<std::string> measurements;
};

struct TextKeyword
{
    std::string_view keyword;
    std::vector<std::string> SpecArrays::*array;
};

/// Both kinds of names share one place: whichever comes last counts.
constexpr std::array textKeywords{
    TextKeyword{"RESTART", &SpecArrays::restart},
    TextKeyword{"KEYWORDS", &SpecArrays::keywords},
    TextKeyword{"WGNAMES", &SpecArrays::names},
    TextKeyword{"NAMES", &SpecArrays::names},
    TextKeyword{"LGRS", &SpecArrays::lgrs},
    TextKeyword{"UNITS", &SpecArrays::units},
    TextKeyword{"MEASRMNT", &SpecArrays::measurements},
};

struct IntegerKeyword
{
    std::string_view keyword;
    std::vector<int> SpecArrays::*array;
};

constexpr std::array integerKeywords{
    IntegerKeyword{"NUMS", &SpecArrays::nums},
    IntegerKeyword{"NUMLX", &SpecArrays::numlx},
    IntegerKeyword{"NUMLY", &SpecArrays::numly},
    IntegerKeyword{"NUMLZ", &SpecArrays::numlz},
};

template <class T>
void readArray(MorvaneReader& reader, const KeywordHeader& header, std::vector<T>& values)
{
    constexpr const char* errorReading = "SummarySpecData::read(): error reading ";
    try {
        if (reader.readDataVector(header, values))
            return;
    } catch (const MrlIOException& cause) {
        fail<SummaryReaderException>(errorReading, header.name(), '\n', cause.what());
    }
    fail<SummaryReaderException>(errorReading, header.name());
}

void readIntehead(MorvaneReader& reader, const KeywordHeader& header, SpecDescription& description)
{
    std::vector<int> values;
    try {
        if (reader.readDataVector(header, values))
            description.intehead = std::move(values);
    } catch (const MrlIOException&) {
        // Nobody needs it to read the summary.
    }
}

void readDimensions(MorvaneReader& reader, const KeywordHeader& header, SpecDescription& description)
{
    std::vector<int> values;
    readArray(reader, header, values);
    if (values.empty())
        throw SummaryReaderException("DIMENS keyword contains less than 1 value");
    // The text says 4 although 3 values pass: NZ is 0 then.
    if (values.size() < 3)
        throw SummaryReaderException("DIMENS keyword contains less than 4 value");
    description.nx = values[1];
    description.ny = values[2];
    description.nz = values.size() > 3 ? values[3] : 0;
}

void readStart(MorvaneReader& reader, const KeywordHeader& header, SpecDescription& description)
{
    std::vector<int> values;
    readArray(reader, header, values);
    if (values.size() < 3)
        throw SummaryReaderException("STARTDAT keyword contains less than 3 value");
    description.startDate = Service::YearMonthDay(values[2], values[1], values[0]);
    description.startTime = {};
    if (values.size() == 6) {
        const int microseconds = values[5]; // within the minute
        description.startTime = Service::HourMinuteSecondMillisecond(values[3], values[4], microseconds / 1000000,
                                                                     (microseconds / 1000) % 1000);
    }
}

void readKeyword(MorvaneReader& reader, const KeywordHeader& header, SpecDescription& description, SpecArrays& arrays)
{
    const std::string& name = header.name();
    const auto isThis = [&name](const auto& row) { return row.keyword == name; };
    if (const auto text = std::ranges::find_if(textKeywords, isThis); text != textKeywords.end())
        readArray(reader, header, arrays.*(text->array));
    else if (const auto number = std::ranges::find_if(integerKeywords, isThis); number != integerKeywords.end())
        readArray(reader, header, arrays.*(number->array));
    else if (name == "INTEHEAD")
        readIntehead(reader, header, description);
    else if (name == "DIMENS")
        readDimensions(reader, header, description);
    else if (name == "STARTDAT")
        readStart(reader, header, description);
    else if (name == "LGRNAMES")
        readArray(reader, header, description.lgrNames);
    else if (name == "TIMESTMP" || name == "RUNTIMEI")
        description.hasTimeStampOrRunTime = true;
}

/// The texts speak of DIMENS, but it is KEYWORDS that counts.
void checkCounts(const SpecArrays& arrays)
{
    const std::size_t vectors = arrays.keywords.size();
    const auto check = [](bool fits, const char* keyword) {
        if (!fits)
            fail<SummaryReaderException>("SummarySpecData::read(): number of ", keyword, " inconsistent with DIMENS");
    };
    const auto noneOrAll = [&](std::size_t count, const char* keyword) {
        check(count == 0 || count == vectors, keyword);
    };
    noneOrAll(arrays.names.size(), "WGNAMES/NAMES");
    noneOrAll(arrays.nums.size(), "NUMS");
    noneOrAll(arrays.lgrs.size(), "LGRS");
    noneOrAll(arrays.numlx.size(), "NUMLX");
    noneOrAll(arrays.numly.size(), "NUMLY");
    noneOrAll(arrays.numlz.size(), "NUMLZ");
    check(arrays.units.size() == vectors, "UNITS");
    const std::size_t measurements = arrays.measurements.size();
    check(measurements == 0 || (vectors > 0 && measurements % vectors == 0), "MEASRMNT");
}

std::string joinRestart(const std::vector<std::string>& pieces)
{
    std::string restart;
    for (const std::string& piece : pieces)
        restart += piece;
    Service::StringTrimSpace(restart, false, true);
    return restart;
}

/// Puts the chunks of one measurement together, each at its column; holes stay blank.
std::string joinMeasurement(const std::string* chunks, std::size_t count)
{
    constexpr std::size_t chunkWidth = 8;
    std::string text;
    for (std::size_t j = 0; j < count; ++j) {
        if (chunks[j].empty())
            continue;
        if (text.size() < chunkWidth * j)
            text.resize(chunkWidth * j, ' ');
        text += chunks[j];
    }
    return text;
}

void fillUnits(const std::vector<std::string>& texts, InternedTexts& units)
{
    InternedTexts::Filler filler(units, texts.size());
    for (const std::string& text : texts)
        filler.append(text);
}

void fillMeasurements(const std::vector<std::string>& chunks, std::size_t vectors, InternedTexts& measurements)
{
    if (chunks.empty())
        return;
    const std::size_t chunksPerVector = chunks.size() / vectors;
    InternedTexts::Filler filler(measurements, vectors);
    for (std::size_t i = 0; i < vectors; ++i)
        filler.append(joinMeasurement(&chunks[i * chunksPerVector], chunksPerVector));
}

std::vector<SummaryVectorIDParams> makeVectors(const SpecArrays& arrays)
{
    const std::string noText;
    const auto textAt = [&noText](const std::vector<std::string>& texts, std::size_t i) -> const std::string& {
        return texts.empty() ? noText : texts[i];
    };
    const auto numberAt = [](const std::vector<int>& numbers, std::size_t i) {
        return numbers.empty() ? -1 : numbers[i];
    };
    std::vector<SummaryVectorIDParams> ids;
    ids.reserve(arrays.keywords.size());
    for (std::size_t i = 0; i < arrays.keywords.size(); ++i) {
        ids.emplace_back(arrays.keywords[i], textAt(arrays.names, i), numberAt(arrays.nums, i), textAt(arrays.lgrs, i),
                         numberAt(arrays.numlx, i), numberAt(arrays.numly, i), numberAt(arrays.numlz, i));
    }
    return ids;
}

/// A blank keyword is a name like any other: its run stands under the empty name.
PlaceRunsByKeyword findRuns(const std::vector<std::string>& keywords)
{
    PlaceRunsByKeyword runs;
    PlaceRuns* current = nullptr;
    for (std::size_t i = 0; i < keywords.size(); ++i) {
        const int place = static_cast<int>(i);
        if (current && keywords[i] == keywords[i - 1]) {
            current->back().second = place;
        } else {
            current = &runs[keywords[i]];
            current->emplace_back(place, place);
        }
    }
    return runs;
}

} // namespace

SummarySpecDataImpl readSummarySpecFile(const std::string& path)
{
    SummarySpecDataImpl spec;
    SpecDescription& description = spec.description;
    description.path = path;
    description.formatted = FileIdentifiers::Summary::isFormatted(path);
    const auto reader = MorvaneReaderUtils::createReader(path, description.formatted);
    if (!reader)
        fail<SummaryReaderException>("SummarySpecData::read(): error reading ", path);

    SpecArrays arrays;
    for (KeywordHeader header; reader->readNextKeywordHeader(header);)
        readKeyword(*reader, header, description, arrays);

    checkCounts(arrays);
    description.restart = joinRestart(arrays.restart);
    fillUnits(arrays.units, spec.units);
    fillMeasurements(arrays.measurements, arrays.keywords.size(), spec.measurements);
    // They are the larger part of the file, and not needed any more.
    arrays.units = arrays.measurements = std::vector<std::string>();
    spec.setVectors(makeVectors(arrays));
    spec.runs = findRuns(arrays.keywords);
    description.checksum = crc32OfFile(path);
    return spec;
}

} // namespace Kvt::Mrl::MrlIO
