#pragma once

#include "summary/SummaryWriterClock.h"
#include "summary/SummaryWriterVectors.h"

#include <mrlio/GridSpec.h>
#include <mrlio/service/HourMinuteSecondMillisecond.h>
#include <mrlio/service/Namespaces.h>
#include <mrlio/service/YearMonthDay.h>

#include <optional>
#include <string>

namespace Kvt::Mrl::MrlIO {

class KeywordWriter;

/// What the spec file tells of a case beside its vectors and never changes.
struct SummaryCaseFacts
{
    explicit SummaryCaseFacts(const GridSpec& gridOfCase) : grid(gridOfCase) {}

    GridSpec grid;
    Service::YearMonthDay startDate;
    Service::HourMinuteSecondMillisecond startTime;
    std::string restartRoot;   ///< empty if the case is no restart
    int restartReportStep = 0; ///< the last report step of the earlier case
    int simulatorValue = 0;
    bool writeINTEHEAD = false;
    bool longNames = false; ///< names go out as such even if they are short
};

/// What it tells of the run at the time of writing.
struct SummaryRunFacts
{
    int reportStep = 1;
    float elapsedDays = 0.0F;
    bool isFinal = false;
    std::optional<LocalTime> wallStart; ///< none if the file shall not depend on the time of writing
    std::optional<LocalTime> now;
};

/// Writes the keywords of a spec file.
/// throws   std::runtime_error for units that have no number in INTEHEAD
void writeSummarySpec(KeywordWriter& out, const SummaryCaseFacts& summaryCase, const SummaryRunFacts& run,
                      const SummaryWriterVectors& vectors);

} // namespace Kvt::Mrl::MrlIO
