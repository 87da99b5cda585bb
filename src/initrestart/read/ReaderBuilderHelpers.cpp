#include "initrestart/read/ReaderBuilderHelpers.h"

#include "service/PathText.h"

#include <mrlio/service/FileName.h>

#include <boost/filesystem/operations.hpp>
#include <boost/system/error_code.hpp>

#include <exception>

namespace Kvt::Mrl::MrlIO {

namespace {

/// Nothing is left to be told where memory lacks even for the text.
void logCause(const LogWrapper& log, const char* failure, const char* cause) noexcept
{
    try {
        log.error(std::string(failure) + cause);
    } catch (const std::exception&) {}
}

} // namespace

CaseFileFinder finderBeside(const std::string& file)
{
    const Service::FileName name(file);
    return CaseFileFinder(name.GetRootName(), name.GetDirectory());
}

std::string chooseSpecFile(const std::string& found, bool generate, const ICaseFileFinder& finder,
                           const std::string& extension)
{
    if (!found.empty() || !generate)
        return found;
    return Service::joinedPath(finder.GetRoot(), finder.GetName() + "." + extension);
}

void logException(const LogWrapper& log, const char* failure) noexcept
{
    try {
        throw;
    } catch (const std::exception& cause) {
        logCause(log, failure, cause.what());
    } catch (...) {
        logCause(log, failure, "");
    }
}

bool fileIsThere(const std::string& file)
{
    boost::system::error_code ignored;
    return !file.empty() && boost::filesystem::exists(file, ignored);
}

} // namespace Kvt::Mrl::MrlIO
