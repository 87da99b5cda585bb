#pragma once

#include "summary/DataFileWalk.h"

#include <mrlio/KeywordHeader.h>
#include <mrlio/SummaryReportStepInfo.h>
#include <mrlio/service/FileName.h>
#include <mrlio/service/Namespaces.h>

#include <limits>
#include <list>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace Kvt::Mrl::MrlIO {

using SummaryReportSteps = std::list<std::shared_ptr<SummaryReportStepInfo>>;

/// Collects report steps and mini steps from the headers of summary data files, given one after the other.
///
/// A file that ends in the middle of a keyword gives what is complete before that, and the next file is scanned all the
/// same. What makes no sense throws SummaryReaderException, damaged framing MrlIOException.
class SummaryScan
{
public:
    /// Appends to the report steps. numVectors is -1 as long as no PARAMS was met.
    SummaryScan(SummaryReportSteps& reportSteps, int& numVectors) : reportSteps_(reportSteps), numVectors_(numVectors)
    {}

    /// False if the sequence numbers fall: what follows is left from an older run, and nothing behind that point
    /// counts.
    bool scan(const Service::FileName& file);

    /// Whether one of the files was cut off.
    bool hasMetCutFile() const { return hasMetCutFile_; }

private:
    static constexpr int noMiniStep = -999;

    /// A mini step whose data may turn out to be cut off.
    struct Candidate
    {
        int number;
        KeywordHeader params;
    };

    bool next(DataFileWalk& walk);
    bool handle(DataFileWalk& walk);
    bool beginReportStep(DataFileWalk& walk);
    void beginMiniStep(DataFileWalk& walk);
    void meetParams(const DataFileWalk& walk);
    void accept(DataFileWalk& walk);
    void addCandidate();

    SummaryReportSteps& reportSteps_;
    int& numVectors_;
    int lastSequenceNumber_ = std::numeric_limits<int>::min();
    int miniStep_ = noMiniStep;
    std::shared_ptr<SummaryReportStepInfo> reportStep_;
    std::optional<Candidate> candidate_;
    std::shared_ptr<const Service::FileName> file_; // the one being scanned
    std::vector<int> integers_;
    bool hasMetCutFile_ = false;
};

/// The number of values of the first PARAMS of a data file; 0 if there is none.
int countVectors(const Service::FileName& file);

} // namespace Kvt::Mrl::MrlIO
