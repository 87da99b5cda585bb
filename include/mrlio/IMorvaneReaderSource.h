#pragma once

#include <mrlio/Export.h>
#include <mrlio/MorvaneReader.h>

#include <memory>

namespace Kvt::Mrl::MrlIO {

/// Something that stands for one keyword file and builds readers on it. The order of the operations is part of the
/// interface.
class MRLIO_EXPORT IMorvaneReaderSource
{
public:
    /// A new reader at the start of the source's file; null if the file can't be read.
    virtual std::shared_ptr<MorvaneReader> createReader() = 0;

    virtual ~IMorvaneReaderSource() = default;
};

} // namespace Kvt::Mrl::MrlIO
