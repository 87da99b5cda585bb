#include "initrestart/write/RestartWriterCore.h"

#include "core/Fail.h"
#include "core/KeywordEncoder.h"
#include "files/OutputDirectory.h"
#include "initrestart/SpecIndexFile.h"
#include "initrestart/write/IndexLeader.h"
#include "initrestart/write/WellRecords.h"

#include <mrlio/MorvaneAsciiWriter.h>
#include <mrlio/service/EnumInfo.h>

#include <algorithm>
#include <stdexcept>
#include <utility>

namespace Kvt::Mrl::MrlIO {

namespace {

RestartFileKind kindOf(const RestartWriterSetup& setup)
{
    return {.isRestart = setup.isRestart,
            .formatted = setup.formatted,
            .unified = setup.params.unified,
            .swapExtensionCase = setup.params.swapExtensionCase};
}

std::string labelOf(UnitSystemType::Enum units)
{
    std::string label;
    if (!Service::findLabel<UnitSystemType>(units, label))
        label = std::to_string(static_cast<int>(units));
    return label;
}

} // namespace

RestartWriterCore::RestartWriterCore(const RestartWriterSetup& setup)
    : form_{.formatted = setup.formatted, .skipChecks = setup.skipChecks},
      isRestart_(setup.isRestart),
      replacesSteps_(setup.replacesSteps),
      unified_(setup.params.unified),
      simulatorValue_(setup.params.simulatorValue),
      openName_(setup.openName),
      names_(setup.directory, setup.rootName, kindOf(setup)),
      output_(setup.formatted, setup.params),
      clock_(setup.startDate, setup.startTime)
{
    if (setup.params.strict)
        MorvaneAsciiWriter::setStrict(true);
}

void RestartWriterCore::addGridSpec(const GridSpec& spec)
{
    const std::string& name = spec.getLgrName();
    if (!gridNames_.empty() && spec.getUnits() != units_)
        fail<std::invalid_argument>("Inconsistent grid units: ", labelOf(spec.getUnits()),
                                    ". Previous units supplied: ", labelOf(units_));
    if (gridSpecs_.contains(name))
        fail<std::invalid_argument>("Grid: \"", name, "\" has already been defined.");
    const int longestName = widestStrings(form_.formatted);
    if (std::cmp_greater(name.size(), longestName))
        fail<std::invalid_argument>("Invalid grid name: ", name, ".  Grid names longer than ", longestName,
                                    " characters are not supported.");
    gridNames_.insert(name.empty() ? gridNames_.begin() : gridNames_.end(), name);
    gridSpecs_.emplace(name, spec);
    units_ = spec.getUnits();
}

const GridSpec* RestartWriterCore::find(const std::string& gridName) const
{
    const auto found = gridSpecs_.find(gridName);
    return found == gridSpecs_.end() ? nullptr : &found->second;
}

const GridSpec& RestartWriterCore::declared(const std::string& gridName, const char* refusal) const
{
    const GridSpec* spec = find(gridName);
    if (spec == nullptr)
        fail<std::invalid_argument>(refusal, "\"", gridName, "\". It must be defined first.");
    return *spec;
}

void RestartWriterCore::checkClosed() const
{
    if (isOpen_)
        fail<std::runtime_error>("Unable to open ", openName_, ": already open.");
}

void RestartWriterCore::openInit()
{
    checkClosed();
    const Service::FileName data = names_.data(0);
    if (!output_.mayOverwriteData() && data.FileExists())
        throw std::runtime_error(fileExistsText(data));
    clock_.setStart();
    output_.setFiles(data, names_.index());
    isOpen_ = true;
}

void RestartWriterCore::openStep(int reportStep, double elapsedDays)
{
    checkClosed();
    RestartClock clock = clock_;
    clock.setStep(reportStep, elapsedDays);
    if (names_.isSplit() && reportStep == 0 && !output_.mayOverwriteData())
        names_.refuseSteps();
    if (names_.isSplit() && replacesSteps_ && output_.mayOverwriteData()) {
        names_.deleteSteps();
        output_.spendOverwriteData();
    }
    clock_ = clock;
    output_.setFiles(names_.data(reportStep), names_.index());
    isOpen_ = true;
}

void RestartWriterCore::close()
{
    if (!isOpen_)
        return;
    isOpen_ = false;
    units_ = noUnitSystem;
    gridNames_.clear();
    gridSpecs_.clear();
    wells_.clear();
    hasWells_ = false;
    leader_.reset();
    output_.close();
}

void RestartWriterCore::abandon() noexcept
{
    try {
        close();
    } catch (...) {
        // Whoever gives a writer up has learnt of its trouble, or doesn't want to.
    }
}

void RestartWriterCore::addWell(const std::string& name, WellType::Enum type, WellStatus::Enum status,
                                const IWellConnectionArray& connections, const IMSWSegmentData* segments)
{
    if (!isOpen_)
        throw std::runtime_error("Unable to write well data array: the RestartWriter must be opened first.");
    wells_.add(name, type, status, connections, segments,
               [this](const std::string& gridName) { return find(gridName) != nullptr; });
    hasWells_ = true;
}

void RestartWriterCore::startSequence(int bufferSize)
{
    if (find(std::string()) == nullptr)
        throw std::runtime_error("No global grid has been defined.  No files will be output.");
    output_.openData(bufferSize);
}

void RestartWriterCore::beginGrid(const std::string& gridName, const GridLayout& layout)
{
    const GridHeaders headers = headersOf(gridName, layout);
    KeywordWriter data = output_.dataKeywords();
    if (gridName.empty())
        leader_ = headers.integers;
    if (gridName.empty() && isRestart_ && unified_)
        data.write(KeywordINTE("SEQNUM", {clock_.reportStep()}));
    if (!gridName.empty())
        writeLgrBlock(data, gridName);
    writeGridHeaders(data, headers);
    if (!isRestart_)
        return;
    if (clock_.reportStep() != 0)
        writeWellRecords(data, wells_, gridName, gridIndex(gridName));
    writeEmptyKeyword(data, "STARTSOL");
}

void RestartWriterCore::beginConnections(const std::string& gridName)
{
    KeywordWriter data = output_.dataKeywords();
    if (!gridName.empty())
        writeLgrBlock(data, gridName);
}

/// The index file follows the data file: a section that stands in it is about arrays that the system has taken.
void RestartWriterCore::endGrid(const std::string& gridName, const SpecStatsData& rows)
{
    KeywordWriter data = output_.dataKeywords();
    if (isRestart_)
        writeEmptyKeyword(data, "ENDSOL");
    if (isLastLocal(gridName))
        writeEmptyKeyword(data, isRestart_ ? "ENDLGR" : "LGRSGONE");
    output_.flushData();

    const bool isNew = output_.openIndex();
    KeywordWriter index = output_.indexKeywords();
    if (leader_)
        writeLeader(index, isNew);
    writeSpecSection(index, gridName, rows);
    if (!isRestart_ && isLastLocal(gridName))
        writeEmptyKeyword(index, "LGRSGONE");
}

bool RestartWriterCore::isLastLocal(const std::string& gridName) const
{
    return !gridName.empty() && gridName == gridNames_.back();
}

GridHeaders RestartWriterCore::headersOf(const std::string& gridName, const GridLayout& layout) const
{
    return makeGridHeaders({.gridName = gridName,
                            .grid = find(gridName),
                            .layout = layout,
                            .wells = wells_.counts(gridName),
                            .clock = clock_,
                            .simulatorValue = simulatorValue_,
                            .isRestart = isRestart_,
                            .info = headerInfo_});
}

int RestartWriterCore::gridIndex(const std::string& gridName) const
{
    const auto place = std::find(gridNames_.begin(), gridNames_.end(), gridName);
    return static_cast<int>(place - gridNames_.begin());
}

/// A new file starts with the header; the time goes in front of every report step, or readers would join it with the
/// step before.
void RestartWriterCore::writeLeader(KeywordWriter& index, bool isNew)
{
    if (isNew)
        writeIndexHeader(index, *leader_);
    if (isRestart_)
        writeIndexTime(index, clock_, units_, form_.formatted);
    leader_.reset();
}

} // namespace Kvt::Mrl::MrlIO
