#pragma once

#include "initrestart/read/CellActivitiesManager.h"
#include "initrestart/read/ITimeInvariantData.h"
#include "initrestart/read/PropertyCache.h"
#include "initrestart/read/PropertyDataAccess.h"
#include "initrestart/read/RawDataAccess.h"
#include "initrestart/read/SpecData.h"
#include "initrestart/read/StepHeaders.h"
#include "initrestart/read/TimeVariantData.h"

#include <mrlio/CellCoarsenInfo.h>
#include <mrlio/ICellActivitiesInfo.h>
#include <mrlio/ICellCoarsenInfo.h>

#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace Kvt::Mrl::MrlIO {

class InitReaderImpl final : public IPORVSource,
                             public IROCKVSource,
                             public ICORSNUMSource,
                             public ITimeInvariantDataSource,
                             public ICellCoarsenInfoSource
{
public:
    explicit InitReaderImpl(int propertyCacheLimit);

    void read(const std::string& initFile, bool formatted, const std::string& specFile, const std::string& gridFile);

    bool getPORV(std::vector<float>& out, const std::string& lgr) const override;
    bool getROCKV(std::vector<float>& out, const std::string& lgr) const override;
    bool getCORSNUM(std::vector<int>& out, const std::string& lgr) const override;
    const ITimeInvariantData& getTimeInvariantData() override;
    const ICellCoarsenInfo* getCellCoarsenInfo(const std::string& lgr) override;
    const ICellActivitiesInfo& getCellActivitiesInfo(const std::string& lgr);

    /// Null unless a case was read.
    const IRawDataAccess* rawData() const { return rawData_.get(); }

    const IPropertyDataAccess* propertyData();
    const std::vector<std::string>& lgrNames() const;
    std::vector<std::pair<std::string, std::string>> lgrPairs() const;

    /// When the simulation starts.
    const TimeVariantData& start();

    const std::string& initFile() const { return initFile_; }

    const std::string& specFile() const { return specFile_; }

    bool specFileExists() const { return specFileExists_; }

private:
    void reset();
    void readIndex(bool formatted, const std::string& specFile);
    StepHeaders* headers(); // null unless a case was read

    int propertyCacheLimit_;
    std::string initFile_;
    bool formatted_ = false;
    std::string gridFile_;
    std::string specFile_; // the one that was read or written
    bool specFileExists_ = false;
    std::unique_ptr<InitSpecData> spec_;
    std::unique_ptr<PropertyCache> propertyCache_;
    std::unique_ptr<RawDataAccess> rawData_;
    std::unique_ptr<CellActivitiesManager> cellActivities_;

    // Filled on first use.
    std::unique_ptr<StepHeaders> headers_;
    std::unique_ptr<ITimeInvariantData> timeInvariant_;
    std::unique_ptr<PropertyDataAccess> propertyData_;
    std::unique_ptr<TimeVariantData> start_;
    std::map<std::string, std::shared_ptr<CellCoarsenInfo>> coarsening_;
};

} // namespace Kvt::Mrl::MrlIO
