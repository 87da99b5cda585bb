/// How long does it take to open a case of 10,000 report steps of 20 arrays? Through its index file, the floor is to
/// read that file's arrays; by a scan, to read every array of the data once. And does an array's step or place matter?
/// Each array is read by a new reader, opened outside the measurement; the floor is the first array of a case of a
/// tenth of the steps.

#include "Floor.h"
#include "Ratios.h"
#include "RestartCase.h"

#include <mrlio/MrlIO.h>

#include <chrono>

namespace {

using namespace bench;
using namespace Kvt::Mrl::MrlIO;

constexpr int manySteps = 10000, fewSteps = 1000;

/// All arrays of a file, each into a vector that is used again.
class ArrayPass
{
public:
    void run(const std::string& file)
    {
        const auto reader = MorvaneReaderUtils::createReader(file, false);
        KeywordHeader header;
        while (reader->readNextKeywordHeader(header))
            read(*reader, header);
    }

private:
    void read(MorvaneReader& reader, const KeywordHeader& header)
    {
        switch (header.valueType()) {
        case ValueType::DOUB:
            reader.readDataVector(header, doubles_);
            break;
        case ValueType::REAL:
            reader.readDataVector(header, floats_);
            break;
        case ValueType::INTE:
        case ValueType::LOGI:
            reader.readDataVector(header, integers_);
            break;
        default:
            reader.readDataVector(header, texts_);
        }
    }

    std::vector<double> doubles_;
    std::vector<float> floats_;
    std::vector<int> integers_;
    std::vector<std::string> texts_;
};

std::shared_ptr<RestartReader> open(const StepsCase& steps, const std::string& specFile)
{
    auto reader = RestartReader::create(RestartReader::cache_limit_default);
    reader->read({steps.dataFile}, false, specFile, nullptr, nullptr);
    return reader;
}

void openAgain(benchmark::State& state, bool bySpecFile)
{
    const StepsCase& steps = stepsCase(manySteps);
    for (auto _ : state) {
        const auto start = std::chrono::steady_clock::now();
        const auto reader = open(steps, bySpecFile ? steps.specFile : std::string());
        state.SetIterationTime(std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count());
        if (reader->maxIndex() != manySteps - 1)
            state.SkipWithError("steps are missing");
    }
}

void readAgain(benchmark::State& state, const std::string& file)
{
    ArrayPass pass;
    for (auto _ : state) {
        const auto start = std::chrono::steady_clock::now();
        pass.run(file);
        state.SetIterationTime(std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count());
    }
}

void BM_OpenByIndexFile_library(benchmark::State& state)
{
    openAgain(state, true);
}

void BM_OpenByIndexFile_floor(benchmark::State& state)
{
    readAgain(state, stepsCase(manySteps).specFile);
}

void BM_OpenByScan_library(benchmark::State& state)
{
    openAgain(state, false);
}

void BM_OpenByScan_floor(benchmark::State& state)
{
    readAgain(state, stepsCase(manySteps).dataFile);
}

/// Opening a large case leaves nothing else in the processor's caches, opening a small one leaves all of it there.
void coolCaches()
{
    static std::vector<char> memory(64 * 1024 * 1024);
    for (std::size_t n = 0; n < memory.size(); n += 64)
        ++memory[n];
    benchmark::DoNotOptimize(memory.data());
}

/// The first request of a new reader for an array of a step, opened through the index file outside the measurement.
void firstArray(benchmark::State& state, const StepsCase& steps, int step, int array)
{
    std::vector<float> values;
    for (auto _ : state) {
        const auto reader = open(steps, steps.specFile);
        coolCaches();
        const auto start = std::chrono::steady_clock::now();
        const bool found = reader->rawData(step)->getAnyArray(arrayName(array), values);
        state.SetIterationTime(std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count());
        if (!found || values.size() != StepsCase::cells)
            state.SkipWithError("the array could not be read");
    }
}

void BM_AnyArray_any(benchmark::State& state)
{
    firstArray(state, stepsCase(manySteps), static_cast<int>(state.range(0)), static_cast<int>(state.range(1)));
}

void BM_AnyArray_first(benchmark::State& state)
{
    firstArray(state, stepsCase(fewSteps), 0, 0);
}

void places(benchmark::internal::Benchmark* benchmark)
{
    for (const int step : {0, manySteps / 2, manySteps - 1})
        for (const int array : {0, StepsCase::arrays - 1})
            benchmark->Args({step, array});
    benchmark->UseManualTime()->Unit(benchmark::kMicrosecond)->Iterations(20);
}

BENCHMARK(BM_OpenByIndexFile_library)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(BM_OpenByIndexFile_floor)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(BM_OpenByScan_library)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(BM_OpenByScan_floor)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(BM_AnyArray_any)->Apply(places);
BENCHMARK(BM_AnyArray_first)->Apply(places);

} // namespace

int main(int argumentCount, char** arguments)
{
    return bench::run(
        argumentCount, arguments,
        {{"_library", "_floor", "at most 1.5 by index file, 1.4 by scan"}, {"_any", "_first", "about 1"}});
}
