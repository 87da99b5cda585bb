#include "initrestart/read/LgrPairs.h"

#include "initrestart/read/SpecDataArrays.h"
#include "initrestart/read/SpecScan.h"

#include <algorithm>
#include <utility>
#include <vector>

namespace Kvt::Mrl::MrlIO {

namespace {

class PairScan
{
public:
    void take(MorvaneReader& reader, const KeywordHeader& header)
    {
        const std::string& name = header.name();
        if (name == "LGRJOIN")
            startPair(reader, header);
        else if (name == "LGR" || name == "ENDLGR" || name == "LGRSGONE")
            current_ = nullptr;
        if (current_ == nullptr)
            return;
        checkedCount(header);
        const Extrema extrema = arrayExtrema_.read(reader, header);
        appendRow(*current_, header, extrema);
    }

    LgrPairMap pairs;

private:
    /// A join of anything but two grids makes no pair.
    void startPair(MorvaneReader& reader, const KeywordHeader& header)
    {
        std::vector<std::string> names;
        readNeededArray(reader, header, names);
        current_ = nullptr;
        if (names.size() != 2)
            return;
        auto& rows = pairs[pairKey(names[0], names[1])];
        if (!rows)
            rows = std::make_shared<SpecStatsData>();
        current_ = rows.get();
    }

    SpecStatsData* current_ = nullptr;
    ArrayExtrema arrayExtrema_;
};

} // namespace

std::string pairKey(const std::string& lgr, const std::string& lgr2)
{
    const auto [first, second] = std::minmax(lgr, lgr2);
    return first + " + " + second;
}

LgrPairMap readLgrPairs(MorvaneReader& reader, const StepRange& range)
{
    PairScan scan;
    walkStep(reader, range, [&scan](MorvaneReader& stepReader, const KeywordHeader& header) {
        scan.take(stepReader, header);
        return true;
    });
    return std::move(scan.pairs);
}

} // namespace Kvt::Mrl::MrlIO
