#include <mrlio/ArrayConverter.h>

#include "core/Fail.h"

#include <mrlio/MrlIOException.h>

namespace Kvt::Mrl::MrlIO {

void ArrayConverter::failConversion(const std::type_info& stored, const std::type_info& wanted)
{
    // The name begins with MrlI and a zero: kept, since programs look for this text.
    fail<MrlIOException>("MrlI0::ArrayConverter", ": can not convert ", stored.name(), " to ", wanted.name());
}

} // namespace Kvt::Mrl::MrlIO
