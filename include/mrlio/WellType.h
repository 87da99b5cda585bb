#pragma once

#include <mrlio/Export.h>

namespace Kvt::Mrl::MrlIO {

/// What a well does, as restart files hold it.
class MRLIO_EXPORT WellType
{
public:
    enum Enum : int
    {
        Unknown = 0,
        Producer = 1,
        OilInjector = 2,
        WaterInjector = 3,
        GasInjector = 4
    };
};

} // namespace Kvt::Mrl::MrlIO
