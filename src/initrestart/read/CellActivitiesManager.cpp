#include "initrestart/read/CellActivitiesManager.h"

#include <mrlio/CellActivitiesInfo.h>

#include <utility>

namespace Kvt::Mrl::MrlIO {

CellActivitiesManager::CellActivitiesManager(std::unique_ptr<Populator> populator,
                                             ITimeInvariantDataSource& timeInvariantData)
    : populator_(std::move(populator)),
      timeInvariantData_(timeInvariantData)
{}

const ICellActivitiesInfo& CellActivitiesManager::getCellActivitiesInfo(const std::string& lgr)
{
    if (global_ == nullptr)
        populate();
    if (lgr.empty())
        return *global_;
    static const CellActivitiesInfo ofUnknownGrids;
    const auto found = local_.find(lgr);
    if (found != local_.end())
        return *found->second;
    return ofUnknownGrids;
}

void CellActivitiesManager::populate()
{
    std::shared_ptr<ICellActivitiesInfo> global;
    populator_->populate(global, std::string());
    std::map<std::string, std::shared_ptr<ICellActivitiesInfo>> local;
    for (const std::string& lgr : timeInvariantData_.getTimeInvariantData().LGRs())
        populator_->populate(local[lgr], lgr);
    local_ = std::move(local);
    global_ = std::move(global);
}

} // namespace Kvt::Mrl::MrlIO
