#pragma once

#include <mrlio/Export.h>
#include <mrlio/PhaseType.h>
#include <mrlio/UnitSystemType.h>
#include <mrlio/service/HourMinuteSecondMillisecond.h>
#include <mrlio/service/Namespaces.h>
#include <mrlio/service/YearMonthDay.h>

#include <string>
#include <vector>

namespace Kvt::Mrl::MrlIO {

/// What the words of the header arrays of init and restart files mean. The operations take an array as a reader gives
/// it, and keep nothing.
///
/// Where nothing else is said, an array that is too short for what is asked throws RestartReaderException "Number of
/// values in RESTART/INIT keyword is less than expected".
class MRLIO_EXPORT RestartKeywordAccess
{
public:
    RestartKeywordAccess() = delete;

    /// 4, which has no label, if the word is no unit system.
    /// throws   RestartReaderException "INTEHEAD keyword contains less than 3 values"
    static UnitSystemType::Enum getINTEHEADUnitSystem(const std::vector<int>& array);

    /// Numbers of cells of the grid that the array belongs to, as they stand there.
    /// throws   RestartReaderException "INTEHEAD keyword contains less than 11 values", the outputs untouched
    static void getINTEHEADGridDims(const std::vector<int>& array, int& nx, int& ny, int& nz);

    static int getINTEHEADActiveCells(const std::vector<int>& array);

    /// 7, which has no label, if the word is no set of phases.
    /// throws   RestartReaderException "INTEHEAD keyword contains less than 15 values"
    static PhaseType::Enum getINTEHEADPhases(const std::vector<int>& array);

    /// Number of wells.
    static int getINTEHEAD_NWELL(const std::vector<int>& array);
    /// Most connections of a well.
    static int getINTEHEAD_NCWMA(const std::vector<int>& array);
    /// Words per well in IWEL.
    static int getINTEHEAD_NIWEL(const std::vector<int>& array);
    /// Strings per well in ZWEL.
    static int getINTEHEAD_NZWEL(const std::vector<int>& array);
    /// Words per connection in ICON.
    static int getINTEHEAD_NICON(const std::vector<int>& array);
    /// Number of rivers.
    static int getINTEHEAD_NRIVER(const std::vector<int>& array);

    /// throws   RestartReaderException "INTEHEAD keyword contains less than 67 values", or "Cannot get the date from
    ///          INTEHEAD keyword." if there is no such day; `out` untouched
    static void getINTEHEADDate(const std::vector<int>& array, Service::YearMonthDay& out);

    /// Time of day. False, with `out` untouched, for an array of fewer than 411 words, as older files have it, and if
    /// the words are no time of day.
    static bool getINTEHEADTime(const std::vector<int>& array, Service::HourMinuteSecondMillisecond& out);

    static bool getLOGIHEADIsDualPorosity(const std::vector<bool>& array);

    /// Time of day. An array of 161 items or fewer doesn't have it and leaves `out` untouched.
    /// lab      the case is in LAB units: hours then, counted from the start, else days; to the nearest millisecond
    ///          for days, cut to it for hours
    /// throws   ServiceException if the items are no time of day: below the start, 24 hours behind it or more in LAB
    ///          units, not finite or too large
    static void getDOUBHEADTime(const std::vector<double>& array, bool lab, Service::HourMinuteSecondMillisecond& out);

    /// Number of the report step.
    static int getITIMEIndex(const std::vector<int>& array);

    /// False, with `out` untouched, for an array of fewer than 4 words.
    /// throws   ServiceException if there is no such day
    static bool getITIMEDate(const std::vector<int>& array, Service::YearMonthDay& out);

    /// Time of day. False, with `out` untouched, for an array of fewer than 13 words.
    /// throws   ServiceException if the words are no time of day
    static bool getITIMETime(const std::vector<int>& array, Service::HourMinuteSecondMillisecond& out);

    /// Time since the start of the case, in days (hours in LAB units).
    static double getTIME(const std::vector<double>& array);
    /// Number of the report step.
    static int getSEQNUM(const std::vector<int>& array);
    /// Name of the local grid.
    static std::string getLGRNAME(const std::vector<std::string>& array);
};

} // namespace Kvt::Mrl::MrlIO
