/// How much memory does each kind of read take at its peak, beyond its result? Each one runs in a process of its own.

#include "Floor.h"
#include "SummaryCase.h"

#include <mrlio/MrlIO.h>

#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <fstream>
#include <functional>
#include <string>

namespace {

using namespace bench;
using namespace Kvt::Mrl::MrlIO;

constexpr double mebibyte = 1024.0 * 1024.0;
constexpr std::size_t arrayLength = 16 * 1024 * 1024;

/// A figure of /proc/self/status, in bytes.
double status(const std::string& name)
{
    std::ifstream file("/proc/self/status");
    for (std::string line; std::getline(file, line);)
        if (line.rfind(name + ":", 0) == 0)
            return std::stod(line.substr(name.size() + 1)) * 1024.0;
    return 0.0;
}

/// Runs a read that gives the bytes of its result, and prints what it took beyond that.
void measure(const char* title, const std::function<double()>& read)
{
    std::fflush(stdout);
    const pid_t child = ::fork();
    if (child != 0) {
        ::waitpid(child, nullptr, 0);
        return;
    }
    std::ofstream("/proc/self/clear_refs") << 5;
    const double before = status("VmRSS");
    const double result = read();
    const double peak = status("VmHWM") - before;
    std::printf("peak   %-44s result %8.2f MiB, beyond it %6.2f MiB, wanted at most 2\n", title, result / mebibyte,
                (peak - result) / mebibyte);
    std::fflush(stdout);
    std::_Exit(0);
}

std::string realFile(bool formatted)
{
    const std::string path = folder().file(formatted ? "REAL.TXT" : "REAL");
    KeywordTmpl<ValueType::REAL> keyword("PRESSURE", someValues(formatted ? arrayLength / 8 : arrayLength));
    const auto writer = MorvaneWriterCreator::create(path.c_str(), formatted ? MorvaneWriterCreator::Formatted
                                                                             : MorvaneWriterCreator::Unformatted);
    writer->writeKeyword(keyword);
    writer->endWrite();
    return path;
}

double readArray(const std::string& path, bool formatted, std::int64_t first, std::int64_t last)
{
    const auto reader = MorvaneReaderUtils::createReader(path, formatted);
    KeywordHeader header;
    std::vector<float> values;
    reader->readNextKeywordHeader(header);
    reader->readDataVector(header, values, first, last);
    return static_cast<double>(values.size() * sizeof(float));
}

double walk(const std::string& path)
{
    const auto reader = MorvaneReaderUtils::createReader(path, false);
    KeywordHeader header;
    while (reader->readNextKeywordHeader(header)) {}
    return 0.0;
}

} // namespace

int main()
{
    // Reading touches the code and the heap for the first time; that is not the reading's memory.
    const std::string small = folder().file("SMALL");
    {
        HandWriter writer(small);
        writer.header("SMALL", 10, "REAL");
        writer.reals(someValues(10).data(), 10);
    }
    readArray(small, false, -1, -1);

    const std::string binary = realFile(false), text = realFile(true);
    measure("whole array, unformatted", [&] { return readArray(binary, false, -1, -1); });
    measure("slice of 1,000, unformatted", [&] { return readArray(binary, false, 9'000'000, 9'000'999); });
    measure("whole array, formatted", [&] { return readArray(text, true, -1, -1); });
    measure("slice of 1,000, formatted", [&] { return readArray(text, true, 1'000'000, 1'000'999); });

    const SummaryCase& large = summaryCase();
    measure("walk over headers", [&] { return walk(large.dataFile); });
    const auto spec = std::make_shared<SummarySpecData>(large.specFile);
    const auto make = [&] {
        return SimpleSummaryReader::create(spec, {large.dataFile}, large.directory, large.name,
                                           ISummaryReader::NoCache);
    };
    const auto reader = make();
    measure("one vector over 100,000 mini steps", [&] {
        const auto values =
            reader->getValues(SummaryVectorIDParams("FOPR", "", SummaryCase::singlePlace + 1, "", -1, -1, -1));
        return static_cast<double>(values->size() * sizeof(float));
    });
    measure("16 wells' vectors over 100,000 mini steps", [&] {
        const auto values =
            reader->getValues(SummaryVectorIDParams("WOPR", "W1", SummaryCase::wellPlace + 1, "", -1, -1, -1));
        return static_cast<double>(SummaryCase::wells * values->size() * sizeof(float));
    });
    return 0;
}
