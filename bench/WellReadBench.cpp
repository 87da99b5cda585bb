/// How long does it take to open an RFT file of 2,000 dates, 50 wells and 20 arrays? By a scan, the floor is a hand loop
/// over headers and record marks through a window of 256 KiB; by the cache, the floor is that scan. And how long to get
/// the arrays of one date? The floor reads the same arrays with a MorvaneReader.

#include "Floor.h"
#include "Ratios.h"
#include "WellCase.h"

#include <mrlio/MrlIO.h>

#include <chrono>
#include <cstring>

namespace {

using namespace bench;
using namespace Kvt::Mrl::MrlIO;

constexpr int wantedDate = WellCase::dates / 2;

void flushCache()
{
    RFTReaderEnvironment::flushContentIndexCache(wellCase().directory, wellCase().name);
}

/// The time of an opening, with the cache as it was left before it.
void open(benchmark::State& state, bool withCache)
{
    RFTReader reader;
    reader.read(wellCase().file); // leaves the cache
    for (auto _ : state) {
        if (!withCache)
            flushCache();
        const auto start = std::chrono::steady_clock::now();
        reader.read(wellCase().file);
        state.SetIterationTime(std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count());
        if (reader.dates().size() != WellCase::dates || reader.wells().size() != WellCase::wells)
            state.SkipWithError("reports are missing");
    }
}

/// Writing the cache is part of it.
void BM_Scan_library(benchmark::State& state)
{
    open(state, false);
}

void BM_Scan_floor(benchmark::State& state)
{
    HandReader reader(wellCase().file);
    for (auto _ : state) {
        const auto start = std::chrono::steady_clock::now();
        std::int64_t position = 0, count = 0;
        while (const char* header = reader.at(position, 24)) {
            std::uint32_t elements = 0;
            std::memcpy(&elements, header + 12, 4);
            const int width = header[16] == 'C' ? 8 : 4;
            std::int64_t bytes = width * static_cast<std::int64_t>(swapped(elements));
            for (position += 24; bytes > 0;) {
                const std::int32_t mark = reader.integerAt(position);
                if (reader.integerAt(position + 4 + mark) != mark)
                    state.SkipWithError("framing");
                position += mark + 8;
                bytes -= mark;
            }
            ++count;
        }
        state.SetIterationTime(std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count());
        if (count != WellCase::keywords)
            state.SkipWithError("keywords are missing");
    }
}

void BM_Reopen_library(benchmark::State& state)
{
    open(state, true);
}

void BM_Reopen_floor(benchmark::State& state)
{
    open(state, false);
}

/// The first question about a date costs its loading, so each iteration takes a reader of its own, opened outside the
/// measurement.
void BM_Date_library(benchmark::State& state)
{
    std::vector<float> values;
    for (auto _ : state) {
        RFTReader reader;
        reader.read(wellCase().file);
        const auto start = std::chrono::steady_clock::now();
        const bool found = reader.getArray("PRESSURE", "WELL7", std::size_t{wantedDate}, values);
        state.SetIterationTime(std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count());
        if (!found || values.size() != WellCase::connections)
            state.SkipWithError("the array could not be read");
    }
}

void BM_Date_floor(benchmark::State& state)
{
    std::vector<float> floats;
    std::vector<int> integers;
    std::vector<std::string> texts;
    for (auto _ : state) {
        const auto start = std::chrono::steady_clock::now();
        const auto reader = MorvaneReaderUtils::createReader(wellCase().file, false);
        KeywordHeader header("DATE", 3, ValueType::INTE, wellCase().datePositions[wantedDate]);
        reader->setCurrentHeader(header);
        int wells = 0;
        while (reader->readNextKeywordHeader(header)) {
            if (header.valueType() == ValueType::REAL)
                reader->readDataVector(header, floats);
            else if (header.valueType() == ValueType::INTE)
                reader->readDataVector(header, integers);
            else
                reader->readDataVector(header, texts);
            if (header.name() == "TIME" && ++wells == WellCase::wells)
                break;
        }
        state.SetIterationTime(std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count());
        if (wells != WellCase::wells)
            state.SkipWithError("wells are missing");
    }
}

BENCHMARK(BM_Scan_library)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(BM_Scan_floor)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(BM_Reopen_library)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(BM_Reopen_floor)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(BM_Date_library)->UseManualTime()->Unit(benchmark::kMicrosecond)->Iterations(50);
BENCHMARK(BM_Date_floor)->UseManualTime()->Unit(benchmark::kMicrosecond)->Iterations(50);

} // namespace

int main(int argumentCount, char** arguments)
{
    return bench::run(argumentCount, arguments,
                      {{"_library", "_floor", "at most 1.4 for the scan, 1.0 for the cache, 1.5 for a date"}});
}
