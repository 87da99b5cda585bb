#include "summary/SummaryWriterSpecContent.h"

#include "core/Fail.h"
#include "service/Text.h"

#include <mrlio/KeywordWriter.h>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <stdexcept>
#include <vector>

namespace Kvt::Mrl::MrlIO {

namespace {

constexpr std::size_t charWidth = 8;
constexpr std::size_t restartPieces = 9;
constexpr int unitSystemCount = 4;
constexpr std::size_t runtimeIntegers = 50;
constexpr std::size_t runtimeDoubles = 5;
constexpr double millisecondsPerDay = 86400000.0;

// The calendar of the dates in RUNTIMEI.
constexpr int firstYear = 1400;
constexpr int lastYear = 9999;

using SummaryVectors = SummaryWriterVectors;

std::vector<int> integers(const SummaryVectors& vectors, int SummaryVectorRow::*field)
{
    std::vector<int> values;
    values.reserve(vectors.count());
    vectors.forEachRow([&](const SummaryGridVectors&, const SummaryVectorRow& row) { values.push_back(row.*field); });
    return values;
}

std::vector<std::string> texts(const SummaryVectors& vectors, std::string SummaryVectorRow::*field)
{
    std::vector<std::string> values;
    values.reserve(vectors.count());
    vectors.forEachRow([&](const SummaryGridVectors&, const SummaryVectorRow& row) { values.push_back(row.*field); });
    return values;
}

std::size_t longest(const SummaryVectors& vectors, std::string SummaryVectorRow::*field)
{
    std::size_t length = 0;
    vectors.forEachRow([&](const SummaryGridVectors&, const SummaryVectorRow& row) {
        length = std::max(length, (row.*field).size());
    });
    return length;
}

/// Appends a text as exactly that many pieces of 8 characters: blank ones behind a short text, the rest of a long one
/// is dropped.
void appendPieces(const std::string& text, std::size_t count, std::vector<std::string>& pieces)
{
    std::vector<std::string> own;
    Service::StringSplit(text, charWidth, own);
    own.resize(count);
    pieces.insert(pieces.end(), own.begin(), own.end());
}

void writeHead(KeywordWriter& out, const SummaryCaseFacts& summaryCase)
{
    const int units = summaryCase.grid.getUnits();
    if (units >= unitSystemCount)
        fail<std::runtime_error>("Invalid grid units: ", units);
    out.write(KeywordINTE("INTEHEAD", {units + 1, summaryCase.simulatorValue}));
}

void writeRestart(KeywordWriter& out, const std::string& restartRoot)
{
    std::vector<std::string> pieces;
    appendPieces(restartRoot, restartPieces, pieces);
    out.write(KeywordCHAR("RESTART", pieces));
}

void writeDimensions(KeywordWriter& out, const SummaryCaseFacts& summaryCase, const SummaryVectors& vectors)
{
    const GridSpec& grid = summaryCase.grid;
    out.write(KeywordINTE("DIMENS", {static_cast<int>(vectors.count()), grid.getNx(), grid.getNy(), grid.getNz(), 0,
                                     summaryCase.restartReportStep}));
}

void writeNames(KeywordWriter& out, const SummaryVectors& vectors, bool longNames)
{
    const std::vector<std::string> names = texts(vectors, &SummaryVectorRow::name);
    const std::size_t width = std::max(longest(vectors, &SummaryVectorRow::name), charWidth);
    if (width == charWidth && !longNames) {
        out.write(KeywordCHAR("WGNAMES", names));
        return;
    }
    KeywordTmpl<ValueType::C0nn> keyword("NAMES", names);
    keyword.valueTypeInfo(ValueTypeInfo(ValueType::C0nn, static_cast<int>(width)));
    out.write(keyword);
}

void writePlaces(KeywordWriter& out, const SummaryVectors& vectors)
{
    std::vector<std::string> grids;
    grids.reserve(vectors.count());
    vectors.forEachRow([&](const SummaryGridVectors& block, const SummaryVectorRow&) { grids.push_back(block.grid); });
    out.write(KeywordCHAR("LGRS", grids));
    out.write(KeywordINTE("NUMLX", integers(vectors, &SummaryVectorRow::x)));
    out.write(KeywordINTE("NUMLY", integers(vectors, &SummaryVectorRow::y)));
    out.write(KeywordINTE("NUMLZ", integers(vectors, &SummaryVectorRow::z)));
}

void writeMeasurements(KeywordWriter& out, const SummaryVectors& vectors)
{
    const bool hasSome = std::any_of(vectors.blocks().begin(), vectors.blocks().end(),
                                     [](const auto& block) { return block->hasMeasurements && !block->rows.empty(); });
    if (!hasSome)
        return;
    const std::size_t pieceCount = (longest(vectors, &SummaryVectorRow::measurement) + charWidth - 1) / charWidth;
    std::vector<std::string> pieces;
    pieces.reserve(vectors.count() * pieceCount);
    vectors.forEachRow([&](const SummaryGridVectors&, const SummaryVectorRow& row) {
        appendPieces(row.measurement, pieceCount, pieces);
    });
    out.write(KeywordCHAR("MEASRMNT", pieces));
}

void writeStart(KeywordWriter& out, const SummaryCaseFacts& summaryCase)
{
    const Service::YearMonthDay& date = summaryCase.startDate;
    const Service::HourMinuteSecondMillisecond& time = summaryCase.startTime;
    out.write(KeywordINTE("STARTDAT", {date.Day(), date.Month(), static_cast<int>(date.Year()), time.Hour(),
                                       time.Minute(), (time.Second() * 1000 + time.Millisecond()) * 1000}));
}

void writeLocalGrids(KeywordWriter& out, const SummaryVectors& vectors)
{
    std::vector<std::string> grids;
    std::vector<int> vectorCounts; // each grid's vectors and the two times
    for (const auto& block : vectors.blocks()) {
        if (block->grid.empty())
            continue;
        grids.push_back(block->grid);
        vectorCounts.push_back(static_cast<int>(block->rows.size()) + 2);
    }
    out.write(KeywordCHAR("LGRNAMES", grids));
    out.write(KeywordINTE("LGRVEC", vectorCounts));
    out.write(KeywordINTE("LGRTIMES", std::vector<int>(grids.size(), 0)));
}

/// The date at the elapsed time; none beyond the calendar.
std::optional<std::chrono::year_month_day> currentDate(const SummaryCaseFacts& summaryCase, float elapsedDays)
{
    using namespace std::chrono;
    const Service::YearMonthDay& date = summaryCase.startDate;
    if (date.Year() < firstYear || date.Year() > lastYear)
        return std::nullopt;
    const sys_days start = year(static_cast<int>(date.Year())) / month(date.Month()) / day(date.Day());
    const Service::HourMinuteSecondMillisecond& time = summaryCase.startTime;
    const double seconds = (time.Hour() * 60.0 + time.Minute()) * 60.0 + time.Second(); // minutes have no upper limit
    const double passed = std::floor(elapsedDays + (seconds * 1000.0 + time.Millisecond()) / millisecondsPerDay);
    const sys_days end = year(lastYear) / December / 31;
    if (passed > static_cast<double>((end - start).count()))
        return std::nullopt;
    return year_month_day(start + days(static_cast<int>(passed)));
}

void setTime(std::vector<int>& values, std::size_t first, const std::optional<LocalTime>& time)
{
    if (!time)
        return;
    const int parts[] = {time->year, time->month, time->day, time->hour, time->minute, time->second};
    std::copy(std::begin(parts), std::end(parts), values.begin() + static_cast<std::ptrdiff_t>(first));
}

void writeRuntime(KeywordWriter& out, const SummaryCaseFacts& summaryCase, const SummaryRunFacts& run)
{
    std::vector<int> values(runtimeIntegers, 0);
    values[0] = run.isFinal ? 2 : 1;
    values[1] = summaryCase.restartReportStep;
    values[2] = run.reportStep;
    setTime(values, 3, run.wallStart);
    setTime(values, 9, run.now);
    if (const auto date = currentDate(summaryCase, run.elapsedDays)) {
        values[15] = static_cast<int>(static_cast<unsigned>(date->day()));
        values[16] = static_cast<int>(static_cast<unsigned>(date->month()));
        values[17] = static_cast<int>(date->year());
    }
    out.write(KeywordINTE("RUNTIMEI", values));
    out.write(KeywordTmpl<ValueType::DOUB>("RUNTIMED", std::vector<double>(runtimeDoubles, 0.0)));
}

} // namespace

void writeSummarySpec(KeywordWriter& out, const SummaryCaseFacts& summaryCase, const SummaryRunFacts& run,
                      const SummaryVectors& vectors)
{
    if (summaryCase.writeINTEHEAD)
        writeHead(out, summaryCase);
    writeRestart(out, summaryCase.restartRoot);
    writeDimensions(out, summaryCase, vectors);
    out.write(KeywordCHAR("KEYWORDS", texts(vectors, &SummaryVectorRow::keyword)));
    writeNames(out, vectors, summaryCase.longNames);
    out.write(KeywordINTE("NUMS", integers(vectors, &SummaryVectorRow::num)));
    if (vectors.hasLocalGrid())
        writePlaces(out, vectors);
    out.write(KeywordCHAR("UNITS", texts(vectors, &SummaryVectorRow::units)));
    writeMeasurements(out, vectors);
    writeStart(out, summaryCase);
    if (vectors.hasLocalGrid())
        writeLocalGrids(out, vectors);
    writeRuntime(out, summaryCase, run);
}

} // namespace Kvt::Mrl::MrlIO
