#pragma once

#include <mrlio/Export.h>

#include <map>
#include <string>

namespace Kvt::Mrl::MrlIO {

/// A program's own entries for the header arrays of the init and restart files that it writes: by position in the
/// array, counted from 0. The order of the virtual operations is part of the interface.
///
/// The writers ask once for each grid, when its headers are written: at the start of the grid in the sequential
/// writers, in close in the others. There they refuse an entry in a word that the library fills, with
/// std::runtime_error, and a position below 0 or above 4194303, with std::invalid_argument. A position behind the end of
/// the array makes it longer. The value that stands for an empty word (-2345, false, 0.0) counts as no entry.
///
/// Must live until the writer is closed. What it throws passes through the writer.
class MRLIO_EXPORT IRestartHeaderInfo
{
public:
    virtual ~IRestartHeaderInfo() = default;

    /// Entries for INTEHEAD, LOGIHEAD and DOUBHEAD.
    /// gridName   empty for the global grid
    /// values     empty; to be filled
    virtual void getIntegerHeader(const std::string& gridName, std::map<int, int>& values) const = 0;
    virtual void getLogicalHeader(const std::string& gridName, std::map<int, bool>& values) const = 0;
    virtual void getDoubleHeader(const std::string& gridName, std::map<int, double>& values) const = 0;
};

} // namespace Kvt::Mrl::MrlIO
