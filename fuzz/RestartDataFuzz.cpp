// Init and restart data of any content, formatted as text if they don't begin as a binary record does: opened by a scan,
// then everything is asked for. A reader that opens the index file which the first one wrote has to give the same.
#include "support/RestartValues.h"

#include <cstring>

namespace {

using namespace MrlIOFuzz;

constexpr std::size_t mostBytes = 65536;

bool isSame(const std::vector<double>& left, const std::vector<double>& right)
{
    return left.size() == right.size() &&
           (left.empty() || std::memcmp(left.data(), right.data(), left.size() * sizeof(double)) == 0);
}

/// Text has some digits of the extrema only.
void checkSameRows(const SpecStatsData& scanned, const SpecStatsData& indexed, bool isFormatted)
{
    require(scanned.names == indexed.names && scanned.types == indexed.types && scanned.numbers == indexed.numbers &&
                scanned.pointers == indexed.pointers && scanned.pointersB == indexed.pointersB,
            "the index lists what the scan found");
    require(isFormatted || (isSame(scanned.minima, indexed.minima) && isSame(scanned.maxima, indexed.maxima)),
            "the index has the extrema of the scan");
}

/// A reader with an index looks for headers that a local grid lacks, and so may meet damages that the other one doesn't.
template <class Reader>
void checkSameCase(Reader& scanned, Reader& indexed)
{
    succeeds([&] {
        require(scanned.LGRs() == indexed.LGRs(), "the same local grids");
        for (const std::string& grid : gridsOf(scanned))
            require(scanned.numCells(grid) == indexed.numCells(grid), "the same number of cells");
        require(scanned.isDualPorosity() == indexed.isDualPorosity(), "the same media");
        require(scanned.phases() == indexed.phases() && scanned.unitSystem() == indexed.unitSystem(), "the same units");
    });
}

void checkSame(RestartReader& scanned, RestartReader& indexed, bool isFormatted)
{
    require(scanned.minIndex() == indexed.minIndex() && scanned.maxIndex() == indexed.maxIndex(), "the same steps");
    checkSameCase(scanned, indexed);
    for (int index = scanned.minIndex(); index >= 0 && index <= scanned.minIndex() + 64; ++index) {
        require(scanned.isValidIndex(index) == indexed.isValidIndex(index), "the same steps are valid");
        if (!scanned.isValidIndex(index))
            continue;
        for (const std::string& grid : gridsOf(scanned))
            checkSameRows(scanned.rawData(index)->arrays(grid), indexed.rawData(index)->arrays(grid), isFormatted);
        succeeds([&] { require(scanned.date(index) == indexed.date(index), "the same date"); });
        succeeds([&] { require(scanned.time(index) == indexed.time(index), "the same time of day"); });
    }
}

void checkSame(InitReader& scanned, InitReader& indexed, bool isFormatted)
{
    checkSameCase(scanned, indexed);
    for (const std::string& grid : gridsOf(scanned))
        checkSameRows(scanned.rawData()->arrays(grid), indexed.rawData()->arrays(grid), isFormatted);
    succeeds([&] { require(scanned.LGRPairs() == indexed.LGRPairs(), "the same pairs of grids"); });
    succeeds([&] { require(scanned.date() == indexed.date(), "the same date"); });
}

/// Reads twice, the second time by the index that the first reading has written.
/// read      fills a reader
/// returns   the first reader, null if the data are refused
template <class Reader, class Read>
std::shared_ptr<Reader> checkTwice(const std::string& specFile, std::size_t size, bool isFormatted, Read read)
{
    std::filesystem::remove(specFile);
    const auto scanned = Reader::create();
    if (!succeeds([&] { read(*scanned); })) {
        require(!std::filesystem::exists(specFile), "no index file is made of a damaged file");
        return nullptr;
    }
    RestartCheck(size, true).run(*scanned);
    if (!std::filesystem::exists(specFile))
        return scanned;
    const auto indexed = Reader::create(1);
    require(succeeds([&] { read(*indexed); }) && indexed->specFileExists(), "the index can be read");
    RestartCheck(size, !isFormatted).run(*indexed);
    checkSame(*scanned, *indexed, isFormatted);
    return scanned;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static const Scratch scratch;
    if (size > mostBytes)
        return 0;
    const bool isFormatted = size > 0 && data[0] != 0;
    const std::string file = scratch.write(isFormatted ? "CASE.FUNRST" : "CASE.UNRST", textOf(data, size));
    const std::string initSpec = scratch.path(isFormatted ? "CASE.FINSPEC" : "CASE.INSPEC");
    // The one file serves as init file, too.
    const auto init = checkTwice<InitReader>(initSpec, size, isFormatted,
                                             [&](InitReader& reader) { reader.read(file, isFormatted, initSpec, ""); });
    const std::string spec = scratch.path(isFormatted ? "CASE.FRSSPEC" : "CASE.RSSPEC");
    checkTwice<RestartReader>(spec, size, isFormatted,
                              [&](RestartReader& reader) { reader.read({file}, isFormatted, spec, init, nullptr); });
    return 0;
}
