#pragma once

#include <mrlio/Export.h>

namespace Kvt::Mrl::MrlIO {

/// The segments and branches of one multi-segment well, in a program's own form. Connections, segments and branches are
/// counted from 0 here; segments also have numbers of the user's, from 1. The order of the virtual operations is part
/// of the interface.
///
/// Only used during the call that takes it.
class MRLIO_EXPORT IMSWSegmentData
{
public:
    virtual ~IMSWSegmentData() = default;

    /// False makes the well an ordinary one, whose segments and branches aren't asked for.
    virtual bool isSegmented() const = 0;

    /// The same as the size of the well's connections, also for a well that isn't segmented: any other number makes the
    /// writer refuse the well.
    virtual int connectionCount() const = 0;

    /// The user's number of the segment that a connection feeds.
    virtual int getConnectionSegment(int connection) const = 0;

    virtual int segmentCount() const = 0;

    /// The user's number of a segment, 1 or above. Files hold as many records for each well as the largest number of
    /// all wells says, so numbers far above segmentCount cost room. Of two segments with one number the later counts.
    virtual int getUserIndex(int segment) const = 0;

    /// What goes into the fourth and the second word of the segment's record.
    virtual int getSegmentFourthValue(int segment) const = 0;
    virtual int getSegmentSecondValue(int segment) const = 0;

    virtual int branchCount() const = 0;

    /// What goes into the first word of the branch's record.
    virtual int getBranchHead(int branch) const = 0;
};

} // namespace Kvt::Mrl::MrlIO
