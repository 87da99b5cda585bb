#include "Wells.h"

namespace casereport {

namespace {

using namespace Kvt::Mrl::MrlIO;

/// Where IWEL holds what of a well, from 0.
constexpr std::size_t firstI = 0, firstJ = 1, connectionCount = 4, wellType = 6, wellStatus = 10, segmentedNumber = 70;

/// The arrays that tell of a grid's wells.
struct WellArrays
{
    std::vector<int> intehead, iwel;
    std::vector<std::string> zwel;
};

/// Moves on to a step in a file that holds all of them; in one of its own it begins at once.
bool goToStep(MorvaneReader& reader, int step, bool unified)
{
    KeywordHeader header;
    while (unified && reader.readNextKeywordHeader(header)) {
        std::vector<int> number;
        if (header.name() == "SEQNUM" && reader.readDataVector(header, number) && !number.empty() &&
            number.front() == step)
            return true;
    }
    return !unified;
}

/// From the step's start to the end of the grid's headers.
WellArrays readArrays(MorvaneReader& reader, const std::string& grid)
{
    WellArrays arrays;
    std::string current;
    for (KeywordHeader header; reader.readNextKeywordHeader(header) && header.name() != "SEQNUM";) {
        std::vector<std::string> names;
        if (header.name() == "LGR" && reader.readDataVector(header, names))
            current = RestartKeywordAccess::getLGRNAME(names);
        else if (current != grid)
            continue;
        else if (header.name() == "INTEHEAD")
            reader.readDataVector(header, arrays.intehead);
        else if (header.name() == "IWEL")
            reader.readDataVector(header, arrays.iwel);
        else if (header.name() == "ZWEL")
            reader.readDataVector(header, arrays.zwel);
        else if (header.name() == "STARTSOL")
            break;
    }
    return arrays;
}

std::vector<CaseWell> makeWells(const WellArrays& arrays)
{
    const int count = RestartKeywordAccess::getINTEHEAD_NWELL(arrays.intehead);
    const auto words = static_cast<std::size_t>(RestartKeywordAccess::getINTEHEAD_NIWEL(arrays.intehead));
    const auto names = static_cast<std::size_t>(RestartKeywordAccess::getINTEHEAD_NZWEL(arrays.intehead));
    std::vector<CaseWell> wells;
    for (std::size_t n = 0; count > 0 && n < static_cast<std::size_t>(count); ++n) {
        if (words <= segmentedNumber || (n + 1) * words > arrays.iwel.size() || (n + 1) * names > arrays.zwel.size())
            break;
        const int* word = arrays.iwel.data() + n * words;
        CaseWell well;
        for (std::size_t piece = 0; piece < names; ++piece)
            well.name += arrays.zwel[n * names + piece];
        well.i = word[firstI];
        well.j = word[firstJ];
        well.connections = word[connectionCount];
        well.isInjector = word[wellType] > WellType::Producer;
        well.isOpen = word[wellStatus] == WellStatus::Open;
        well.segmentedNumber = word[segmentedNumber];
        wells.push_back(std::move(well));
    }
    return wells;
}

} // namespace

std::vector<CaseWell> wellsAt(const RestartReader& steps, int step, const std::string& grid)
{
    const std::string file = steps.restartFile(step);
    const auto reader = MorvaneReaderUtils::createReader(file, FileIdentifiers::Restart::isFormatted(file));
    if (!reader || !goToStep(*reader, step, FileIdentifiers::Restart::isUnified(file)))
        return {};
    const WellArrays arrays = readArrays(*reader, grid);
    return arrays.intehead.empty() ? std::vector<CaseWell>() : makeWells(arrays);
}

} // namespace casereport
