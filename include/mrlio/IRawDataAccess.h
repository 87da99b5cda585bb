#pragma once

#include <mrlio/ArrayInfo.h>
#include <mrlio/Export.h>
#include <mrlio/SpecStatsData.h>

#include <string>
#include <vector>

namespace Kvt::Mrl::MrlIO {

/// The arrays of an init file or of one report step, as the file holds them.
///
/// name   the array's name; of arrays with the same name the first one is meant
/// lgr    the local grid, empty for the global grid
/// lgr2   the second local grid for what lies between two, in any order; empty otherwise
///
/// Listing touches no data file, except that the first question for a pair of local grids walks the headers of the
/// step, reads what lies between local grids, and throws RestartReaderException or MrlIOException if it can't. Every
/// getAnyArray opens the file, goes to the array, reads and closes it again, whatever the number of steps and the
/// array's place. An access belongs to the reader that gave it, lives as long, and is used by one thread. The order of
/// the virtual operations is part of the interface.
class MRLIO_EXPORT IRawDataAccess
{
public:
    /// The arrays of a grid, in file order; an empty table for an unknown grid.
    virtual const SpecStatsData& arrays(const std::string& lgr = {}, const std::string& lgr2 = {}) const = 0;

    virtual bool hasArray(const std::string& name, const std::string& lgr = {}, const std::string& lgr2 = {}) const = 0;

    /// Name, type, size and extrema from the index. False, with `out` as it was, for an unknown array.
    virtual bool getArrayInfo(const std::string& name, ArrayInfo& out, const std::string& lgr = {},
                              const std::string& lgr2 = {}) const = 0;

    /// Reads an array, also into a wider element type than its own: INTE and LOGI as int, float, double and bool (true
    /// for all but 0), REAL as float and double, DOUB as double, strings as strings.
    ///
    /// out      its content is replaced; empty after a failure
    /// returns  false for an unknown array
    /// throws   RestartReaderException if the file can't be opened or the array can't be read, MrlIOException for a
    ///          type that isn't converted
    virtual bool getAnyArray(const std::string& name, std::vector<std::string>& out, const std::string& lgr = {},
                             const std::string& lgr2 = {}) const = 0;
    virtual bool getAnyArray(const std::string& name, std::vector<bool>& out, const std::string& lgr = {},
                             const std::string& lgr2 = {}) const = 0;
    virtual bool getAnyArray(const std::string& name, std::vector<int>& out, const std::string& lgr = {},
                             const std::string& lgr2 = {}) const = 0;
    virtual bool getAnyArray(const std::string& name, std::vector<float>& out, const std::string& lgr = {},
                             const std::string& lgr2 = {}) const = 0;
    virtual bool getAnyArray(const std::string& name, std::vector<double>& out, const std::string& lgr = {},
                             const std::string& lgr2 = {}) const = 0;

    virtual ~IRawDataAccess() = default;
};

} // namespace Kvt::Mrl::MrlIO
