#include <mrlio/InitRestartReaderBuilders.h>

namespace Kvt::Mrl::MrlIO {

InitRestartReaderBuilders& InitRestartReaderBuilders::withLogger(const ILog* logger)
{
    initReaderBuilder_.withLogger(logger);
    restartReaderBuilder_.withLogger(logger);
    return *this;
}

InitRestartReaderBuilders& InitRestartReaderBuilders::withPropertyCacheLimit(int limit)
{
    initReaderBuilder_.withPropertyCacheLimit(limit);
    restartReaderBuilder_.withPropertyCacheLimit(limit);
    return *this;
}

InitRestartReaderBuilders& InitRestartReaderBuilders::withSpecFile()
{
    return withSpecFile(true);
}

InitRestartReaderBuilders& InitRestartReaderBuilders::withSpecFile(bool generate)
{
    initReaderBuilder_.withSpecFile(generate);
    restartReaderBuilder_.withSpecFile(generate);
    return *this;
}

InitRestartReaderBuilders& InitRestartReaderBuilders::withoutSpecFile()
{
    return withSpecFile(false);
}

} // namespace Kvt::Mrl::MrlIO
