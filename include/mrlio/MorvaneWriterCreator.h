#pragma once

/// \file
/// Makes the writer of the wanted form.

#include <mrlio/Export.h>
#include <mrlio/MorvaneWriter.h>

#include <memory>

namespace Kvt::Mrl::MrlIO {

class MRLIO_EXPORT MorvaneWriterCreator
{
public:
    enum FileType : int
    {
        Formatted = 0,
        Unformatted = 1
    };

    /// A writer of the form, open on the file, which is emptied if it exists: formatted for 0, unformatted for any
    /// other value. Null if the file can't be opened.
    static std::unique_ptr<MorvaneWriter> create(const char* fileName, FileType type);
};

} // namespace Kvt::Mrl::MrlIO
