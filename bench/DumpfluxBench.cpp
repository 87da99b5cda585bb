/// How long does it take to get what one region of 100,000 connections sees over 1,000 time ranges, with a new reader
/// that is opened outside the measurement? The floor reads the same arrays with a MorvaneReader, keeps them, and gathers
/// the values of the region in a plain loop. Both start with the connections known.

#include "Floor.h"
#include "Ratios.h"
#include "WellCase.h"

#include <mrlio/MrlIO.h>

#include <chrono>

namespace {

using namespace bench;
using namespace Kvt::Mrl::MrlIO;

constexpr int region = 1;

void BM_Region_library(benchmark::State& state)
{
    for (auto _ : state) {
        DumpfluxReader reader;
        reader.read(fluxCase().file);
        std::vector<double> values;
        std::vector<int> outer, inner;
        if (reader.numConnections() != FluxCase::connections)
            state.SkipWithError("connections are missing");
        const auto start = std::chrono::steady_clock::now();
        for (const double time : reader.startTimes()) {
            if (!reader.getArray("OIL", time, values, outer, inner, region) || values.size() != FluxCase::connections)
                state.SkipWithError("the array could not be read");
        }
        state.SetIterationTime(std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count());
    }
    state.SetItemsProcessed(state.iterations() * FluxCase::ranges * FluxCase::connections);
}

/// keeps   whether the arrays stay in memory, as the reader's do for the next question
void gatherByHand(benchmark::State& state, bool keeps)
{
    const FluxCase& flux = fluxCase();
    for (auto _ : state) {
        std::vector<std::vector<double>> arrays(keeps ? FluxCase::ranges : 1);
        std::vector<double> values(FluxCase::connections);
        const auto start = std::chrono::steady_clock::now();
        const auto reader = MorvaneReaderUtils::createReader(flux.file, false);
        for (std::size_t range = 0; range < FluxCase::ranges; ++range) {
            const KeywordHeader header("OIL", FluxCase::connections, ValueType::DOUB, flux.fluxPositions[range]);
            std::vector<double>& array = arrays[keeps ? range : 0];
            reader->readDataVector(header, array);
            std::size_t n = 0;
            for (const std::int32_t connection : flux.outward)
                values[n++] = array[static_cast<std::size_t>(connection)];
            for (const std::int32_t connection : flux.inward)
                values[n++] = -array[static_cast<std::size_t>(connection)];
            benchmark::DoNotOptimize(values.data());
        }
        state.SetIterationTime(std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count());
    }
    state.SetItemsProcessed(state.iterations() * FluxCase::ranges * FluxCase::connections);
}

void BM_Region_floor(benchmark::State& state)
{
    gatherByHand(state, true);
}

/// Less than the task: nothing is kept. It tells what keeping 800 MB costs.
void BM_Region_forgetful(benchmark::State& state)
{
    gatherByHand(state, false);
}

BENCHMARK(BM_Region_library)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(BM_Region_floor)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(BM_Region_forgetful)->UseManualTime()->Unit(benchmark::kMillisecond);

} // namespace

int main(int argumentCount, char** arguments)
{
    return bench::run(argumentCount, arguments, {{"_library", "_floor", "at most 1.4"}});
}
