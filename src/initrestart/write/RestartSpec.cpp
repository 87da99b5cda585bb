#include <mrlio/RestartSpec.h>

#include "core/Fail.h"

#include <cmath>
#include <stdexcept>

namespace Kvt::Mrl::MrlIO {

namespace {

constexpr int maxRootNameLength = 72;

} // namespace

RestartSpec::RestartSpec(const std::string& rootName, int reportStep, int miniStep, float elapsedTime)
    : rootName_(rootName),
      reportStep_(reportStep),
      miniStep_(miniStep),
      elapsedTime_(elapsedTime)
{
    if (rootName.size() > maxRootNameLength)
        fail<std::invalid_argument>("Invalid Restart root name: ", rootName, ".  Names longer than ", maxRootNameLength,
                                    " characters are not supported.");
    if (reportStep < 1)
        fail<std::invalid_argument>("Invalid report step: ", reportStep, ". Report step must be >= 1.");
    // The last two texts name the report step and not the value that is wrong, and are kept so.
    if (miniStep < 0)
        fail<std::invalid_argument>("Invalid ministep: ", reportStep, ". Ministep must be >= 0.");
    if (!std::isfinite(elapsedTime) || elapsedTime < 0.0F)
        fail<std::invalid_argument>("Invalid elapsed time: ", reportStep, ". Elapsed time must be >= 0.0.");
}

int RestartSpec::getMaxRestartRootNameLength()
{
    return maxRootNameLength;
}

} // namespace Kvt::Mrl::MrlIO
