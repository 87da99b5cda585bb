/// How long does it take to read a REAL array of an unformatted file into a vector that has its capacity? The floor
/// reads windows of 256 KiB, strips the record marks and swaps the bytes into place.

#include "Floor.h"
#include "Ratios.h"

#include <mrlio/MrlIO.h>

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <cstring>
#include <map>

namespace {

using namespace bench;
using namespace Kvt::Mrl::MrlIO;

constexpr std::int64_t mebibyte = 1024 * 1024;

const std::string& arrayFile(std::int64_t mebibytes)
{
    static std::map<std::int64_t, std::string> files;
    std::string& path = files[mebibytes];
    if (path.empty()) {
        path = folder().file("ARRAY" + std::to_string(mebibytes));
        const std::vector<float> values = someValues(static_cast<std::size_t>(mebibytes * mebibyte / 4));
        HandWriter writer(path);
        writer.header("PRESSURE", static_cast<std::int32_t>(values.size()), "REAL");
        writer.reals(values.data(), values.size());
    }
    return path;
}

void countBytes(benchmark::State& state)
{
    state.SetBytesProcessed(state.iterations() * state.range(0) * mebibyte);
}

void BM_ReadReal_library(benchmark::State& state)
{
    const auto reader = MorvaneReaderUtils::createReader(arrayFile(state.range(0)), false);
    KeywordHeader header;
    reader->readNextKeywordHeader(header);
    std::vector<float> values;
    values.resize(static_cast<std::size_t>(header.size()));
    for (auto _ : state) {
        reader->readDataVector(header, values);
        benchmark::DoNotOptimize(values.data());
    }
    countBytes(state);
}

/// Pieces of records between the marks, as they come through the windows.
void readByHand(int file, float* out, std::size_t count)
{
    static std::vector<char> window(windowSize);
    std::int64_t position = 24;
    std::size_t have = 0, place = 0;
    for (std::size_t done = 0; done < count;) {
        if (have - place < 4 * blockLength + 8) {
            const ssize_t got = ::pread(file, window.data(), window.size(), position);
            have = static_cast<std::size_t>(std::max<ssize_t>(got, 0));
            place = 0;
        }
        std::uint32_t mark = 0;
        std::memcpy(&mark, window.data() + place, 4);
        const std::size_t length = swapped(mark) / 4;
        swapCopy(window.data() + place + 4, reinterpret_cast<char*>(out + done), length);
        done += length;
        place += 4 * length + 8;
        position += static_cast<std::int64_t>(4 * length + 8);
    }
}

void BM_ReadReal_floor(benchmark::State& state)
{
    const Descriptor file(arrayFile(state.range(0)), O_RDONLY);
    std::vector<float> values(static_cast<std::size_t>(state.range(0) * mebibyte / 4));
    for (auto _ : state) {
        readByHand(file.number(), values.data(), values.size());
        benchmark::DoNotOptimize(values.data());
    }
    countBytes(state);
}

BENCHMARK(BM_ReadReal_library)->Arg(64)->Arg(1024)->UseRealTime()->Unit(benchmark::kMillisecond);
BENCHMARK(BM_ReadReal_floor)->Arg(64)->Arg(1024)->UseRealTime()->Unit(benchmark::kMillisecond);

} // namespace

int main(int argumentCount, char** arguments)
{
    return bench::run(argumentCount, arguments, {{"_library", "_floor", "at most 1.3"}});
}
