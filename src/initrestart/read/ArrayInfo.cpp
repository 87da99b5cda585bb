#include <mrlio/ArrayInfo.h>

#include "service/MathHelpers.h"

#include <mrlio/service/Namespaces.h>

namespace Kvt::Mrl::MrlIO {

namespace {

bool isUnset(double value)
{
    return Service::Math::EqD(value, -999.0, 1e-13, 1e-30);
}

} // namespace

BasicArrayInfo::~BasicArrayInfo() = default;

bool ArrayInfo::isNull() const
{
    if (getSize() == 0)
        return true;
    switch (getType()) {
    case ValueType::DOUB:
    case ValueType::REAL:
        return max_ < -9.9999e+19;
    case ValueType::INTE:
        return isUnset(min_) && isUnset(max_);
    default:
        return false;
    }
}

} // namespace Kvt::Mrl::MrlIO
