#pragma once

#include <mrlio/DumpfluxHeaderData.h>
#include <mrlio/DumpfluxTimeSpec.h>
#include <mrlio/Export.h>
#include <mrlio/GridSpec.h>
#include <mrlio/IDumpfluxConnectionArray.h>
#include <mrlio/IDumpfluxPropertiesArray.h>
#include <mrlio/IDumpfluxWellDataArray.h>

#include <memory>
#include <string>

namespace Kvt::Mrl::MrlIO {

class DumpfluxWriterImpl;

/// Writes a dumpflux file (FLUX, or FFLUX if formatted): flows or pressures across the boundaries between the regions
/// of a model, one block for each time range.
///
///     DumpfluxWriter writer;
///     writer.open(directory, "CASE", header, grid, connections, false);
///     writer.write(DumpfluxTimeSpec(0.0, 30.0, 1, pressure, rs, rv), properties, wells);
///     writer.write(DumpfluxTimeSpec(30.0, 60.0, 2, pressure, rs, rv), properties, wells);
///     writer.close();
///
/// A file is written once: an existing one is never replaced or continued. Each block has reached the system when write
/// returns, so that between two calls other processes find whole blocks only; a block that can't be written is cut out
/// again. Everything is asked from the caller's interfaces before the first byte of a call goes out, so that what they
/// throw leaves the file as it was.
///
/// All checks throw std::invalid_argument, std::runtime_error stands for trouble with the file. Nothing that is passed
/// in is kept. Line breaks in names, and numbers that aren't finite, can make a formatted file unreadable; they aren't
/// looked for. One thread at a time.
class MRLIO_EXPORT DumpfluxWriter
{
public:
    /// No file is open.
    DumpfluxWriter();
    DumpfluxWriter(const DumpfluxWriter&) = delete;
    DumpfluxWriter& operator=(const DumpfluxWriter&) = delete;

    /// Closes. Never throws.
    ~DumpfluxWriter();

    /// Closes what is open, makes the file, and writes all that doesn't change with time.
    ///
    /// directory     must exist; a relative one counts from the current directory
    /// rootName      name of the case; the extension is added
    /// grid          dimensions, units and kind go into the header
    /// connections   at least one; their order is that of the values of every property
    /// formatted     a text file rather than an unformatted one
    /// throws        std::invalid_argument if the directory is none, the file exists, there are no connections, the
    ///               units have no code in the file, or the file can't be made. The writer is closed then, and no file
    ///               is left behind.
    void open(const std::string& directory, const std::string& rootName, const DumpfluxHeaderData& header,
              const GridSpec& grid, const IDumpfluxConnectionArray& connections, bool formatted);

    /// Adds the block of a time range.
    ///
    /// timeSpec     may touch the ranges written before and come in any order, but not be one of them, have its start
    ///              or its end inside one, or lie around one. (A range that has one bound in common with an earlier one
    ///              and goes beyond it at the other end passes all the same.)
    /// properties   at least one. All have the same number of values, for the life of the file; that isn't held against
    ///              the number of connections. The first call sets which properties there are, later ones must have
    ///              the same in any order.
    /// wells        may be empty; no two of the same name. For MB30 with a number of components each needs that many
    ///              component rates.
    /// throws       std::invalid_argument, with the file unchanged, if no file is open or one of these doesn't hold;
    ///              std::runtime_error if the block can't be written, which may be tried again
    ///
    /// The number of values that a failed first call found stays in force.
    void write(const DumpfluxTimeSpec& timeSpec, const IDumpfluxPropertiesArray& properties,
               const IDumpfluxWellDataArray& wells);

    /// Ends the file. Does nothing if none is open. Never throws; if the end can't be written, a line in the log says
    /// so.
    void close();

private:
    std::unique_ptr<DumpfluxWriterImpl> impl_;
};

} // namespace Kvt::Mrl::MrlIO
