#include "Comparison.h"

#include <algorithm>
#include <cmath>
#include <iostream>

namespace checkcase {

void Comparison::expectSame(const std::string& what, double first, double second, double tolerance, double rounding)
{
    ++compared_;
    // Written so that a NaN is a difference.
    if (std::abs(first - second) <= tolerance * std::max(std::abs(first), std::abs(second)) + rounding)
        return;
    ++different_;
    std::cout << what << ": " << first << " and " << second << "\n";
}

void Comparison::expect(const std::string& what, bool isTrue)
{
    ++compared_;
    if (isTrue)
        return;
    ++different_;
    std::cout << what << "\n";
}

} // namespace checkcase
