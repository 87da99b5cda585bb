/// How long does it take to get a summary vector over 100,000 mini steps of 2,000 vectors? The floor is one positional
/// read of the needed bytes a step. And how long to walk all headers of that file? The floor is a hand loop over headers
/// and record marks through a window of 256 KiB.

#include "Floor.h"
#include "Ratios.h"
#include "SummaryCase.h"

#include <mrlio/MrlIO.h>

#include <fcntl.h>
#include <unistd.h>

#include <chrono>
#include <cstring>

namespace {

using namespace bench;
using namespace Kvt::Mrl::MrlIO;

constexpr int allWells = SummaryCase::wells, oneVector = 1;

SummaryVectorIDParams wantedVector(std::int64_t count)
{
    return count == allWells ? SummaryVectorIDParams("WOPR", "W1", SummaryCase::wellPlace + 1, "", -1, -1, -1)
                             : SummaryVectorIDParams("FOPR", "", SummaryCase::singlePlace + 1, "", -1, -1, -1);
}

/// Only the first request costs anything, so each iteration takes a reader of its own, made outside the measurement.
void BM_Vector_library(benchmark::State& state)
{
    const SummaryCase& large = summaryCase();
    const auto spec = std::make_shared<SummarySpecData>(large.specFile);
    for (auto _ : state) {
        const auto reader = SimpleSummaryReader::create(spec, {large.dataFile}, large.directory, large.name,
                                                        ISummaryReader::ReadWriteCache);
        const auto start = std::chrono::steady_clock::now();
        const auto values = reader->getValues(wantedVector(state.range(0)));
        state.SetIterationTime(std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count());
        if (!values || values->size() != SummaryCase::miniSteps)
            state.SkipWithError("the vector could not be read");
    }
    state.SetItemsProcessed(state.iterations() * SummaryCase::miniSteps);
}

void BM_Vector_floor(benchmark::State& state)
{
    const auto count = static_cast<std::size_t>(state.range(0));
    const int place = count == allWells ? SummaryCase::wellPlace : SummaryCase::singlePlace;
    const Descriptor file(summaryCase().dataFile, O_RDONLY);
    for (auto _ : state) {
        std::vector<std::vector<float>> columns(count);
        for (auto& column : columns)
            column.reserve(SummaryCase::miniSteps);
        const auto start = std::chrono::steady_clock::now();
        std::uint32_t bytes[allWells];
        for (int step = 0; step < SummaryCase::miniSteps; ++step) {
            if (::pread(file.number(), bytes, 4 * count, SummaryCase::valuePosition(step, place)) < 0)
                state.SkipWithError("read");
            for (std::size_t n = 0; n < count; ++n) {
                const std::uint32_t word = swapped(bytes[n]);
                float value = 0.0F;
                std::memcpy(&value, &word, 4);
                columns[n].push_back(value);
            }
        }
        state.SetIterationTime(std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count());
        benchmark::DoNotOptimize(columns.data());
    }
    state.SetItemsProcessed(state.iterations() * SummaryCase::miniSteps);
}

constexpr std::int64_t headerCount = 2 * SummaryCase::miniSteps + SummaryCase::reportSteps;

void BM_Headers_library(benchmark::State& state)
{
    const auto reader = MorvaneReaderUtils::createReader(summaryCase().dataFile, false);
    for (auto _ : state) {
        KeywordHeader start, header;
        reader->setCurrentHeader(start);
        std::int64_t count = 0;
        while (reader->readNextKeywordHeader(header))
            ++count;
        if (count != headerCount)
            state.SkipWithError("headers are missing");
    }
    state.SetItemsProcessed(state.iterations() * headerCount);
}

void BM_Headers_floor(benchmark::State& state)
{
    HandReader reader(summaryCase().dataFile);
    for (auto _ : state) {
        std::int64_t position = 0, count = 0;
        while (const char* header = reader.at(position, 24)) {
            std::uint32_t elements = 0;
            std::memcpy(&elements, header + 12, 4);
            benchmark::DoNotOptimize(header[20]);
            std::int64_t bytes = 4 * static_cast<std::int64_t>(swapped(elements));
            for (position += 24; bytes > 0;) {
                const std::int32_t mark = reader.integerAt(position);
                if (reader.integerAt(position + 4 + mark) != mark)
                    state.SkipWithError("framing");
                position += mark + 8;
                bytes -= mark;
            }
            ++count;
        }
        if (count != headerCount)
            state.SkipWithError("headers are missing");
    }
    state.SetItemsProcessed(state.iterations() * headerCount);
}

BENCHMARK(BM_Vector_library)->Arg(oneVector)->Arg(allWells)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(BM_Vector_floor)->Arg(oneVector)->Arg(allWells)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(BM_Headers_library)->UseRealTime()->Unit(benchmark::kMillisecond);
BENCHMARK(BM_Headers_floor)->UseRealTime()->Unit(benchmark::kMillisecond);

} // namespace

int main(int argumentCount, char** arguments)
{
    return bench::run(argumentCount, arguments, {{"_library", "_floor", "at most 1.5 for vectors, 1.4 for headers"}});
}
