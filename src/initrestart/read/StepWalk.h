#pragma once

#include <mrlio/MorvaneReader.h>

#include <cstdint>
#include <functional>

namespace Kvt::Mrl::MrlIO {

/// Where the keywords of a step stand in a data file. By default all keywords of the file up to a SEQNUM behind
/// the first one, which is right for init files and for files of one step.
struct StepRange
{
    std::int64_t begin = 0;    ///< of a keyword that stands before the step, or of the file's first one
    std::int64_t firstRow = 0; ///< of the first keyword of the step that the index knows
    int seqnum = -1;           ///< of the step; -1 if what SEQNUM holds doesn't matter
};

/// Finds out where a step stands, when a walk comes to need it.
using StepRangeSource = std::function<StepRange()>;

/// Looks at a keyword of the walk, and may read its data with the reader. False ends the walk.
using KeywordVisitor = std::function<bool(MorvaneReader& reader, const KeywordHeader& header)>;

/// Walks over the keywords of one step in file order, those that the index lacks included: from its SEQNUM, if it has
/// one, up to the next step's. Nothing is visited where the index disagrees with the file: no keyword at `begin`, or
/// another step's SEQNUM in front of the first row.
///
/// reader   on the file, standing anywhere
/// throws   MrlIOException for a damaged file, and what the visitor throws
/// cost     one step's headers
void walkStep(MorvaneReader& reader, const StepRange& range, const KeywordVisitor& visit);

} // namespace Kvt::Mrl::MrlIO
