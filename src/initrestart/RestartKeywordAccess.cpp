#include <mrlio/RestartKeywordAccess.h>

#include "core/Fail.h"
#include "initrestart/HeaderPositions.h"

#include <mrlio/MrlIOException.h>
#include <mrlio/service/Exception.h>

#include <cmath>
#include <cstddef>

namespace Kvt::Mrl::MrlIO {

namespace {

namespace Doubhead = HeaderPositions::Doubhead;
namespace Intehead = HeaderPositions::Intehead;
namespace Itime = HeaderPositions::Itime;
namespace Logihead = HeaderPositions::Logihead;
using Service::HourMinuteSecondMillisecond;
using Service::YearMonthDay;

constexpr auto noUnitSystem = static_cast<UnitSystemType::Enum>(UnitSystemType::PVT_M + 1);
constexpr auto noPhases = static_cast<PhaseType::Enum>(PhaseType::OIL_WATER_GAS + 1);

template <class T>
T itemAt(const std::vector<T>& array, std::size_t position)
{
    if (array.size() <= position)
        fail<RestartReaderException>("Number of values in RESTART/INIT keyword is less than expected");
    return array[position];
}

void requireIntehead(const std::vector<int>& array, std::size_t count)
{
    if (array.size() < count)
        fail<RestartReaderException>("INTEHEAD keyword contains less than ", count, " values");
}

/// Words count from 1, values from 0.
template <class Enum>
Enum valueOfWord(int word, Enum none)
{
    return word >= 1 && word <= none ? static_cast<Enum>(word - 1) : none;
}

/// Taken as unsigned, so that what is below 0 is refused as too large.
HourMinuteSecondMillisecond timeOfWords(int hour, int minute, int microseconds)
{
    const auto sinceMinute = static_cast<unsigned>(microseconds);
    return {hour, minute, static_cast<int>(sinceMinute / 1000000), static_cast<int>(sinceMinute / 1000 % 1000)};
}

/// Hour, minute and so on, each cut to a whole number and the rest passed down. An hour that isn't one, be it not a
/// number, is left to the clock to refuse.
HourMinuteSecondMillisecond timeOfHours(double hours)
{
    const auto cut = [](double& part, double unitsInNext) {
        const int whole = static_cast<int>(part);
        part = (part - whole) * unitsInNext;
        return whole;
    };
    constexpr int noHour = 24;
    if (!(std::fabs(hours) < noHour))
        return {noHour, 0, 0, 0};
    const int hour = cut(hours, 60.0);
    const int minute = cut(hours, 60.0);
    const int second = cut(hours, 1000.0);
    return {hour, minute, second, static_cast<int>(hours)};
}

} // namespace

UnitSystemType::Enum RestartKeywordAccess::getINTEHEADUnitSystem(const std::vector<int>& array)
{
    requireIntehead(array, Intehead::unitSystem + 1);
    return valueOfWord(array[Intehead::unitSystem], noUnitSystem);
}

void RestartKeywordAccess::getINTEHEADGridDims(const std::vector<int>& array, int& nx, int& ny, int& nz)
{
    requireIntehead(array, Intehead::nz + 1);
    nx = array[Intehead::nx];
    ny = array[Intehead::ny];
    nz = array[Intehead::nz];
}

int RestartKeywordAccess::getINTEHEADActiveCells(const std::vector<int>& array)
{
    return itemAt(array, Intehead::activeCells);
}

PhaseType::Enum RestartKeywordAccess::getINTEHEADPhases(const std::vector<int>& array)
{
    requireIntehead(array, Intehead::phases + 1);
    return valueOfWord(array[Intehead::phases], noPhases);
}

int RestartKeywordAccess::getINTEHEAD_NWELL(const std::vector<int>& array)
{
    return itemAt(array, Intehead::wells);
}

int RestartKeywordAccess::getINTEHEAD_NCWMA(const std::vector<int>& array)
{
    return itemAt(array, Intehead::mostConnections);
}

int RestartKeywordAccess::getINTEHEAD_NIWEL(const std::vector<int>& array)
{
    return itemAt(array, Intehead::wellWords);
}

int RestartKeywordAccess::getINTEHEAD_NZWEL(const std::vector<int>& array)
{
    return itemAt(array, Intehead::wellNames);
}

int RestartKeywordAccess::getINTEHEAD_NICON(const std::vector<int>& array)
{
    return itemAt(array, Intehead::connectionWords);
}

int RestartKeywordAccess::getINTEHEAD_NRIVER(const std::vector<int>& array)
{
    return itemAt(array, Intehead::rivers);
}

void RestartKeywordAccess::getINTEHEADDate(const std::vector<int>& array, YearMonthDay& out)
{
    requireIntehead(array, Intehead::year + 1);
    try {
        out = YearMonthDay(array[Intehead::year], array[Intehead::month], array[Intehead::day]);
    } catch (const Service::ServiceException&) {
        fail<RestartReaderException>("Cannot get the date from INTEHEAD keyword.");
    }
}

bool RestartKeywordAccess::getINTEHEADTime(const std::vector<int>& array, HourMinuteSecondMillisecond& out)
{
    if (array.size() <= Intehead::microseconds)
        return false;
    const int hour = array[Intehead::hour];
    const int minute = array[Intehead::minute];
    const int microseconds = array[Intehead::microseconds];
    if (static_cast<unsigned>(hour) > 23 || static_cast<unsigned>(minute) > 59 ||
        static_cast<unsigned>(microseconds) > 59999999)
        return false;
    out = timeOfWords(hour, minute, microseconds);
    return true;
}

bool RestartKeywordAccess::getLOGIHEADIsDualPorosity(const std::vector<bool>& array)
{
    return itemAt(array, Logihead::dualPorosity);
}

void RestartKeywordAccess::getDOUBHEADTime(const std::vector<double>& array, bool lab, HourMinuteSecondMillisecond& out)
{
    if (array.size() <= Doubhead::currentTime)
        return;
    const double now = array[Doubhead::currentTime];
    if (lab) {
        out = timeOfHours(now - array[Doubhead::startTime]);
        return;
    }
    constexpr double halfMillisecond = 5.787037037037037e-9;
    constexpr double noDay = 2147483648.0;
    const double days = now + halfMillisecond;
    const bool isDay = std::fabs(days) < noDay;
    out = timeOfHours(isDay ? (days - std::trunc(days)) * 24.0 : noDay);
}

int RestartKeywordAccess::getITIMEIndex(const std::vector<int>& array)
{
    return itemAt(array, Itime::reportStep);
}

bool RestartKeywordAccess::getITIMEDate(const std::vector<int>& array, YearMonthDay& out)
{
    if (array.size() <= Itime::year)
        return false;
    out = YearMonthDay(array[Itime::year], array[Itime::month], array[Itime::day]);
    return true;
}

bool RestartKeywordAccess::getITIMETime(const std::vector<int>& array, HourMinuteSecondMillisecond& out)
{
    if (array.size() <= Itime::microseconds)
        return false;
    out = timeOfWords(array[Itime::hour], array[Itime::minute], array[Itime::microseconds]);
    return true;
}

double RestartKeywordAccess::getTIME(const std::vector<double>& array)
{
    return itemAt(array, 0);
}

int RestartKeywordAccess::getSEQNUM(const std::vector<int>& array)
{
    return itemAt(array, 0);
}

std::string RestartKeywordAccess::getLGRNAME(const std::vector<std::string>& array)
{
    return itemAt(array, 0);
}

} // namespace Kvt::Mrl::MrlIO
