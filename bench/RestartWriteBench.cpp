/// How long does it take to write a restart step of 50 REAL arrays of a million cells, in file order and in random
/// order? The floor encodes the same bytes into a buffer of 1 MiB and writes them out, for the random order twice, since
/// sections are written first and then joined. The argument is the kind of client: 0 hands over values in runs, 1 one
/// by one, where the call for each value costs as much as the rest.

#include "Floor.h"
#include "Ratios.h"

#include <mrlio/MrlIO.h>

#include <algorithm>
#include <filesystem>

namespace {

using namespace bench;
using namespace Kvt::Mrl::MrlIO;

constexpr int arrays = 50, nx = 100, ny = 100, nz = 100, cells = nx * ny * nz;

/// What a simulator hands over out of its own array: one value at a time, which is all that it has to do.
class CellValues : public IGridPropertyArray<float>
{
public:
    explicit CellValues(std::vector<float> values) : values_(std::move(values)) {}

    int size() const override { return static_cast<int>(values_.size()); }

    float getValue(int cell) const override { return values_[static_cast<std::size_t>(cell)]; }

    float getFractureValue(int cell) const override { return getValue(cell); }

    bool isDualPorosity() const override { return false; }

    const std::vector<float>& values() const { return values_; }

private:
    std::vector<float> values_;
};

/// The same with values in runs.
class CellRuns final : public CellValues
{
public:
    using CellValues::CellValues;

    void getValues(int first, int count, float* out) const override
    {
        std::copy_n(values().begin() + first, count, out);
    }
};

enum Client : int
{
    ByRun = 0,
    ByCell = 1
};

const CellValues& someCells(std::int64_t client)
{
    static const CellValues byCell(someValues(cells));
    static const CellRuns byRun(someValues(cells));
    return client == ByRun ? byRun : byCell;
}

std::string name(int array)
{
    return "ARRAY" + std::to_string(array);
}

MrlWriterDefaultParams anew()
{
    MrlWriterDefaultParams params;
    params.unified = params.overwriteData = params.overwriteSpec = true;
    return params;
}

const GridSpec& grid()
{
    static const GridSpec spec(nx, ny, nz, UnitSystemType::METRIC, static_cast<GridSpec::GridType>(0));
    return spec;
}

const Service::YearMonthDay start(2020, 1, 1);

void clean()
{
    for (const auto& entry : std::filesystem::directory_iterator(writeFolder().path()))
        std::filesystem::remove(entry.path());
}

void countBytes(benchmark::State& state)
{
    state.SetBytesProcessed(state.iterations() * arrays * std::int64_t{4} * cells);
}

void BM_WriteSequential_library(benchmark::State& state)
{
    const CellValues& values = someCells(state.range(0));
    for (auto _ : state) {
        state.PauseTiming();
        clean();
        state.ResumeTiming();
        SequentialRestartWriter writer(writeFolder().path(), "CASE", start, {}, false, anew(), false, false);
        writer.addGridSpec(grid());
        writer.open(1, 1.0, 0);
        writer.sequenceStart();
        writer.sequenceStartGrid("", values, cells);
        for (int array = 0; array < arrays; ++array)
            writer.sequenceWriteSolutionArray(name(array), values, false);
        writer.sequenceEndGrid();
        writer.sequenceEnd();
        writer.close();
    }
    countBytes(state);
}

void BM_WriteRandomOrder_library(benchmark::State& state)
{
    const CellValues& values = someCells(state.range(0));
    for (auto _ : state) {
        state.PauseTiming();
        clean();
        state.ResumeTiming();
        RestartWriter writer(writeFolder().path(), "CASE", start, {}, false, anew(), false);
        writer.addGridSpec(grid());
        writer.open(1, 1.0);
        IGridPropertyWriter& properties = writer.getSolutionWriter("", values, cells);
        for (int array = 0; array < arrays; ++array)
            properties.write(name(array), values, false);
        writer.close(0);
    }
    countBytes(state);
}

void writeByHand(const std::string& file)
{
    HandWriter writer(writeFolder().file(file));
    for (int array = 0; array < arrays; ++array) {
        writer.header(name(array).c_str(), cells, "REAL");
        writer.reals(someCells(ByCell).values().data(), cells);
    }
}

void floor(benchmark::State& state, int times)
{
    for (auto _ : state) {
        state.PauseTiming();
        clean();
        state.ResumeTiming();
        for (int time = 0; time < times; ++time)
            writeByHand("HAND" + std::to_string(time));
    }
    countBytes(state);
}

void BM_WriteSequential_floor(benchmark::State& state)
{
    floor(state, 1);
}

void BM_WriteRandomOrder_floor(benchmark::State& state)
{
    floor(state, 2);
}

BENCHMARK(BM_WriteSequential_library)->Arg(ByRun)->Arg(ByCell)->UseRealTime()->Unit(benchmark::kMillisecond);
BENCHMARK(BM_WriteSequential_floor)->Arg(ByRun)->Arg(ByCell)->UseRealTime()->Unit(benchmark::kMillisecond);
BENCHMARK(BM_WriteRandomOrder_library)->Arg(ByRun)->Arg(ByCell)->UseRealTime()->Unit(benchmark::kMillisecond);
BENCHMARK(BM_WriteRandomOrder_floor)->Arg(ByRun)->Arg(ByCell)->UseRealTime()->Unit(benchmark::kMillisecond);

} // namespace

int main(int argumentCount, char** arguments)
{
    return bench::run(argumentCount, arguments, {{"_library", "_floor", "at most 1.4 by run (0)"}});
}
