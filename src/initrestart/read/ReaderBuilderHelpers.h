#pragma once

#include <mrlio/CaseFileFinder.h>
#include <mrlio/FileIdentifiers.h>
#include <mrlio/LogWrapper.h>

#include <string>

/// \file
/// What the builders of init and restart readers have in common.

namespace Kvt::Mrl::MrlIO {

/// The finder of a file's neighbours: of those with the same root name in its directory.
CaseFileFinder finderBeside(const std::string& file);

/// The index file that was found; where there is none, the name of the one that is to be written, or nothing.
///
/// extension   of an index file of that kind
std::string chooseSpecFile(const std::string& found, bool generate, const ICaseFileFinder& finder,
                           const std::string& extension);

/// Whether a file was named and something of that name is there. False also if that can't be found out.
bool fileIsThere(const std::string& file);

/// Logs the exception that is being handled, its text behind `failure`.
void logException(const LogWrapper& log, const char* failure) noexcept;

/// Runs what makes a reader. An exception is logged behind `failure`, and the result is null.
template <class Build>
auto buildGuarded(const LogWrapper& log, const char* failure, Build&& build) -> decltype(build())
{
    try {
        return build();
    } catch (...) {
        logException(log, failure);
    }
    return nullptr;
}

} // namespace Kvt::Mrl::MrlIO
