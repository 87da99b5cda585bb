// Any bytes as the cache beside fixed well results, of which the dates are set so that a cache can be valid for them.
// The first byte chooses the family. A cache may lie about names and positions, and may close the file; but once it has
// been flushed the file is read as if it had never been.
#include "support/WellFile.h"
#include "support/WellValues.h"

#include <mrlio/GRFTReaderEnvironment.h>
#include <mrlio/HMDReaderEnvironment.h>
#include <mrlio/RFTReaderEnvironment.h>

#include <fcntl.h>
#include <sys/stat.h>

namespace {

using namespace MrlIOFuzz;
using namespace Kvt::Mrl::MrlIO;
using MrlIOTest::KeywordFileBuilder;
using MrlIOTest::WellFile;

constexpr std::size_t mostBytes = 65536;
constexpr std::time_t dataTime = 1773480413; // 14 March 2026, 09:26:53 UTC, as in the seeds

KeywordFileBuilder wellResults()
{
    WellFile file;
    for (const int day : {1, 2, 3}) {
        for (const char* well : {"A", "B"}) {
            file.report(static_cast<float>(day), day).well(well, day == 1 ? "LGR1" : "");
            file.keyword("CONIPOS", {1, day})
                .keyword("DEPTH", {1000.0f, 1001.5f})
                .keyword("PRESSURE", {200.0f, 201.0f});
        }
    }
    return file;
}

KeywordFileBuilder gradients()
{
    WellFile file;
    for (const int day : {1, 2}) {
        file.report(static_cast<float>(day), day).well("A").keyword("CONIPOS", {1, day});
        file.keyword("NAMES", {"A", "PORO"}).keyword("HMHEADI", {1, 2, 3}).keyword("PRESSURE", {0.5f, 0.25f});
        file.keyword("NAMES", {"A", "PERMX"}).keyword("HMHEADI", {1, 2}).keyword("SWAT", {0.75f, 0.125f});
    }
    return file;
}

KeywordFileBuilder matchData()
{
    KeywordFileBuilder file;
    file.keyword("CODESTAT", {"CODED"}).keyword("GRADWELL", {"WOPR", "WBHP"}).keyword("GRADGRUP", {"GOPR"});
    for (const double time : {1.0, 2.5}) {
        file.keyword("TIMESTEP", {time, 0.5}).keyword("NAMES", {"P1", "PORO"}).keyword("HMHEADI", {1, 2, 3});
        file.keyword("DERIVS", {1.5, 2.5}).keyword("VALUES", {10.5, 20.5});
        file.keyword("GNAMES", {"FIELD", "PERMX"}).keyword("HMHEADI", {1, 2}).keyword("DERIVS", {3.5});
    }
    return file;
}

template <class Reader, class Environment>
class FixedFile
{
public:
    FixedFile(const Scratch& scratch, const std::string& name, const char* cacheName, const KeywordFileBuilder& content)
        : scratch_(scratch),
          file_(scratch.write(name, content.bytes())),
          cacheName_(cacheName)
    {
        const timespec times[2] = {{dataTime, 0}, {dataTime, 0}};
        require(::utimensat(AT_FDCWD, file_.c_str(), times, 0) == 0, "the date can be set");
        flush();
        expected_ = answers();
        flush();
    }

    void read(std::string_view cache) const
    {
        scratch_.write(cacheName_, cache);
        answers();
        flush();
        require(answers() == expected_, "a flush brings back what the file holds");
        require(answers() == expected_, "so does the cache that was written then");
    }

private:
    Answers answers() const
    {
        Reader reader;
        return answersOf(reader, file_);
    }

    void flush() const { Environment::flushContentIndexCache(Service::Directory(scratch_.directory()), "CASE"); }

    const Scratch& scratch_;
    std::string file_;
    std::string cacheName_;
    Answers expected_;
};

struct Files
{
    Scratch scratch;
    FixedFile<RFTReader, RFTReaderEnvironment> rft{scratch, "CASE.RFT", "CASE_rft_content_index__.xml", wellResults()};
    FixedFile<GRFTReader, GRFTReaderEnvironment> grft{scratch, "CASE.GRFT", "CASE_grft_content_index__.xml",
                                                      gradients()};
    FixedFile<HMDReader, HMDReaderEnvironment> hmd{scratch, "CASE.HMD", "CASE_hmd_content_index__.xml", matchData()};
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static const Files files;
    if (size < 1 || size > mostBytes)
        return 0;
    const std::string_view cache = textOf(data + 1, size - 1);
    switch (data[0] % 3) {
    case 0:
        files.rft.read(cache);
        break;
    case 1:
        files.grft.read(cache);
        break;
    default:
        files.hmd.read(cache);
    }
    return 0;
}
