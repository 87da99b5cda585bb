#pragma once

#include "initrestart/read/SpecIndexData.h"
#include "initrestart/read/StepWalk.h"

#include <mrlio/IRawDataAccess.h>

#include <map>
#include <optional>
#include <string>
#include <vector>

namespace Kvt::Mrl::MrlIO {

/// Where the keywords of a step, or of an init file, stand.
struct StepPlace
{
    std::string file;
    bool formatted = false;
    StepRangeSource findRange = [] { return StepRange(); }; ///< asked before a walk only
};

/// The header arrays of one step, or of an init file. Writers list only solution arrays in their index files, so what
/// the index lacks is taken from the data: the step's keyword headers are walked once, when this is first needed.
class StepHeaders
{
public:
    /// index, rawData   of the step, both outlive this object
    /// lacksHeaders     the index came from an index file; one that was worked out from the data lists every array
    StepHeaders(const SpecIndexData& index, const IRawDataAccess& rawData, StepPlace place, bool lacksHeaders);

    /// Whether the INTEHEAD of the index file has to stand for the global grid's, because the data file is missing.
    bool needsSubstitute(const std::vector<int>& substitute) const;

    /// The global grid's INTEHEAD, or the substitute if it is needed.
    bool caseIntehead(std::vector<int>& out, const std::vector<int>& substitute);

    /// False, with `out` empty, if there is no such array.
    /// throws   RestartReaderException or MrlIOException if it can't be read
    bool intehead(std::vector<int>& out, const std::string& lgr);

    /// Those of the global grid.
    bool logihead(std::vector<bool>& out);
    bool doubhead(std::vector<double>& out);

private:
    struct GridHeaders
    {
        std::optional<std::vector<int>> intehead;
        std::optional<std::vector<int>> logihead;
        std::optional<std::vector<double>> doubhead;
    };

    using Found = std::map<std::string, GridHeaders>; // by local grid

    class Walk;

    const GridHeaders* walked(const std::string& lgr);

    const SpecIndexData& index_;
    const IRawDataAccess& rawData_;
    StepPlace place_;
    bool lacksHeaders_;
    std::optional<Found> found_; // none before the walk
};

} // namespace Kvt::Mrl::MrlIO
