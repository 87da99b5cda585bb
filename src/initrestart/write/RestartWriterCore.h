#pragma once

#include "initrestart/write/GridContent.h"
#include "initrestart/write/HeaderArrays.h"
#include "initrestart/write/RestartClock.h"
#include "initrestart/write/RestartFileNames.h"
#include "initrestart/write/RestartOutput.h"
#include "initrestart/write/WellRegistry.h"

#include <mrlio/GridSpec.h>
#include <mrlio/IRestartHeaderInfo.h>
#include <mrlio/MrlWriterDefaultParams.h>
#include <mrlio/SpecStatsData.h>

#include <map>
#include <optional>
#include <string>
#include <vector>

namespace Kvt::Mrl::MrlIO {

/// What a writer of init or restart files is built from.
struct RestartWriterSetup
{
    const std::string& directory;
    const std::string& rootName;
    const Service::YearMonthDay& startDate;
    const Service::HourMinuteSecondMillisecond& startTime;
    bool formatted;
    const MrlWriterDefaultParams& params;
    bool skipChecks;
    bool isRestart;
    const char* openName;       ///< how the texts of open call the writer
    bool replacesSteps = false; ///< overwriteData deletes the separate files of all report steps, and not only one
};

/// All that the writers of init and restart files have in common, whatever the order in which the arrays come: grids,
/// wells, clock, files, and what stands in the files around the arrays of each grid.
class RestartWriterCore
{
public:
    explicit RestartWriterCore(const RestartWriterSetup& setup);
    RestartWriterCore(const RestartWriterCore&) = delete;
    RestartWriterCore& operator=(const RestartWriterCore&) = delete;

    const ContentForm& form() const { return form_; }

    /// throws   std::invalid_argument, with nothing changed
    void addGridSpec(const GridSpec& spec);

    void setHeaderInfo(const IRestartHeaderInfo* headerInfo) { headerInfo_ = headerInfo; }

    /// The names of the grids in the order of writing, the empty one of the global grid in front.
    const std::vector<std::string>& gridNames() const { return gridNames_; }

    /// Good until close.
    /// refusal   the text in front of the name of a grid that was not declared
    /// throws    std::invalid_argument for such a grid
    const GridSpec& declared(const std::string& gridName, const char* refusal) const;

    /// Both throw with nothing changed, except that files may be gone.
    void openInit();
    void openStep(int reportStep, double elapsedDays);

    bool isOpen() const { return isOpen_; }

    /// Closes the files and forgets grids, wells and the names of the files. Does nothing on a closed writer.
    /// throws   std::runtime_error when all that is done
    void close();

    /// The same without a word about failures.
    void abandon() noexcept;

    /// throws   std::runtime_error on a closed writer; else as WellRegistry::add does
    void addWell(const std::string& name, WellType::Enum type, WellStatus::Enum status,
                 const IWellConnectionArray& connections, const IMSWSegmentData* segments);

    bool hasWells() const { return hasWells_; }

    RestartOutput& output() { return output_; }

    const RestartOutput& output() const { return output_; }

    /// Begins a pass over the grids.
    /// throws   std::runtime_error without a global grid, before the data file is opened
    void startSequence(int bufferSize);

    bool isSequenceStarted() const { return output_.isDataOpen(); }

    /// Writes what stands in front of a grid's arrays.
    /// gridName   of a grid that was declared
    void beginGrid(const std::string& gridName, const GridLayout& layout);
    void beginConnections(const std::string& gridName);

    /// Writes what stands behind a grid's arrays, and the grid's section in the index file.
    void endGrid(const std::string& gridName, const SpecStatsData& rows);

private:
    const GridSpec* find(const std::string& gridName) const;
    void checkClosed() const;
    bool isLastLocal(const std::string& gridName) const;
    GridHeaders headersOf(const std::string& gridName, const GridLayout& layout) const;
    int gridIndex(const std::string& gridName) const;
    void writeLeader(KeywordWriter& index, bool isNew);

    ContentForm form_;
    bool isRestart_;
    bool replacesSteps_;
    bool unified_;
    int simulatorValue_;
    std::string openName_;
    RestartFileNames names_;
    RestartOutput output_;
    RestartClock clock_;
    const IRestartHeaderInfo* headerInfo_ = nullptr;

    bool isOpen_ = false;
    UnitSystemType::Enum units_ = noUnitSystem;
    std::vector<std::string> gridNames_;
    std::map<std::string, GridSpec> gridSpecs_;
    WellRegistry wells_;
    bool hasWells_ = false;
    std::optional<std::vector<int>> leader_; // INTEHEAD for the index file, until the first section follows it
};

} // namespace Kvt::Mrl::MrlIO
