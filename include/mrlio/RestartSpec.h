#pragma once

#include <mrlio/Export.h>

#include <string>

namespace Kvt::Mrl::MrlIO {

/// The place in an earlier case from which a case restarts. A plain value, checked at construction.
class MRLIO_EXPORT RestartSpec
{
public:
    /// rootName      root name of the earlier case, at most 72 characters; may be empty
    /// reportStep    the first report step of the new case, at least 1
    /// miniStep      the number of its first mini step, at least 0
    /// elapsedTime   days since the start of the earlier case, at least 0 and finite
    /// throws        std::invalid_argument for anything else. The texts about miniStep and elapsedTime name the report
    ///               step, and are kept so.
    RestartSpec(const std::string& rootName, int reportStep, int miniStep, float elapsedTime);

    const std::string& getRestartRootName() const { return rootName_; }

    int getReportStep() const { return reportStep_; }

    int getMiniStep() const { return miniStep_; }

    /// Days.
    float getElapsedTime() const { return elapsedTime_; }

    /// 72 characters.
    static int getMaxRestartRootNameLength();

private:
    std::string rootName_;
    int reportStep_;
    int miniStep_;
    float elapsedTime_;
};

} // namespace Kvt::Mrl::MrlIO
