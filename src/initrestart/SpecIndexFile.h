#pragma once

#include <mrlio/KeywordWriter.h>
#include <mrlio/SpecStatsData.h>

#include <cstddef>
#include <cstdint>
#include <string>

/// \file
/// The keywords of the index files INSPEC and RSSPEC as they are written, by the writers of the data files and by the
/// readers that make up for a missing one.

namespace Kvt::Mrl::MrlIO {

/// The rows of one grid: LGRNAME for a named grid, NAME, TYPE, NUMBER, POINTER, POINTERB, ARRAYMAX, ARRAYMIN.
/// throws   as KeywordWriter::write does
void writeSpecSection(KeywordWriter& writer, const std::string& lgrName, const SpecStatsData& rows);

/// LGRSGONE without elements, which ends the sections of local grids; also ENDLGR, STARTSOL and ENDSOL in data files.
void writeEmptyKeyword(KeywordWriter& writer, const std::string& name);

/// A string keyword with a grid's name in it, LGR or LGRNAME: of type CHAR up to 8 characters, of its own width above.
void writeGridName(KeywordWriter& writer, const std::string& keyword, const std::string& name);

/// Adds a row, or takes a row's position apart again: byte offset = (pointersB << 31) + pointers.
void appendRow(SpecStatsData& rows, const std::string& name, int type, int count, std::int64_t position, double min,
               double max);
std::int64_t rowPosition(const SpecStatsData& rows, std::size_t row);
void setRowPosition(SpecStatsData& rows, std::size_t row, std::int64_t position);

} // namespace Kvt::Mrl::MrlIO
