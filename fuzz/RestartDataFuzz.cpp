// Restart data of any content, formatted as text if they don't begin as a binary record does: opened by a scan, then
// everything is asked for. A reader that opens the index file which the first one wrote has to give the same.
#include "support/RestartValues.h"

#include <filesystem>

namespace {

using namespace MrlIOFuzz;

constexpr std::size_t mostBytes = 65536;

void checkSameIndex(RestartReader& scanned, RestartReader& indexed)
{
    require(scanned.minIndex() == indexed.minIndex() && scanned.maxIndex() == indexed.maxIndex(), "the same steps");
    for (int index = scanned.minIndex(); index >= 0 && index <= scanned.minIndex() + 64; ++index) {
        require(scanned.isValidIndex(index) == indexed.isValidIndex(index), "the same steps are valid");
        if (scanned.isValidIndex(index))
            require(scanned.rawData(index)->arrays().numbers == indexed.rawData(index)->arrays().numbers, "same rows");
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static const Scratch scratch;
    if (size > mostBytes)
        return 0;
    const bool isFormatted = size > 0 && data[0] != 0;
    const std::string file = scratch.write(isFormatted ? "CASE.FUNRST" : "CASE.UNRST", textOf(data, size));
    const std::string specFile = scratch.path(isFormatted ? "CASE.FRSSPEC" : "CASE.RSSPEC");
    std::filesystem::remove(specFile);
    const auto scanned = RestartReader::create();
    if (!succeeds([&] { scanned->read({file}, isFormatted, specFile, nullptr, nullptr); })) {
        require(!std::filesystem::exists(specFile), "no index file is made of a damaged file");
        return 0;
    }
    RestartCheck(size).run(*scanned);
    if (!std::filesystem::exists(specFile))
        return 0;
    const auto indexed = RestartReader::create();
    require(succeeds([&] { indexed->read({file}, isFormatted, specFile, nullptr, nullptr); }), "the index can be read");
    RestartCheck(size).run(*indexed);
    checkSameIndex(*scanned, *indexed);
    return 0;
}
