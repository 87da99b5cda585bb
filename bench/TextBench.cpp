/// How long does it take to print and to read numbers as text, through a file? Compared with the formatted input and
/// output of gfortran's run-time library, which nearly everybody uses for such files.

#include "Floor.h"
#include "Ratios.h"

#include <mrlio/MrlIO.h>

#include <type_traits>

extern "C" {
void write_reals(const char* name, const float* values, std::int64_t count);
void write_doubles(const char* name, const double* values, std::int64_t count);
void write_integers(const char* name, const int* values, std::int64_t count);
void read_reals(const char* name, float* values, std::int64_t count);
void read_doubles(const char* name, double* values, std::int64_t count);
void read_integers(const char* name, int* values, std::int64_t count);
}

namespace {

using namespace bench;
using namespace Kvt::Mrl::MrlIO;

constexpr std::size_t valueCount = 1'000'000;

struct Real
{
    using Record = KeywordTmpl<ValueType::REAL>;
    static constexpr auto write = write_reals;
    static constexpr auto read = read_reals;

    static float value(float seed) { return seed * 1.0e3F; }
};

struct Double
{
    using Record = KeywordTmpl<ValueType::DOUB>;
    static constexpr auto write = write_doubles;
    static constexpr auto read = read_doubles;

    static double value(float seed) { return static_cast<double>(seed) / 7.0; }
};

struct Integer
{
    using Record = KeywordINTE;
    static constexpr auto write = write_integers;
    static constexpr auto read = read_integers;

    static int value(float seed) { return static_cast<int>(seed * 1.0e4F) - 1'000'000; }
};

template <class Type>
typename Type::Record& record()
{
    static typename Type::Record keyword("VALUES");
    if (keyword.array().empty())
        for (float seed : someValues(valueCount))
            keyword.array().push_back(Type::value(seed));
    return keyword;
}

template <class Type>
void writeFile(const std::string& path)
{
    const auto writer = MorvaneWriterCreator::create(path.c_str(), MorvaneWriterCreator::Formatted);
    writer->writeKeyword(record<Type>());
    writer->endWrite();
}

template <class Type>
void BM_Print_library(benchmark::State& state)
{
    record<Type>();
    for (auto _ : state)
        writeFile<Type>(writeFolder().file("LIBRARY.TXT"));
    state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(valueCount));
}

template <class Type>
void BM_Print_gfortran(benchmark::State& state)
{
    const auto& values = record<Type>().array();
    for (auto _ : state)
        Type::write(writeFolder().file("FORTRAN.TXT").c_str(), values.data(), static_cast<std::int64_t>(values.size()));
    state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(valueCount));
}

template <class Type>
void BM_Read_library(benchmark::State& state)
{
    const std::string path = folder().file("READ.TXT");
    writeFile<Type>(path);
    auto values = record<Type>().array();
    for (auto _ : state) {
        const auto reader = MorvaneReaderUtils::createReader(path, true);
        KeywordHeader header;
        if (!reader->readNextKeywordHeader(header) || !reader->readDataVector(header, values))
            state.SkipWithError("the array could not be read");
    }
    state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(valueCount));
}

template <class Type>
void BM_Read_gfortran(benchmark::State& state)
{
    const std::string path = folder().file("READ_FORTRAN.TXT");
    auto values = record<Type>().array();
    Type::write(path.c_str(), values.data(), static_cast<std::int64_t>(values.size()));
    for (auto _ : state)
        Type::read(path.c_str(), values.data(), static_cast<std::int64_t>(values.size()));
    state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(valueCount));
}

BENCHMARK(BM_Print_library<Real>)->UseRealTime()->Unit(benchmark::kMillisecond);
BENCHMARK(BM_Print_gfortran<Real>)->UseRealTime()->Unit(benchmark::kMillisecond);
BENCHMARK(BM_Print_library<Double>)->UseRealTime()->Unit(benchmark::kMillisecond);
BENCHMARK(BM_Print_gfortran<Double>)->UseRealTime()->Unit(benchmark::kMillisecond);
BENCHMARK(BM_Print_library<Integer>)->UseRealTime()->Unit(benchmark::kMillisecond);
BENCHMARK(BM_Print_gfortran<Integer>)->UseRealTime()->Unit(benchmark::kMillisecond);
BENCHMARK(BM_Read_library<Real>)->UseRealTime()->Unit(benchmark::kMillisecond);
BENCHMARK(BM_Read_gfortran<Real>)->UseRealTime()->Unit(benchmark::kMillisecond);
BENCHMARK(BM_Read_library<Double>)->UseRealTime()->Unit(benchmark::kMillisecond);
BENCHMARK(BM_Read_gfortran<Double>)->UseRealTime()->Unit(benchmark::kMillisecond);
BENCHMARK(BM_Read_library<Integer>)->UseRealTime()->Unit(benchmark::kMillisecond);
BENCHMARK(BM_Read_gfortran<Integer>)->UseRealTime()->Unit(benchmark::kMillisecond);

} // namespace

int main(int argumentCount, char** arguments)
{
    return bench::run(argumentCount, arguments, {{"_gfortran", "_library", "at least 4"}});
}
