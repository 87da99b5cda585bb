#pragma once

#include <mrlio/Export.h>
#include <mrlio/LogWrapper.h>

namespace Kvt::Mrl::MrlIO {

/// The settings that the builders of init and restart readers share.
class MRLIO_EXPORT InitRestartReaderBuilderBase
{
protected:
    InitRestartReaderBuilderBase() = default;
    InitRestartReaderBuilderBase(const InitRestartReaderBuilderBase&) = default;
    InitRestartReaderBuilderBase& operator=(const InitRestartReaderBuilderBase&) = default;
    ~InitRestartReaderBuilderBase() = default;

    int propertyCacheLimit_ = 0;
    bool generateSpecFile_ = false;
    LogWrapper log_;
};

} // namespace Kvt::Mrl::MrlIO
