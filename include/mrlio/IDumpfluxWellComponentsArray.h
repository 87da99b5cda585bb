#pragma once

#include <mrlio/DumpfluxWellComponentData.h>
#include <mrlio/Export.h>

namespace Kvt::Mrl::MrlIO {

/// The rates of the components of one well, counted from 0, in a program's own form. The order of the virtual
/// operations is part of the interface.
class MRLIO_EXPORT IDumpfluxWellComponentsArray
{
public:
    virtual ~IDumpfluxWellComponentsArray() = default;

    /// Number of components.
    virtual int size() const = 0;

    virtual DumpfluxWellComponentData get(int index) const = 0;
};

} // namespace Kvt::Mrl::MrlIO
