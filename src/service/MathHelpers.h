#pragma once

#include <algorithm>
#include <cmath>

namespace Kvt::Mrl::Core::Service::Math {

/// True if the values are equal, or differ by no more than the absolute tolerance or the relative one (a part of the
/// larger magnitude). Nothing equals NaN, and an infinity equals only itself.
inline bool EqD(double a, double b, double relative, double absolute)
{
    if (a == b)
        return true;
    if (!std::isfinite(a) || !std::isfinite(b))
        return false;
    return std::fabs(a - b) <= std::max(absolute, relative * std::max(std::fabs(a), std::fabs(b)));
}

/// The same for single precision. The arithmetic is done in double, where differences of floats don't overflow.
inline bool EqF(float a, float b, float relative, float absolute)
{
    return EqD(a, b, relative, absolute);
}

} // namespace Kvt::Mrl::Core::Service::Math
