#include "summary/SummaryScan.h"

#include "core/Fail.h"

#include <mrlio/MrlIOException.h>

#include <cstdint>

namespace Kvt::Mrl::MrlIO {

namespace {

void requireFile(const Service::FileName& file, const char* operation)
{
    if (!file.IsFile())
        fail<SummaryReaderException>(operation, ": file not found ", file.GetFullName());
}

/// A file that is there but can't be opened counts as one that isn't.
void requireOpen(const DataFileWalk& walk, const Service::FileName& file, const char* operation)
{
    if (!walk.isOpen())
        fail<SummaryReaderException>(operation, ": file not found ", file.GetFullName());
}

/// Places are int, so that no specification fits a longer PARAMS.
int vectorsOf(const DataFileWalk& walk, const char* operation)
{
    if (walk.header().size() > std::numeric_limits<int>::max())
        fail<SummaryReaderException>(operation, ": inconsistent PARAMS array length in ", walk.fileName());
    return static_cast<int>(walk.header().size());
}

constexpr const char* inInitialize = "SummaryContentIndex::initialize";
constexpr const char* inInitializeNumVectors = "SummaryContentIndex::initializeNumVectors";

} // namespace

bool SummaryScan::scan(const Service::FileName& file)
{
    requireFile(file, inInitialize);
    DataFileWalk walk(file);
    requireOpen(walk, file, inInitialize);
    file_ = std::make_shared<const Service::FileName>(file);
    bool sequenceRises = true;
    while (sequenceRises && next(walk))
        sequenceRises = handle(walk);
    accept(walk);
    hasMetCutFile_ = hasMetCutFile_ || walk.isCut();
    return sequenceRises;
}

/// Goes on to the next keyword. The mini step before it is settled then, before any complaint about what follows.
bool SummaryScan::next(DataFileWalk& walk)
{
    try {
        if (!walk.next())
            return false;
    } catch (const MrlIOException&) {
        addCandidate();
        throw;
    }
    addCandidate();
    return true;
}

/// False if the keyword shows that an older run follows.
bool SummaryScan::handle(DataFileWalk& walk)
{
    const std::string& name = walk.header().name();
    if (name == "PARAMS")
        meetParams(walk);
    else if (name == "MINISTEP")
        beginMiniStep(walk);
    else if (name == "SEQHDR")
        return beginReportStep(walk);
    return true;
}

bool SummaryScan::beginReportStep(DataFileWalk& walk)
{
    std::string ignored;
    const auto outcome = walk.readIntegers(integers_, ignored);
    if (outcome == DataFileWalk::Outcome::Cut)
        return true;
    if (outcome == DataFileWalk::Outcome::Read && integers_.size() == 1) {
        if (lastSequenceNumber_ > integers_.front())
            return false;
        lastSequenceNumber_ = integers_.front();
    }
    reportStep_ = std::make_shared<SummaryReportStepInfo>(file_);
    reportSteps_.push_back(reportStep_);
    return true;
}

void SummaryScan::beginMiniStep(DataFileWalk& walk)
{
    std::string cause;
    switch (walk.readIntegers(integers_, cause)) {
    case DataFileWalk::Outcome::Cut:
        return;
    case DataFileWalk::Outcome::Failed:
        fail<SummaryReaderException>(inInitialize, ": error reading MINISTEP in ", walk.fileName(),
                                     cause.empty() ? "" : "\n", cause);
    case DataFileWalk::Outcome::Read:
        break;
    }
    if (integers_.empty())
        throw SummaryReaderException("MINISTEP keyword contains less than 1 value");
    miniStep_ = integers_.front();
}

void SummaryScan::meetParams(const DataFileWalk& walk)
{
    // A report step lies in one file: the next file has to begin one of its own.
    if (!reportStep_ || (&reportStep_->fileName() != file_.get() && reportStep_->fileName() != *file_))
        fail<SummaryReaderException>(inInitialize, ": adding mini step to an unspecified report step");
    if (miniStep_ == noMiniStep)
        fail<SummaryReaderException>(inInitialize, ": PARAMS not associated with a MINISTEP in ", walk.fileName());
    if (numVectors_ == -1)
        numVectors_ = vectorsOf(walk, inInitialize);
    else if (walk.header().size() != numVectors_)
        fail<SummaryReaderException>(inInitialize, ": inconsistent PARAMS array length in ", walk.fileName());
    candidate_.emplace(Candidate{miniStep_, walk.header()});
    miniStep_ = noMiniStep;
}

/// Settles the last mini step of a file.
void SummaryScan::accept(DataFileWalk& walk)
{
    if (candidate_ && !walk.isWhole(candidate_->params)) {
        candidate_.reset();
        hasMetCutFile_ = true;
    }
    addCandidate();
}

void SummaryScan::addCandidate()
{
    if (!candidate_)
        return;
    const Candidate complete = *candidate_;
    candidate_.reset();
    reportStep_->addMiniStep(complete.number, complete.params.keywordPos());
}

int countVectors(const Service::FileName& file)
{
    requireFile(file, inInitializeNumVectors);
    DataFileWalk walk(file);
    requireOpen(walk, file, inInitializeNumVectors);
    while (walk.next()) {
        if (walk.header().name() == "PARAMS")
            return vectorsOf(walk, inInitializeNumVectors);
    }
    return 0;
}

} // namespace Kvt::Mrl::MrlIO
