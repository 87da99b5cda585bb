#pragma once

#include <mrlio/Export.h>
#include <mrlio/IDumpfluxPropertyArray.h>

namespace Kvt::Mrl::MrlIO {

/// The properties of one time range, counted from 0, in a program's own form. The order of the virtual operations is
/// part of the interface.
///
/// Only used during the call that takes it.
class MRLIO_EXPORT IDumpfluxPropertiesArray
{
public:
    virtual ~IDumpfluxPropertiesArray() = default;

    /// Number of properties.
    virtual int size() const = 0;

    /// Must stay good until the next call of get, or the end of the writer's call.
    virtual const IDumpfluxPropertyArray& get(int index) const = 0;
};

} // namespace Kvt::Mrl::MrlIO
