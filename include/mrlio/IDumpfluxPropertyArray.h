#pragma once

#include <mrlio/Export.h>

#include <string>

namespace Kvt::Mrl::MrlIO {

/// The values of one property in one time range, counted from 0, in a program's own form. The order of the virtual
/// operations is part of the interface.
class MRLIO_EXPORT IDumpfluxPropertyArray
{
public:
    virtual ~IDumpfluxPropertyArray() = default;

    /// Number of values. Readers expect one for each connection of the file where the boundary is FLUX; where it is
    /// PRESSURE, those of all first cells and then those of all second cells.
    virtual int size() const = 0;

    virtual double getValue(int index) const = 0;

    /// The keyword of the property: 1 to 8 characters, and none of the file's own keywords.
    virtual std::string getName() const = 0;
};

} // namespace Kvt::Mrl::MrlIO
