#pragma once

#include "initrestart/read/ITimeInvariantData.h"
#include "initrestart/read/StepHeaders.h"

#include <map>
#include <string>
#include <vector>

namespace Kvt::Mrl::MrlIO {

/// Dimensions of a grid and what its header says of its cells.
struct GridInfo
{
    int nx = 0;
    int ny = 0;
    int nz = 0; ///< layers of one medium
    int numCells = 0;
    int activeCells = 0;
};

/// The time-invariant data as the headers of an init file or of one report step tell them.
class TimeInvariantData final : public ITimeInvariantData
{
public:
    /// Nothing is known.
    TimeInvariantData() = default;

    /// Takes all it needs at once.
    ///
    /// lgrNames     the local grids
    /// substitute   the INTEHEAD of the index file, which stands for the global grid's where the data file is missing;
    ///              may be empty
    /// initData     the arrays of the init file, for their numbers of pore volumes; may be null
    /// throws       RestartReaderException or MrlIOException if a header can't be read or is too short
    TimeInvariantData(const std::vector<std::string>& lgrNames, StepHeaders& headers,
                      const std::vector<int>& substitute, const IRawDataAccess* initData);

    bool gridDimension(int& nx, int& ny, int& nz, const std::string& lgr) const override;
    int numCells(const std::string& lgr) const override;
    int arraySize(const std::string& lgr) const override;
    int activeCells(const std::string& lgr) const override;
    bool hasInactiveCells(const std::string& lgr) const override;

    bool isDualPorosity() const override { return dualPorosity_; }

    const std::vector<std::string>& LGRs() const override { return lgrNames_; }

    UnitSystemType::Enum unitSystem() const override { return unitSystem_; }

    PhaseType::Enum phases() const override { return phases_; }

private:
    void addGrid(const std::string& lgr, const std::vector<int>& intehead, const IRawDataAccess* initData);
    const GridInfo* find(const std::string& lgr) const;

    bool dualPorosity_ = false;
    UnitSystemType::Enum unitSystem_ = static_cast<UnitSystemType::Enum>(4);
    PhaseType::Enum phases_ = static_cast<PhaseType::Enum>(7);
    std::vector<std::string> lgrNames_;
    std::map<std::string, GridInfo> grids_; // those whose header was found; the global one by an empty name
};

} // namespace Kvt::Mrl::MrlIO
