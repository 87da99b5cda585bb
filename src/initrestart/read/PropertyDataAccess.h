#pragma once

#include "initrestart/read/ITimeInvariantData.h"
#include "initrestart/read/PropertyCache.h"

#include <mrlio/ICellActivitiesInfo.h>
#include <mrlio/ICellCoarsenInfo.h>
#include <mrlio/IPropertyDataAccess.h>
#include <mrlio/IRawDataAccess.h>

#include <map>
#include <memory>
#include <string>
#include <vector>

namespace Kvt::Mrl::MrlIO {

/// What the properties of a step need besides the step's arrays. All of it outlives the access.
struct RestartReaderEnvironment
{
    ITimeInvariantDataSource* timeInvariantData = nullptr;
    ICellActivitiesInfoSource* cellActivities = nullptr;
    ICellCoarsenInfoSource* cellCoarsening = nullptr; ///< null if no grid is coarsened
    PropertyCache* cache = nullptr;                   ///< shared by all steps of a reader
};

/// The properties of one step.
class PropertyDataAccess final : public IPropertyDataAccess
{
public:
    /// rawData   of the step; outlives the access
    PropertyDataAccess(const IRawDataAccess& rawData, const RestartReaderEnvironment& environment);

    const Properties& properties(const std::string& lgr = {}) const override;
    bool hasProperty(const std::string& name, const std::string& lgr = {}) const override;
    bool getArrayInfo(const std::string& name, BasicArrayInfo& out, const std::string& lgr = {},
                      bool fracture = false) const override;
    bool getArrayInfo(const std::string& name, ArrayInfo& out, const std::string& lgr = {},
                      bool fracture = false) const override;
    bool getAnyArray(const std::string& name, std::vector<std::string>& out, const std::string& lgr = {},
                     bool fracture = false) const override;
    bool getAnyArray(const std::string& name, std::vector<int>& out, const std::string& lgr = {},
                     bool fracture = false) const override;
    bool getAnyArray(const std::string& name, std::vector<float>& out, const std::string& lgr = {},
                     bool fracture = false) const override;
    bool getAnyArray(const std::string& name, std::vector<double>& out, const std::string& lgr = {},
                     bool fracture = false) const override;

private:
    using Entry = Properties::Entry;

    template <class T>
    bool getArray(const std::string& name, std::vector<T>& out, const std::string& lgr, bool fracture) const;

    const Entry* find(const std::string& name, const std::string& lgr) const;
    PropertyData* find(const std::string& name, const std::string& lgr, bool fracture) const;
    Properties build(const SpecStatsData& rows, const std::string& lgr) const;
    bool load(const std::string& name, const std::string& lgr) const;

    const IRawDataAccess& rawData_;
    RestartReaderEnvironment environment_;
    mutable std::map<std::string, Properties> properties_; // by grid, filled on first use
};

} // namespace Kvt::Mrl::MrlIO
