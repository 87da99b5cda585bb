#pragma once

#include <mrlio/Export.h>

#include <string>
#include <vector>

namespace Kvt::Mrl::MrlIO {

/// The arrays of one grid in one report step (or in an init file), in file order: parallel columns with one row per
/// array. Of rows with the same name the first one counts.
///
/// A row's place in the data file is (pointersB << 31) + pointers, the byte offset of the array's header.
struct MRLIO_EXPORT SpecStatsData
{
    std::vector<std::string> names;
    /// Values of ValueType::Enum.
    std::vector<int> types;
    /// Numbers of elements.
    std::vector<int> numbers;
    std::vector<int> pointers;
    std::vector<int> pointersB;
    /// Smallest and largest value; both 0 for arrays without numbers.
    std::vector<double> minima;
    std::vector<double> maxima;

    bool operator==(const SpecStatsData&) const = default;
};

} // namespace Kvt::Mrl::MrlIO
