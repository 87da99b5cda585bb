#pragma once

#include <mrlio/service/FileName.h>

#include <cstdint>
#include <ios>

namespace Kvt::Mrl::Core::Service {
/// Small operations on whole files.
class FileUtils
{
public:
    /// Removes a file; a folder is not removed.
    /// throws   std::system_error, with the system's reason, if the file is not there or can't be removed
    static void Remove(const FileName& file);

    /// The line, counted from 1, in which a byte position of a text file lies; a line end belongs to the line it
    /// closes. A position behind the end counts as the end. 1 for a negative position or a file that can't be read.
    /// cost   one pass over the file up to the position, in pieces
    static std::int64_t ComputeLineNumber(const FileName& file, const std::streampos& position);
};
} // namespace Kvt::Mrl::Core::Service
