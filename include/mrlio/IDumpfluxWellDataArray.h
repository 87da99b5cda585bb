#pragma once

#include <mrlio/DumpfluxWellData.h>
#include <mrlio/Export.h>

namespace Kvt::Mrl::MrlIO {

/// The wells of one time range, counted from 0, in a program's own form. The order of the virtual operations is part of
/// the interface.
///
/// Only used during the call that takes it.
class MRLIO_EXPORT IDumpfluxWellDataArray
{
public:
    virtual ~IDumpfluxWellDataArray() = default;

    /// Number of wells; 0 leaves the wells of the time range out.
    virtual int size() const = 0;

    /// What the result points to must stay good until the next call of get, or the end of the writer's call.
    virtual DumpfluxWellData get(int index) const = 0;
};

} // namespace Kvt::Mrl::MrlIO
