#pragma once

#include "summary/SummaryWriterClock.h"
#include "summary/SummaryWriterDataFile.h"
#include "summary/SummaryWriterSpecFile.h"
#include "summary/SummaryWriterVectors.h"

#include <mrlio/GridSpec.h>
#include <mrlio/MrlWriterDefaultParams.h>
#include <mrlio/RestartSpec.h>
#include <mrlio/service/Directory.h>
#include <mrlio/service/HourMinuteSecondMillisecond.h>
#include <mrlio/service/Namespaces.h>
#include <mrlio/service/YearMonthDay.h>

#include <string>

namespace Kvt::Mrl::MrlIO {

/// What a summary writer is built from.
struct SummaryWriterSetup
{
    const std::string& directory;
    const std::string& rootName;
    const GridSpec& grid;
    Service::YearMonthDay startDate;
    Service::HourMinuteSecondMillisecond startTime;
    const RestartSpec* restart = nullptr;
    bool formatted = false;
    const MrlWriterDefaultParams& params;
    bool writeINTEHEAD = false;
};

/// The steps of a summary writer: which calls are allowed when, which numbers and times the records carry, and when the
/// spec file is written.
class SummaryWriterImpl
{
public:
    explicit SummaryWriterImpl(const SummaryWriterSetup& setup, const LocalClock& clock = systemLocalTime);
    SummaryWriterImpl(const SummaryWriterImpl&) = delete;
    SummaryWriterImpl& operator=(const SummaryWriterImpl&) = delete;
    ~SummaryWriterImpl();

    void addArraySpec(const std::string& grid, const ISummaryVectorArraySpec& spec);
    void updateArraySpec(const std::string& grid, const ISummaryVectorArraySpec& spec);
    int writeArray(const std::string& grid, const ISummaryVectorArray& array);
    int nextMiniStep(float elapsedDays, bool rewriteSpec);
    void endMiniStep();
    int openAtNextReportStep(float elapsedDays);
    void close();

    int miniStep() const { return miniStep_; }

    int reportStep() const { return reportStep_; }

    float elapsedDays() const { return elapsedDays_; }

private:
    bool flushMiniStep(bool rewriteSpec);
    void tryToWriteSpec();
    void writeSpec(bool isFinal);
    void checkNotEarlier(float elapsedDays) const;

    LocalClock clock_;
    LocalTime wallStart_;
    Service::Directory directory_;
    SummaryCaseFacts case_;
    SummaryWriterVectors vectors_;
    SummaryWriterSpecFile specFile_;
    SummaryWriterDataFile dataFile_;
    bool hasTimeStamps_;

    int reportStep_ = 1;
    int miniStep_ = 0;
    float elapsedDays_ = 0.0F;
    bool isOpen_ = true;
    bool isMiniStepOpen_ = true; // the first one begins with the writer
    bool isSpecWritten_ = false; // the file stands for the vectors as they are
    bool hasProgressed_ = false; // beyond the first mini step, or past its record
};

} // namespace Kvt::Mrl::MrlIO
