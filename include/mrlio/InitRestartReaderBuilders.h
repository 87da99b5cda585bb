#pragma once

#include <mrlio/Export.h>
#include <mrlio/InitReaderBuilder.h>
#include <mrlio/RestartReaderBuilder.h>

namespace Kvt::Mrl::MrlIO {

/// Both builders, with settings made once for the two.
class MRLIO_EXPORT InitRestartReaderBuilders
{
public:
    InitRestartReaderBuilders() = default;

    /// The builders themselves; they live as long as this object. In the scope of this class their names mean these
    /// operations, hence the qualified types.
    MrlIO::InitReaderBuilder& InitReaderBuilder() { return initReaderBuilder_; }

    MrlIO::RestartReaderBuilder& RestartReaderBuilder() { return restartReaderBuilder_; }

    /// The settings of IRestartReaderBuilder, forwarded to both.
    InitRestartReaderBuilders& withLogger(const ILog* logger);
    InitRestartReaderBuilders& withPropertyCacheLimit(int limit);
    InitRestartReaderBuilders& withSpecFile();
    InitRestartReaderBuilders& withSpecFile(bool generate);
    InitRestartReaderBuilders& withoutSpecFile();

private:
    MrlIO::InitReaderBuilder initReaderBuilder_;
    MrlIO::RestartReaderBuilder restartReaderBuilder_;
};

} // namespace Kvt::Mrl::MrlIO
