#pragma once

#include "initrestart/read/CellActivitiesManager.h"
#include "initrestart/read/ITimeInvariantData.h"
#include "initrestart/read/PropertyCache.h"
#include "initrestart/read/PropertyDataAccess.h"
#include "initrestart/read/RawDataAccess.h"
#include "initrestart/read/SpecData.h"
#include "initrestart/read/StepHeaders.h"
#include "initrestart/read/TimeVariantData.h"

#include <mrlio/ICellActivitiesInfo.h>
#include <mrlio/ICellCoarsenInfo.h>
#include <mrlio/InitReader.h>
#include <mrlio/service/HourMinuteSecondMillisecond.h>
#include <mrlio/service/Namespaces.h>
#include <mrlio/service/YearMonthDay.h>

#include <map>
#include <memory>
#include <string>
#include <vector>

namespace Kvt::Mrl::MrlIO {

class RestartReaderImpl final : public IPORVSource,
                                public IROCKVSource,
                                public ICORSNUMSource,
                                public ITimeInvariantDataSource
{
public:
    explicit RestartReaderImpl(int propertyCacheLimit);

    void read(const std::vector<std::string>& restartFiles, bool formatted, const std::string& specFile,
              std::shared_ptr<InitReader> initReader, const ICellActivitiesSource* source);

    bool getPORV(std::vector<float>& out, const std::string& lgr) const override;
    bool getROCKV(std::vector<float>& out, const std::string& lgr) const override;
    bool getCORSNUM(std::vector<int>& out, const std::string& lgr) const override;
    const ITimeInvariantData& getTimeInvariantData() override;
    const ICellActivitiesInfo& getCellActivitiesInfo(const std::string& lgr);

    /// Of the case; without steps if none was read.
    const RestartSpecData& spec() const { return *spec_; }

    const IRawDataAccess* rawData(int index);
    const IPropertyDataAccess* propertyData(int index);
    const Service::YearMonthDay& date(int index);
    const Service::HourMinuteSecondMillisecond& time(int index);

    /// Null if there is no such step, or its file isn't among the restart files.
    const std::string* fileOf(int index) const;

    const std::vector<std::string>& restartFiles() const { return restartFiles_; }

    const std::string& specFile() const { return specFile_; }

    bool specFileExists() const { return specFileExists_; }

    const std::shared_ptr<InitReader>& initReader() const { return initReader_; }

private:
    void forgetFiles();
    void forgetData();
    void readIndex(bool formatted, const std::string& specFile);
    void assignFiles();
    void makeCellActivities(const ICellActivitiesSource* source);
    const IRawDataAccess* initData() const;
    StepRangeSource rangeOf(int index) const;
    StepHeaders* headersOf(int index);
    const TimeVariantData& timeVariant(int index);

    int propertyCacheLimit_;
    std::vector<std::string> restartFiles_;
    bool unified_ = false;
    std::map<int, std::size_t> fileOfStep_; // by report index, places in restartFiles_; unless unified
    std::string specFile_;                  // the one that was read or written
    bool specFileExists_ = false;
    std::shared_ptr<InitReader> initReader_;
    std::unique_ptr<RestartSpecData> spec_; // never null
    std::unique_ptr<PropertyCache> propertyCache_;
    std::unique_ptr<CellActivitiesManager> cellActivities_;

    // Filled on first use. What stands in the maps stays where it is, since callers hold on to it.
    std::map<int, std::unique_ptr<RawDataAccess>> rawData_;
    std::map<int, StepHeaders> headers_;
    std::map<int, std::unique_ptr<PropertyDataAccess>> propertyData_;
    std::map<int, TimeVariantData> timeVariant_;
    std::unique_ptr<ITimeInvariantData> timeInvariant_;
};

} // namespace Kvt::Mrl::MrlIO
