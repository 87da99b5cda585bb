#pragma once

#include <mrlio/Export.h>

namespace Kvt::Mrl::MrlIO {

/// Whether a well flows, as restart files hold it.
class MRLIO_EXPORT WellStatus
{
public:
    enum Enum : int
    {
        Shut = 0,
        Open = 1
    };
};

} // namespace Kvt::Mrl::MrlIO
