/// How much memory does each kind of read take at its peak, beyond its result? Each one runs in a process of its own.

#include "Floor.h"
#include "RestartCase.h"
#include "SummaryCase.h"

#include <mrlio/MrlIO.h>

#include <malloc.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <fstream>
#include <functional>
#include <memory>
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

/// Runs a read that gives the bytes of its result, and prints what it took beyond that. The read is warmed up first, since
/// the pages of code that it touches are not its memory.
void measure(const char* title, const std::function<void()>& warmUp, const std::function<double()>& read)
{
    std::fflush(stdout);
    const pid_t child = ::fork();
    if (child != 0) {
        ::waitpid(child, nullptr, 0);
        return;
    }
    warmUp();
    ::malloc_trim(0);
    std::ofstream("/proc/self/clear_refs") << 5;
    const double before = status("VmRSS");
    const double result = read();
    const double peak = status("VmHWM") - before;
    std::printf("peak   %-52s result %8.2f MiB, beyond it %6.2f MiB, wanted at most 2\n", title, result / mebibyte,
                (peak - result) / mebibyte);
    std::fflush(stdout);
    std::_Exit(0);
}

void measure(const char* title, const std::function<double()>& read)
{
    measure(
        title, [&] { read(); }, read);
}

double heapInUse()
{
    const auto heap = ::mallinfo2();
    return static_cast<double>(heap.uordblks + heap.hblkhd);
}

