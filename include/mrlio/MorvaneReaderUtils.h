#pragma once

#include <mrlio/Export.h>
#include <mrlio/MorvaneReader.h>

#include <memory>
#include <string>

namespace Kvt::Mrl::MrlIO {

/// Makes the reader that fits the form of a file.
class MRLIO_EXPORT MorvaneReaderUtils
{
public:
    /// A reader on the file; null if the name is empty or the file can't be opened.
    static std::unique_ptr<MorvaneReader> createReader(const std::string& fileName, bool formatted);

    /// A reader at the start of a file that begins with a keyword header. Null if the file can't be opened, is empty,
    /// or begins with something else.
    /// throws MrlIOException if it begins with a damaged header
    static std::unique_ptr<MorvaneReader> createAndInitReader(const std::string& fileName, bool formatted);
};

} // namespace Kvt::Mrl::MrlIO
