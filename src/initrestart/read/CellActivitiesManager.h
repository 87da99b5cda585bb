#pragma once

#include "initrestart/read/ITimeInvariantData.h"
#include "initrestart/read/Populator.h"

#include <mrlio/ICellActivitiesInfo.h>

#include <map>
#include <memory>
#include <string>

namespace Kvt::Mrl::MrlIO {

/// The active cells of all grids of a case, found out when they are first asked for.
class CellActivitiesManager final : public ICellActivitiesInfoSource
{
public:
    /// timeInvariantData   tells the local grids; outlives the manager
    CellActivitiesManager(std::unique_ptr<Populator> populator, ITimeInvariantDataSource& timeInvariantData);

    /// throws   what the populator throws, for whatever grid. Nothing is kept then, and the next request tries afresh.
    const ICellActivitiesInfo& getCellActivitiesInfo(const std::string& lgr) override;

private:
    void populate();

    std::unique_ptr<Populator> populator_;
    ITimeInvariantDataSource& timeInvariantData_;
    std::shared_ptr<ICellActivitiesInfo> global_;
    std::map<std::string, std::shared_ptr<ICellActivitiesInfo>> local_;
};

} // namespace Kvt::Mrl::MrlIO