/// Makes an object and gives the memory that it keeps.
template <class Make>
double keptBy(const Make& make)
{
    const double before = heapInUse();
    const auto object = make();
    return heapInUse() - before;
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

constexpr int fewVectors = 20, manyVectors = 300'000;
constexpr int manySteps = 100'000;
constexpr int restartSteps = 10'000;

class Spec : public ISummaryVectorArraySpec
{
public:
    explicit Spec(int size) : size_(size) {}

    int size() const override { return size_; }

    std::string keyword(int) const override { return "BPR"; }

    std::string name(int) const override { return {}; }

    int num(int n) const override { return n + 1; }

    std::string units(int) const override { return "BARSA"; }

    bool hasMeasurements() const override { return false; }

    std::string measurement(int) const override { return {}; }

    const ISummaryVectorPositions* positions() const override { return nullptr; }

private:
    int size_;
};

class Values : public ISummaryVectorArray
{
public:
    explicit Values(int size) : size_(size) {}

    int size() const override { return size_; }

    float value(int n) const override { return static_cast<float>(n); }

private:
    int size_;
};

void writeCase(const std::string& name, int vectors, int steps, int stepsAReport)
{
    MrlWriterDefaultParams params{};
    params.unified = true;
    const GridSpec grid(1, 1, 1, UnitSystemType::METRIC, static_cast<GridSpec::GridType>(0));
    SummaryWriter writer(folder().path(), name, grid, Service::YearMonthDay(2026, 1, 1), false, params, false);
    writer.addArraySpec(Spec(vectors));
    for (int step = 0; step < steps; ++step) {
        if (step > 0 && step % stepsAReport == 0) {
            writer.close();
            writer.openAtNextReportStep(static_cast<float>(step));
        } else if (step > 0) {
            writer.nextMiniStep(static_cast<float>(step), false);
        }
        writer.writeArray(Values(vectors));
    }
    writer.close();
}

std::shared_ptr<SummarySpecData> specOf(const std::string& name)
{
    return std::make_shared<SummarySpecData>(folder().file(name + ".SMSPEC"));
}

std::unique_ptr<SimpleSummaryReader> open(const std::string& name, ISummaryReader::ContentCacheBehaviour behaviour)
{
    return SimpleSummaryReader::create(specOf(name), {folder().file(name + ".UNSMRY")}, folder().path(), name,
                                       behaviour);
}

void measureArrays()
{
    const std::string binary = realFile(false), text = realFile(true);
    measure("whole array, unformatted", [&] { return readArray(binary, false, -1, -1); });
    measure("slice of 1,000, unformatted", [&] { return readArray(binary, false, 9'000'000, 9'000'999); });
    measure("whole array, formatted", [&] { return readArray(text, true, -1, -1); });
    measure("slice of 1,000, formatted", [&] { return readArray(text, true, 1'000'000, 1'000'999); });
}

void measureVectors()
{
    const SummaryCase& large = summaryCase();
    measure("walk over headers", [&] { return walk(large.dataFile); });
    const auto reader = open(large.name, ISummaryReader::NoCache), other = open(large.name, ISummaryReader::NoCache);
    const SummaryVectorIDParams single("FOPR", "", SummaryCase::singlePlace + 1, "", -1, -1, -1);
    const SummaryVectorIDParams well("WOPR", "W1", SummaryCase::wellPlace + 1, "", -1, -1, -1);
    constexpr double bytes = sizeof(float) * static_cast<double>(SummaryCase::miniSteps);
    const auto get = [](const SimpleSummaryReader& from, const SummaryVectorIDParams& id, double result) {
        return from.getValues(id) ? result : 0.0;
    };
    measure(
        "one vector over 100,000 mini steps", [&] { get(*other, single, 0.0); },
        [&] { return get(*reader, single, bytes); });
    measure(
        "16 wells' vectors over 100,000 mini steps", [&] { get(*other, well, 0.0); },
        [&] { return get(*reader, well, SummaryCase::wells * bytes); });
}

void measureOpening()
{
    writeCase("SPEC", manyVectors, 1, 1);
    writeCase("MANY", fewVectors, manySteps, 100);
    writeCase("ONE", fewVectors, manySteps, manySteps);
    measure("spec file of 2,000 vectors", [] { return keptBy([] { return specOf(summaryCase().name); }); });
    measure("spec file of 300,000 vectors", [] { return keptBy([] { return specOf("SPEC"); }); });
    for (const char* name : {"MANY", "ONE"}) {
        const std::string steps =
            std::string("100,000 mini steps in ") + (*name == 'M' ? "1,000 reports" : "one report");
        measure((steps + ", by scan").c_str(),
                [&] { return keptBy([&] { return open(name, ISummaryReader::NoCache); }); });
        open(name, ISummaryReader::WriteCache);
        measure((steps + ", by cache").c_str(),
                [&] { return keptBy([&] { return open(name, ISummaryReader::ReadCache); }); });
    }
}

std::shared_ptr<RestartReader> openSteps(const std::string& specFile)
{
    auto reader = RestartReader::create();
    reader->read({stepsCase(restartSteps).dataFile}, false, specFile, nullptr, nullptr);
    return reader;
}

/// A property of a grid of which half the cells are active: the reader keeps the active values until it is told not to.
double readProperty(RestartReader& reader, const char* name)
{
    std::vector<float> values;
    if (!reader.propertyData(0)->getAnyArray(name, values))
        return 0.0;
    return static_cast<double>(values.size() * sizeof(float)) + 0.5 * HalfActiveCase::cells * sizeof(float);
}

void measureRestart()
{
    const std::string specFile = stepsCase(restartSteps).specFile;
    measure("10,000 report steps of 20 arrays, by index file",
            [&] { return keptBy([&] { return openSteps(specFile); }); });
    measure("10,000 report steps of 20 arrays, by scan", [] { return keptBy([] { return openSteps(""); }); });
    const HalfActiveCase& half = halfActiveCase(true);
    const auto init = InitReader::create();
    init->read(half.initFile, false, half.initSpecFile, "");
    const auto reader = RestartReader::create();
    reader->read({half.dataFile}, false, half.specFile, init, nullptr);
    measure(
        "property of 4 million cells, half of them active", [&] { readProperty(*reader, "SWAT"); },
        [&] { return readProperty(*reader, "PRESSURE"); });
}

} // namespace

int main()
{
    measureArrays();
    measureVectors();
    measureOpening();
    measureRestart();
    return 0;
}
