#pragma once

#include <cstddef>

/// \file
/// What stands where in a boundary flux dump. Reader and writer take it from here alone.

namespace Kvt::Mrl::MrlIO::DumpfluxLayout {

// The keywords that a dump begins with, in the order in which they are written.
inline constexpr const char* FLUXTYPE = "FLUXTYPE";
inline constexpr const char* RESTART = "RESTART";
inline constexpr const char* RESTNUMB = "RESTNUMB";
inline constexpr const char* INTEHEAD = "INTEHEAD";
inline constexpr const char* LOGIHEAD = "LOGIHEAD";
inline constexpr const char* DOUBHEAD = "DOUBHEAD";
inline constexpr const char* INDXFLUX = "INDXFLUX";

// The keywords of each time range; its properties stand between DTIME and WELLNAME.
inline constexpr const char* ITIME = "ITIME";
inline constexpr const char* DTIME = "DTIME";
inline constexpr const char* WELLNAME = "WELLNAME";
inline constexpr const char* WELLFLOW = "WELLFLOW";
inline constexpr const char* WELLCOMP = "WELLCOMP";

namespace FluxType {
inline constexpr std::size_t simulator = 0;
inline constexpr std::size_t boundary = 1;
inline constexpr std::size_t sourceApplication = 2;
inline constexpr std::size_t size = 3;
} // namespace FluxType

/// Positions in INTEHEAD; what isn't set is -2345.
namespace IntHead {
inline constexpr std::size_t maximumNumberWells = 0; // MB30
inline constexpr std::size_t simulatorVersion = 1;   // MA10
inline constexpr std::size_t numberComponents = 1;   // MB30
inline constexpr std::size_t unitSystem = 2;
inline constexpr std::size_t gridDimensions = 8; // NX, NY, NZ
inline constexpr std::size_t simulatorMark = 94; // MB30
inline constexpr std::size_t boundaryType = 209; // MA10
inline constexpr std::size_t sizeMA10 = 210;
inline constexpr std::size_t sizeMB30 = 250;
inline constexpr int unset = -2345;
inline constexpr int markOfMB30 = 300;
} // namespace IntHead

namespace LogiHead {
inline constexpr std::size_t radial = 4;
inline constexpr std::size_t size = 5;
} // namespace LogiHead

namespace IntTime {
inline constexpr std::size_t reportNumber = 0;
inline constexpr std::size_t size = 10;
} // namespace IntTime

namespace DoubTime {
inline constexpr std::size_t start = 0;
inline constexpr std::size_t end = 1;
inline constexpr std::size_t averagePressure = 2;
inline constexpr std::size_t averageRs = 3;
inline constexpr std::size_t averageRv = 4;
inline constexpr std::size_t size = 10;
} // namespace DoubTime

/// INDXFLUX holds one column behind the other, in this order.
namespace IndexColumn {
inline constexpr std::size_t firstCell = 0;
inline constexpr std::size_t secondCell = 1;
inline constexpr std::size_t direction = 2;
inline constexpr std::size_t firstRegion = 3;
inline constexpr std::size_t secondRegion = 4;
inline constexpr std::size_t required = 5;
inline constexpr std::size_t count = 6;
} // namespace IndexColumn

/// WELLFLOW holds the rates of a well side by side: oil, water, gas, reservoir volume, energy.
inline constexpr std::size_t ratesPerWell = 5;

/// WELLCOMP holds for each well the molar rates of all components, then the liquid rates, then the vapour rates.
inline constexpr std::size_t ratesPerComponent = 3;

} // namespace Kvt::Mrl::MrlIO::DumpfluxLayout
