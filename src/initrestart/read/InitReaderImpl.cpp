#include "initrestart/read/InitReaderImpl.h"

#include "initrestart/read/GeneratedSpecFile.h"
#include "initrestart/read/ReaderBuilderHelpers.h"
#include "initrestart/read/TimeInvariantData.h"
#include "service/Delegates.h"

#include <mrlio/CellActivitiesInfo.h>
#include <mrlio/MrlIOException.h>
#include <mrlio/RestartKeywordAccess.h>
#include <mrlio/service/FileName.h>

#include <algorithm>
#include <cstddef>

namespace Kvt::Mrl::MrlIO {

namespace {

/// Takes the key of a pair apart. Where a name holds the joint itself, the known grids tell where the joint is.
std::pair<std::string, std::string> namesOfPair(const std::string& key, const std::vector<std::string>& lgrNames)
{
    constexpr std::string_view joint = " + ";
    const auto isKnown = [&lgrNames](const std::string& name) { return std::ranges::count(lgrNames, name) > 0; };
    const std::size_t first = key.find(joint);
    for (std::size_t at = first; at != std::string::npos; at = key.find(joint, at + 1)) {
        std::pair<std::string, std::string> names(key.substr(0, at), key.substr(at + joint.size()));
        if (isKnown(names.first) && isKnown(names.second))
            return names;
    }
    return {key.substr(0, first), key.substr(first + joint.size())};
}

} // namespace

InitReaderImpl::InitReaderImpl(int propertyCacheLimit) : propertyCacheLimit_(propertyCacheLimit) {}

void InitReaderImpl::reset()
{
    start_.reset();
    coarsening_.clear();
    propertyData_.reset();
    timeInvariant_.reset();
    headers_.reset();
    cellActivities_.reset();
    rawData_.reset();
    propertyCache_.reset();
    spec_.reset();
    specFile_.clear();
    specFileExists_ = false;
}

void InitReaderImpl::read(const std::string& initFile, bool formatted, const std::string& specFile,
                          const std::string& gridFile)
{
    reset();
    initFile_.clear();
    gridFile_.clear();
    if (initFile.empty())
        throw RestartReaderException("No INIT file given");
    initFile_ = initFile;
    formatted_ = formatted;
    gridFile_ = gridFile;
    Service::DelegateBase guard(Service::onDestruction(*this, &InitReaderImpl::reset));
    readIndex(formatted, specFile);
    propertyCache_ = std::make_unique<PropertyCache>(propertyCacheLimit_);
    if (spec_->index() != nullptr)
        rawData_ = std::make_unique<RawDataAccess>(initFile_, *spec_->index(), formatted);
    cellActivities_ =
        std::make_unique<CellActivitiesManager>(std::make_unique<PopulatorFromINIT>(*this, *this, *this), *this);
    guard.Disarm();
}

void InitReaderImpl::readIndex(bool formatted, const std::string& specFile)
{
    spec_ = std::make_unique<InitSpecData>();
    if (fileIsThere(specFile)) {
        spec_->read(Service::FileName(specFile));
        specFile_ = specFile;
        specFileExists_ = true;
        return;
    }
    const DataFileStamps stamps({initFile_});
    spec_->read(std::vector<std::string>{initFile_});
    if (!specFile.empty())
        specFile_ = writeSpecFile(specFile, formatted, *spec_, stamps);
}

bool InitReaderImpl::getPORV(std::vector<float>& out, const std::string& lgr) const
{
    out.clear();
    return rawData_ && rawData_->getAnyArray("PORV", out, lgr);
}

bool InitReaderImpl::getROCKV(std::vector<float>& out, const std::string& lgr) const
{
    out.clear();
    return rawData_ && rawData_->getAnyArray("ROCKV", out, lgr);
}

bool InitReaderImpl::getCORSNUM(std::vector<int>& out, const std::string& lgr) const
{
    out.clear();
    return rawData_ && rawData_->getAnyArray("CORSNUM", out, lgr);
}

StepHeaders* InitReaderImpl::headers()
{
    if (!headers_ && rawData_)
        headers_ = std::make_unique<StepHeaders>(*spec_->index(), *rawData_, StepPlace{initFile_, formatted_},
                                                 specFileExists_);
    return headers_.get();
}

const ITimeInvariantData& InitReaderImpl::getTimeInvariantData()
{
    static const TimeInvariantData empty;
    StepHeaders* const source = headers();
    if (source == nullptr)
        return empty;
    if (!timeInvariant_)
        timeInvariant_ =
            std::make_unique<TimeInvariantData>(lgrNames(), *source, spec_->inteheadData(), rawData_.get());
    return *timeInvariant_;
}

const ICellCoarsenInfo* InitReaderImpl::getCellCoarsenInfo(const std::string& lgr)
{
    if (const auto known = coarsening_.find(lgr); known != coarsening_.end())
        return known->second.get();
    std::vector<int> corsnum;
    if (!getCORSNUM(corsnum, lgr))
        return nullptr;
    std::vector<float> porv;
    std::vector<float> rockv;
    getPORV(porv, lgr);
    const bool hasRockVolumes = getROCKV(rockv, lgr);
    const auto info = std::make_shared<CellCoarsenInfo>(porv, corsnum, hasRockVolumes ? &rockv : nullptr);
    return coarsening_.emplace(lgr, info).first->second.get();
}

const ICellActivitiesInfo& InitReaderImpl::getCellActivitiesInfo(const std::string& lgr)
{
    static const CellActivitiesInfo noCells;
    if (!cellActivities_)
        return noCells;
    return cellActivities_->getCellActivitiesInfo(lgr);
}

const IPropertyDataAccess* InitReaderImpl::propertyData()
{
    if (!propertyData_ && rawData_)
        propertyData_ = std::make_unique<PropertyDataAccess>(
            *rawData_, RestartReaderEnvironment{this, cellActivities_.get(), this, propertyCache_.get()});
    return propertyData_.get();
}

const std::vector<std::string>& InitReaderImpl::lgrNames() const
{
    static const std::vector<std::string> none;
    return rawData_ ? spec_->index()->lgrNames : none;
}

std::vector<std::pair<std::string, std::string>> InitReaderImpl::lgrPairs() const
{
    std::vector<std::pair<std::string, std::string>> pairs;
    if (!rawData_)
        return pairs;
    for (const auto& [key, rows] : rawData_->lgrPairs())
        pairs.push_back(namesOfPair(key, lgrNames()));
    return pairs;
}

const TimeVariantData& InitReaderImpl::start()
{
    static const TimeVariantData unknown;
    StepHeaders* const source = headers();
    if (source == nullptr)
        return unknown;
    if (!start_) {
        auto start = std::make_unique<TimeVariantData>();
        std::vector<int> intehead;
        if (source->caseIntehead(intehead, spec_->inteheadData())) {
            RestartKeywordAccess::getINTEHEADDate(intehead, start->date);
            RestartKeywordAccess::getINTEHEADTime(intehead, start->time);
        }
        start_ = std::move(start);
    }
    return *start_;
}

} // namespace Kvt::Mrl::MrlIO
