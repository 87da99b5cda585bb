#include "initrestart/read/RestartReaderImpl.h"

#include "initrestart/read/GeneratedSpecFile.h"
#include "initrestart/read/ReaderBuilderHelpers.h"
#include "initrestart/read/StepRanges.h"
#include "initrestart/read/TimeInvariantData.h"
#include "service/Delegates.h"

#include <mrlio/CellActivitiesInfo.h>
#include <mrlio/FileIdentifiers.h>
#include <mrlio/service/FileName.h>

#include <utility>

namespace Kvt::Mrl::MrlIO {

namespace {

bool isFormatted(const std::string& file)
{
    return FileIdentifiers::Restart::isFormatted(file);
}

} // namespace

RestartReaderImpl::RestartReaderImpl(int propertyCacheLimit)
    : propertyCacheLimit_(propertyCacheLimit),
      spec_(std::make_unique<RestartSpecData>())
{}

void RestartReaderImpl::forgetFiles()
{
    restartFiles_.clear();
    unified_ = false;
    fileOfStep_.clear();
    initReader_.reset();
}

/// After this no index is valid.
void RestartReaderImpl::forgetData()
{
    timeInvariant_.reset();
    timeVariant_.clear();
    propertyData_.clear();
    headers_.clear();
    rawData_.clear();
    cellActivities_.reset();
    propertyCache_.reset();
    spec_ = std::make_unique<RestartSpecData>();
    specFile_.clear();
    specFileExists_ = false;
}

void RestartReaderImpl::read(const std::vector<std::string>& restartFiles, bool formatted, const std::string& specFile,
                             std::shared_ptr<InitReader> initReader, const ICellActivitiesSource* source)
{
    std::vector<std::string> files = restartFiles; // may be the reader's own
    forgetData();
    forgetFiles();
    initReader_ = std::move(initReader);
    restartFiles_ = std::move(files);
    assignFiles();
    Service::DelegateBase guard(Service::onDestruction(*this, &RestartReaderImpl::forgetData));
    readIndex(formatted, specFile);
    propertyCache_ = std::make_unique<PropertyCache>(propertyCacheLimit_);
    makeCellActivities(source);
    guard.Disarm();
}

void RestartReaderImpl::assignFiles()
{
    unified_ = !restartFiles_.empty() && FileIdentifiers::Restart::isUnified(restartFiles_.front());
    if (unified_)
        return;
    for (std::size_t i = 0; i < restartFiles_.size(); ++i) {
        const int index = FileIdentifiers::Restart::extractIndex(restartFiles_[i]);
        if (index >= 0)
            fileOfStep_[index] = i;
    }
}

void RestartReaderImpl::readIndex(bool formatted, const std::string& specFile)
{
    if (fileIsThere(specFile)) {
        spec_->read(Service::FileName(specFile));
        specFile_ = specFile;
        specFileExists_ = true;
        return;
    }
    const DataFileStamps stamps(restartFiles_);
    spec_->read(restartFiles_);
    if (!specFile.empty() && !spec_->inteheadData().empty())
        specFile_ = writeSpecFile(specFile, formatted, *spec_, stamps);
}

void RestartReaderImpl::makeCellActivities(const ICellActivitiesSource* source)
{
    std::unique_ptr<Populator> populator;
    if (source != nullptr)
        populator = std::make_unique<PopulatorFromSource>(*source, *this);
    else
        populator = std::make_unique<PopulatorFromINIT>(*this, *this, *this);
    cellActivities_ = std::make_unique<CellActivitiesManager>(std::move(populator), *this);
}

const IRawDataAccess* RestartReaderImpl::initData() const
{
    return initReader_ ? initReader_->rawData() : nullptr;
}

bool RestartReaderImpl::getPORV(std::vector<float>& out, const std::string& lgr) const
{
    out.clear();
    return initData() != nullptr && initData()->getAnyArray("PORV", out, lgr);
}

bool RestartReaderImpl::getROCKV(std::vector<float>& out, const std::string& lgr) const
{
    out.clear();
    return initData() != nullptr && initData()->getAnyArray("ROCKV", out, lgr);
}

bool RestartReaderImpl::getCORSNUM(std::vector<int>& out, const std::string& lgr) const
{
    out.clear();
    return initData() != nullptr && initData()->getAnyArray("CORSNUM", out, lgr);
}

const std::string* RestartReaderImpl::fileOf(int index) const
{
    const SpecIndexData* const step = spec_->step(index);
    if (step == nullptr || restartFiles_.empty())
        return nullptr;
    if (unified_)
        return &restartFiles_.front();
    // The index isn't the step's number where steps are known by their places, as after one that was written twice.
    auto place = fileOfStep_.find(step->seqnum);
    if (place == fileOfStep_.end())
        place = fileOfStep_.find(index);
    return place == fileOfStep_.end() ? nullptr : &restartFiles_[place->second];
}

StepRangeSource RestartReaderImpl::rangeOf(int index) const
{
    if (unified_)
        return [spec = spec_.get(), index] { return rangeInUnifiedFile(*spec, index); };
    return [step = spec_->step(index)] { return rangeInOwnFile(*step); };
}

const IRawDataAccess* RestartReaderImpl::rawData(int index)
{
    const std::string* const file = fileOf(index);
    if (file == nullptr)
        return nullptr;
    std::unique_ptr<RawDataAccess>& access = rawData_[index];
    if (!access) {
        const SpecIndexData& step = *spec_->step(index);
        access = std::make_unique<RawDataAccess>(*file, step, isFormatted(*file), rangeOf(index));
    }
    return access.get();
}

const IPropertyDataAccess* RestartReaderImpl::propertyData(int index)
{
    const IRawDataAccess* const raw = rawData(index);
    if (raw == nullptr)
        return nullptr;
    std::unique_ptr<PropertyDataAccess>& access = propertyData_[index];
    if (!access)
        access = std::make_unique<PropertyDataAccess>(
            *raw, RestartReaderEnvironment{this, cellActivities_.get(), initReader_.get(), propertyCache_.get()});
    return access.get();
}

StepHeaders* RestartReaderImpl::headersOf(int index)
{
    const IRawDataAccess* const raw = rawData(index);
    if (raw == nullptr)
        return nullptr;
    if (const auto known = headers_.find(index); known != headers_.end())
        return &known->second;
    const std::string& file = *fileOf(index);
    const SpecIndexData& step = *spec_->step(index);
    StepPlace place{file, isFormatted(file), rangeOf(index)};
    return &headers_.try_emplace(index, step, *raw, std::move(place), specFileExists_).first->second;
}

const Service::YearMonthDay& RestartReaderImpl::date(int index)
{
    const SpecIndexData* const step = spec_->step(index);
    return step != nullptr && step->hasDate ? step->date : timeVariant(index).date;
}

/// Whether there is a date decides about the time of day too: kept, so that a step costs no look at the data if its
/// index has a date.
const Service::HourMinuteSecondMillisecond& RestartReaderImpl::time(int index)
{
    const SpecIndexData* const step = spec_->step(index);
    return step != nullptr && step->hasDate ? step->timeOfDay : timeVariant(index).time;
}

const TimeVariantData& RestartReaderImpl::timeVariant(int index)
{
    static const TimeVariantData unknown;
    if (const auto known = timeVariant_.find(index); known != timeVariant_.end())
        return known->second;
    StepHeaders* const headers = headersOf(index);
    if (headers == nullptr)
        return unknown;
    const TimeVariantData& data = timeVariant_.emplace(index, readTimeVariantData(*headers)).first->second;
    if (index != spec_->minIndex()) // where the time-invariant data come from
        headers_.erase(index);
    return data;
}

/// The headers of the first step stand for the whole case.
const ITimeInvariantData& RestartReaderImpl::getTimeInvariantData()
{
    if (timeInvariant_)
        return *timeInvariant_;
    std::vector<int> intehead;
    for (const auto& [index, step] : spec_->steps()) {
        StepHeaders* const headers = headersOf(index);
        if (headers == nullptr || !headers->caseIntehead(intehead, spec_->inteheadData()))
            continue;
        timeInvariant_ =
            std::make_unique<TimeInvariantData>(step->lgrNames, *headers, spec_->inteheadData(), initData());
        return *timeInvariant_;
    }
    timeInvariant_ = std::make_unique<TimeInvariantData>();
    return *timeInvariant_;
}

const ICellActivitiesInfo& RestartReaderImpl::getCellActivitiesInfo(const std::string& lgr)
{
    static const CellActivitiesInfo noCells;
    if (!cellActivities_)
        return noCells;
    return cellActivities_->getCellActivitiesInfo(lgr);
}

} // namespace Kvt::Mrl::MrlIO
