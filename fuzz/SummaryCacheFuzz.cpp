// Any bytes as the content index cache of a fixed case: one data file of three mini steps, dated so that a cache can be
// valid for it. A cache may lie about positions and leave mini steps out, so that fewer values come or none; but values
// that do come are those of a mini step of the file, for all vectors alike.
#include "support/SummaryValues.h"

#include <fcntl.h>
#include <sys/stat.h>

namespace {

using namespace MrlIOFuzz;

constexpr std::size_t mostBytes = 65536;
constexpr std::time_t dataTime = 1773480413; // 14 March 2026, 09:26:53 UTC, as in the seeds

struct Case
{
    Case()
    {
        MrlIOTest::SummaryDataBuilder data;
        data.reportStep(1).miniStep(0, MrlIOTest::valuesAt(1)).miniStep(1, MrlIOTest::valuesAt(2));
        data.reportStep(2).miniStep(2, MrlIOTest::valuesAt(3));
        scratch.write("CASE.UNSMRY", data.bytes());
        const timespec times[2] = {{dataTime, 0}, {dataTime, 0}};
        require(::utimensat(AT_FDCWD, scratch.path("CASE.UNSMRY").c_str(), times, 0) == 0, "the date can be set");
    }

    Scratch scratch;
    std::shared_ptr<SummarySpecData> spec = std::make_shared<SummarySpecData>(
        scratch.write("CASE.SMSPEC", MrlIOTest::smallSpec(MrlIOTest::Form::Binary).bytes()));
};

void checkRows(const SummaryValues& values)
{
    for (std::size_t i = 0; i < values.size(); ++i) {
        if (!values[i] || !values.front())
            continue;
        require(values[i]->size() == values.front()->size(), "all vectors have the same mini steps");
        for (std::size_t step = 0; step < values[i]->size(); ++step)
            require((*values[i])[step] == MrlIOTest::valuesAt((*values.front())[step])[i], "values belong together");
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static const Case testCase;
    if (size > mostBytes)
        return 0;
    const Scratch& scratch = testCase.scratch;
    scratch.write("CASE_summary_content_index__.xml", textOf(data, size));
    const std::vector<std::string> files = {scratch.path("CASE.UNSMRY")};
    checkRows(summaryValues(testCase.spec, files, scratch.directory(), ISummaryReader::ReadCache));
    // Whatever the cache was, it must not stand in the way of its successor, which is right.
    Kvt::Mrl::MrlIO::SummaryReaderEnvironment::flushContentIndexCache(scratch.directory(), "CASE");
    return 0;
}
