#pragma once

#include <cstddef>

/// \file
/// Where things stand in the header arrays of init and restart files, counted from 0. The one home of these numbers,
/// for readers and writers alike.

namespace Kvt::Mrl::MrlIO::HeaderPositions {

/// Marks a word of INTEHEAD, ITIME and POINTERB that holds nothing.
constexpr int unsetWord = -2345;

namespace Intehead {

constexpr std::size_t unitSystem = 2; ///< METRIC 1, FIELD 2, LAB 3, PVT-M 4
constexpr std::size_t nx = 8;
constexpr std::size_t ny = 9;
constexpr std::size_t nz = 10;
constexpr std::size_t activeCells = 11;
constexpr std::size_t gridType = 13;
constexpr std::size_t phases = 14;
constexpr std::size_t wells = 16;
constexpr std::size_t mostConnections = 17;
constexpr std::size_t wellWords = 24;       ///< words per well in IWEL
constexpr std::size_t wellNames = 27;       ///< strings per well in ZWEL
constexpr std::size_t connectionWords = 32; ///< words per connection in ICON
constexpr std::size_t day = 64;
constexpr std::size_t month = 65;
constexpr std::size_t year = 66;
constexpr std::size_t simulator = 94;
constexpr std::size_t multiSegmentWells = 175;
constexpr std::size_t mostSegments = 176;
constexpr std::size_t mostBranches = 177;
constexpr std::size_t segmentWords = 178; ///< words per segment in ISEG
constexpr std::size_t branchWords = 180;  ///< words per branch in ILBR
constexpr std::size_t hour = 206;
constexpr std::size_t minute = 207;
constexpr std::size_t rivers = 251;
constexpr std::size_t microseconds = 410; ///< within the minute
constexpr std::size_t size = 411;

} // namespace Intehead

namespace Logihead {

constexpr std::size_t dualPorosity = 14;
constexpr std::size_t size = 15;

} // namespace Logihead

namespace Doubhead {

constexpr std::size_t time = 0;        ///< days, hours in LAB units
constexpr std::size_t startTime = 160; ///< day number of the start, with the fraction of the day, in the same unit
constexpr std::size_t currentTime = 161;
constexpr std::size_t size = 162;

} // namespace Doubhead

namespace Itime {

constexpr std::size_t reportStep = 0;
constexpr std::size_t day = 1;
constexpr std::size_t month = 2;
constexpr std::size_t year = 3;
constexpr std::size_t isZero = 5;
constexpr std::size_t formatted = 6; ///< 1 in a formatted file
constexpr std::size_t hour = 10;
constexpr std::size_t minute = 11;
constexpr std::size_t microseconds = 12; ///< within the minute
constexpr std::size_t size = 13;

} // namespace Itime

/// Words of LGRHEADI, LGRHEADQ and LGRHEADD, which hold nothing.
constexpr std::size_t lgrIntegerSize = 45;
constexpr std::size_t lgrLogicalSize = 5;
constexpr std::size_t lgrDoubleSize = 5;

namespace Iwel {

constexpr std::size_t firstI = 0;
constexpr std::size_t firstJ = 1;
constexpr std::size_t connections = 4;
constexpr std::size_t type = 6;
constexpr std::size_t status = 10;
constexpr std::size_t grid = 42;
constexpr std::size_t segmentedNumber = 70; ///< from 1, 0 for other wells
constexpr std::size_t size = 94;

} // namespace Iwel

namespace Icon {

constexpr std::size_t number = 0;
constexpr std::size_t i = 1;
constexpr std::size_t j = 2;
constexpr std::size_t k = 3;
constexpr std::size_t open = 5;
constexpr std::size_t direction = 13;
constexpr std::size_t segment = 14;
constexpr std::size_t size = 19;

} // namespace Icon

namespace Iseg {

constexpr std::size_t second = 1;
constexpr std::size_t fourth = 3;
constexpr std::size_t size = 4;

} // namespace Iseg

namespace Ilbr {

constexpr std::size_t head = 0;
constexpr std::size_t number = 4;
constexpr std::size_t size = 5;

} // namespace Ilbr

} // namespace Kvt::Mrl::MrlIO::HeaderPositions
