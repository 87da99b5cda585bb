/// How long does it take to write a REAL array to an unformatted file? The floor encodes records into a buffer of 1
/// MiB of its own and writes that out.

#include "Floor.h"
#include "Ratios.h"

#include <mrlio/MrlIO.h>

namespace {

using namespace bench;
using namespace Kvt::Mrl::MrlIO;

constexpr std::int64_t mebibyte = 1024 * 1024;

KeywordTmpl<ValueType::REAL>& record(std::int64_t mebibytes)
{
    static KeywordTmpl<ValueType::REAL> keyword("PRESSURE");
    const auto count = static_cast<std::size_t>(mebibytes * mebibyte / 4);
    if (keyword.array().size() != count)
        keyword.array() = someValues(count);
    return keyword;
}

void countBytes(benchmark::State& state)
{
    state.SetBytesProcessed(state.iterations() * state.range(0) * mebibyte);
}

void BM_WriteReal_library(benchmark::State& state)
{
    auto& keyword = record(state.range(0));
    const std::string path = writeFolder().file("WRITTEN");
    for (auto _ : state) {
        const auto writer = MorvaneWriterCreator::create(path.c_str(), MorvaneWriterCreator::Unformatted);
        if (!writer->writeKeyword(keyword) || !writer->endWrite())
            state.SkipWithError("the array could not be written");
    }
    countBytes(state);
}

void BM_WriteReal_floor(benchmark::State& state)
{
    const auto& values = record(state.range(0)).array();
    const std::string path = writeFolder().file("WRITTEN");
    for (auto _ : state) {
        HandWriter writer(path);
        writer.header("PRESSURE", static_cast<std::int32_t>(values.size()), "REAL");
        writer.reals(values.data(), values.size());
    }
    countBytes(state);
}

BENCHMARK(BM_WriteReal_library)->Arg(64)->Arg(1024)->UseRealTime()->Unit(benchmark::kMillisecond);
BENCHMARK(BM_WriteReal_floor)->Arg(64)->Arg(1024)->UseRealTime()->Unit(benchmark::kMillisecond);

} // namespace

int main(int argumentCount, char** arguments)
{
    return bench::run(argumentCount, arguments, {{"_library", "_floor", "at most 1.4"}});
}
