/// How long does it take to get a whole property of a grid with half its cells inactive? The floor reads the raw array
/// and scatters it in a plain loop over the cells.

#include "Floor.h"
#include "Ratios.h"
#include "RestartCase.h"

#include <mrlio/MrlIO.h>

#include <chrono>
#include <limits>

namespace {

using namespace bench;
using namespace Kvt::Mrl::MrlIO;

enum Pattern : int
{
    InRuns = 0,
    Scattered = 1
};

std::shared_ptr<RestartReader> open(const HalfActiveCase& half)
{
    auto init = InitReader::create(InitReader::cache_limit_default);
    init->read(half.initFile, false, half.initSpecFile, "");
    // One property is kept, so that each of two that are asked for in turn is loaded anew.
    auto reader = RestartReader::create(1);
    reader->read({half.dataFile}, false, half.specFile, init, nullptr);
    return reader;
}

void BM_Property_library(benchmark::State& state)
{
    const HalfActiveCase& half = halfActiveCase(state.range(0) == Scattered);
    const auto reader = open(half);
    const IPropertyDataAccess* const properties = reader->propertyData(0);
    std::vector<float> values;
    bool turn = false;
    properties->getAnyArray("SWAT", values);
    for (auto _ : state) {
        turn = !turn;
        if (!properties->getAnyArray(turn ? "PRESSURE" : "SWAT", values) || values.size() != HalfActiveCase::cells)
            state.SkipWithError("the property could not be read");
        benchmark::DoNotOptimize(values.data());
    }
}

void BM_Property_floor(benchmark::State& state)
{
    const HalfActiveCase& half = halfActiveCase(state.range(0) == Scattered);
    const auto reader = MorvaneReaderUtils::createReader(half.dataFile, false);
    const KeywordHeader header("PRESSURE", half.activeCount, ValueType::REAL, half.pressurePosition);
    std::vector<float> stored, values;
    for (auto _ : state) {
        reader->readDataVector(header, stored);
        values.resize(HalfActiveCase::cells);
        std::size_t next = 0;
        for (std::size_t cell = 0; cell < values.size(); ++cell)
            values[cell] = half.active[cell] ? stored[next++] : std::numeric_limits<float>::lowest();
        benchmark::DoNotOptimize(values.data());
    }
}

BENCHMARK(BM_Property_library)->Arg(InRuns)->Arg(Scattered)->UseRealTime()->Unit(benchmark::kMillisecond);
BENCHMARK(BM_Property_floor)->Arg(InRuns)->Arg(Scattered)->UseRealTime()->Unit(benchmark::kMillisecond);

} // namespace

int main(int argumentCount, char** arguments)
{
    return bench::run(argumentCount, arguments, {{"_library", "_floor", "at most 1.4"}});
}
