#pragma once

#include <mrlio/DumpfluxConnection.h>
#include <mrlio/Export.h>

namespace Kvt::Mrl::MrlIO {

/// The connections of a dumpflux file, counted from 0, in a program's own form. The order of the virtual operations is
/// part of the interface.
///
/// Only used during the call that takes it.
class MRLIO_EXPORT IDumpfluxConnectionArray
{
public:
    virtual ~IDumpfluxConnectionArray() = default;

    /// Number of connections.
    virtual int size() const = 0;

    virtual DumpfluxConnection get(int index) const = 0;
};

} // namespace Kvt::Mrl::MrlIO
