#include "summary/SummaryWriterImpl.h"

#include "core/Fail.h"
#include "files/Extensions.h"
#include "files/OutputDirectory.h"

#include <mrlio/MorvaneAsciiWriter.h>

#include <cmath>
#include <stdexcept>
#include <utility>

namespace Kvt::Mrl::MrlIO {

namespace {

Service::FileName checkedSpecFile(const SummaryWriterSetup& setup, const Service::Directory& directory)
{
    const std::string extension = extensions::ofNewFile(extensions::summarySpec, setup.formatted);
    Service::FileName file = outputFile(directory, setup.rootName, extension, setup.params.swapExtensionCase);
    if (!setup.params.overwriteSpec && file.FileExists())
        throw std::invalid_argument(fileExistsText(file));
    return file;
}

SummaryCaseFacts caseFacts(const SummaryWriterSetup& setup)
{
    SummaryCaseFacts facts(setup.grid);
    facts.startDate = setup.startDate;
    facts.startTime = setup.startTime;
    if (setup.restart != nullptr) {
        facts.restartRoot = setup.restart->getRestartRootName();
        facts.restartReportStep = setup.restart->getReportStep() - 1;
    }
    facts.simulatorValue = setup.params.simulatorValue;
    facts.writeINTEHEAD = setup.writeINTEHEAD;
    facts.longNames = setup.params.longNames;
    return facts;
}

} // namespace

SummaryWriterImpl::SummaryWriterImpl(const SummaryWriterSetup& setup, const LocalClock& clock)
    : clock_(clock),
      wallStart_(clock_()),
      directory_(outputDirectory(setup.directory)),
      case_(caseFacts(setup)),
      vectors_(setup.grid.getUnits(), setup.params.longNames),
      specFile_(checkedSpecFile(setup, directory_), setup.formatted),
      dataFile_(directory_, setup.rootName, setup.formatted, setup.params, clock_),
      hasTimeStamps_(!setup.params.noTimeStamps)
{
    if (setup.restart != nullptr) {
        reportStep_ = setup.restart->getReportStep();
        miniStep_ = setup.restart->getMiniStep();
        elapsedDays_ = setup.restart->getElapsedTime();
    }
    if (setup.params.strict)
        MorvaneAsciiWriter::setStrict(true);
}

SummaryWriterImpl::~SummaryWriterImpl()
{
    try {
        writeSpec(true);
    } catch (...) {
        // Nobody is left to be told.
    }
}

void SummaryWriterImpl::addArraySpec(const std::string& grid, const ISummaryVectorArraySpec& spec)
{
    if (hasProgressed_)
        throw std::runtime_error("An array specification cannot be added once the writer has"
                                 "                              progressed beyond the first ministep");
    vectors_.add(grid, spec);
    isSpecWritten_ = false;
}

void SummaryWriterImpl::updateArraySpec(const std::string& grid, const ISummaryVectorArraySpec& spec)
{
    vectors_.update(grid, spec);
}

int SummaryWriterImpl::writeArray(const std::string& grid, const ISummaryVectorArray& array)
{
    if (!isOpen_)
        throw std::runtime_error("Unable to write array:  the SummaryWriter must be opened first.");
    SummaryGridVectors* vectors = vectors_.find(grid);
    if (vectors == nullptr)
        fail<std::invalid_argument>("Grid \"", grid, "\" has not been specified.");
    const int size = array.size();
    if (std::cmp_not_equal(size, vectors->rows.size()))
        fail<std::invalid_argument>("The size of the array to write (", size,
                                    ")is invalid. It must be the same size as its specification (",
                                    vectors->rows.size(), ").");
    if (!isMiniStepOpen_)
        throw std::runtime_error(
            "You cannot call writeArray after calling endMiniStep and before calling nextMiniStep");
    if (vectors->isWritten)
        fail<std::invalid_argument>("Grid \"", grid, "\" has already been written.");
    vectors->values.resize(vectors->rows.size());
    for (int i = 0; i < size; ++i)
        vectors->values[static_cast<std::size_t>(i)] = array.value(i);
    vectors->isWritten = true;
    return miniStep_;
}

int SummaryWriterImpl::nextMiniStep(float elapsedDays, bool rewriteSpec)
{
    if (!isOpen_)
        throw std::runtime_error("Unable to progress to next ministep:"
                                 "                          the SummaryWriter must be opened first.");
    checkNotEarlier(elapsedDays);
    if (isMiniStepOpen_) {
        const bool hasRecord = flushMiniStep(rewriteSpec);
        isMiniStepOpen_ = false;
        if (hasRecord)
            ++miniStep_;
    }
    elapsedDays_ = elapsedDays;
    hasProgressed_ = true;
    isMiniStepOpen_ = true;
    return miniStep_;
}

/// The number doesn't advance here, nor in a nextMiniStep that follows and finds no open step. That is kept so.
void SummaryWriterImpl::endMiniStep()
{
    if (!isOpen_)
        throw std::runtime_error("Unable to end ministep:"
                                 "                          the SummaryWriter must be opened first.");
    if (isMiniStepOpen_)
        flushMiniStep(false);
    isMiniStepOpen_ = false;
}

int SummaryWriterImpl::openAtNextReportStep(float elapsedDays)
{
    if (!std::isfinite(elapsedDays) || elapsedDays < 0.0F)
        fail<std::invalid_argument>("Elapsed time is invalid: ", elapsedDays, ".  Must be >= 0.0.");
    if (isOpen_)
        throw std::runtime_error("Unable to open SummaryWriter: already open.");
    checkNotEarlier(elapsedDays);
    if (isMiniStepOpen_)
        throw std::runtime_error(
            "Cannot call openAtNextReportStep before calling close() to finish previous report step");
    elapsedDays_ = elapsedDays;
    ++miniStep_;
    ++reportStep_;
    hasProgressed_ = true;
    isMiniStepOpen_ = true;
    isOpen_ = true;
    return miniStep_;
}

void SummaryWriterImpl::close()
{
    if (!isOpen_)
        return;
    isSpecWritten_ = false;
    if (isMiniStepOpen_)
        flushMiniStep(false);
    isMiniStepOpen_ = false;
    dataFile_.close();
    isOpen_ = false;
}

/// Writes the record of the open mini step, and before it the spec file if that is due. False if no grid has values.
bool SummaryWriterImpl::flushMiniStep(bool rewriteSpec)
{
    if (!isSpecWritten_ || rewriteSpec)
        tryToWriteSpec();
    if (!vectors_.isAnyWritten())
        return false;
    if (const SummaryGridVectors* missing = vectors_.firstMissing())
        fail<std::runtime_error>("Grid \"", missing->grid, "\" has been specified but not written at ministep ",
                                 miniStep_);
    dataFile_.append(reportStep_, miniStep_, vectors_.record(elapsedDays_));
    vectors_.clearWritten();
    hasProgressed_ = true; // another grid would change the length of the records within the file
    return true;
}

/// A spec file that can't be written now stops no record; the next one tries again.
void SummaryWriterImpl::tryToWriteSpec()
{
    isSpecWritten_ = false;
    try {
        writeSpec(false);
        isSpecWritten_ = true;
    } catch (const std::runtime_error&) {}
}

void SummaryWriterImpl::writeSpec(bool isFinal)
{
    SummaryRunFacts run;
    run.reportStep = reportStep_;
    run.elapsedDays = elapsedDays_;
    run.isFinal = isFinal;
    if (hasTimeStamps_) {
        run.wallStart = wallStart_;
        run.now = clock_();
    }
    specFile_.write(case_, run, vectors_);
}

void SummaryWriterImpl::checkNotEarlier(float elapsedDays) const
{
    if (!std::isfinite(elapsedDays) || elapsedDays < elapsedDays_)
        fail<std::invalid_argument>("Invalid time specified (", elapsedDays, " days).  Time cannot be earlier than",
                                    " the previous time step (", elapsedDays_, " days).");
}

} // namespace Kvt::Mrl::MrlIO
