#include <mrlio/SummarySpecData.h>

#include "summary/SummarySpecDataImpl.h"
#include "summary/SummarySpecFile.h"

#include <algorithm>

namespace Kvt::Mrl::MrlIO {

void SummarySpecDataImpl::setVectors(std::vector<SummaryVectorIDParams> vectors)
{
    ids = std::move(vectors);
    places = VectorPlaces(ids);
    const auto time = std::ranges::find(ids, "TIME", &SummaryVectorIDParams::getVectorName);
    timePlace = time == ids.end() ? -1 : static_cast<int>(time - ids.begin());
}

namespace {

std::shared_ptr<const SummarySpecDataImpl> inMemory(const std::vector<SummaryVectorIDParams>& ids)
{
    auto impl = std::make_shared<SummarySpecDataImpl>();
    impl->setVectors(ids);
    return impl;
}

} // namespace

SummarySpecData::SummarySpecData(const std::string& path)
    : impl_(std::make_shared<const SummarySpecDataImpl>(readSummarySpecFile(path)))
{}

SummarySpecData::SummarySpecData(const std::vector<SummaryVectorIDParams>& ids) : impl_(inMemory(ids)) {}

SummarySpecData::SummarySpecData(const SummarySpecData& other) = default;
SummarySpecData& SummarySpecData::operator=(const SummarySpecData& other) = default;
SummarySpecData::~SummarySpecData() = default;

const std::string& SummarySpecData::specFilepath() const
{
    return impl_->description.path;
}

bool SummarySpecData::isInitialized() const
{
    return !impl_->description.path.empty();
}

bool SummarySpecData::isFormatted() const
{
    return impl_->description.formatted;
}

int SummarySpecData::NX() const
{
    return impl_->description.nx;
}

int SummarySpecData::NY() const
{
    return impl_->description.ny;
}

int SummarySpecData::NZ() const
{
    return impl_->description.nz;
}

const std::vector<int>& SummarySpecData::INTEHEADData() const
{
    return impl_->description.intehead;
}

const std::string& SummarySpecData::restart() const
{
    return impl_->description.restart;
}

const Service::YearMonthDay& SummarySpecData::startDate() const
{
    return impl_->description.startDate;
}

const Service::HourMinuteSecondMillisecond& SummarySpecData::startTime() const
{
    return impl_->description.startTime;
}

const std::vector<SummaryVectorIDParams>& SummarySpecData::allVectorIDs() const
{
    return impl_->ids;
}

const std::vector<std::string>& SummarySpecData::LGRs() const
{
    return impl_->description.lgrNames;
}

unsigned long SummarySpecData::getCRCChecksum() const
{
    return impl_->description.checksum;
}

bool SummarySpecData::hasTIMESTMPorRUNTIMEIKeyword() const
{
    return impl_->description.hasTimeStampOrRunTime;
}

int SummarySpecData::index(const SummaryVectorIDParams& id) const
{
    return impl_->places.find(impl_->ids, id);
}

const std::vector<std::pair<int, int>>& SummarySpecData::indexRange(const std::string& keyword) const
{
    static const PlaceRuns none;
    const auto runs = impl_->runs.find(keyword);
    return runs == impl_->runs.end() ? none : runs->second;
}

const std::string& SummarySpecData::unit(const SummaryVectorIDParams& id) const
{
    static const std::string none;
    const int place = impl_->units.empty() ? -1 : index(id);
    return place < 0 ? none : impl_->units[static_cast<std::size_t>(place)];
}

const std::string& SummarySpecData::measurement(const SummaryVectorIDParams& id) const
{
    static const std::string none;
    const int place = impl_->measurements.empty() ? -1 : index(id);
    return place < 0 ? none : impl_->measurements[static_cast<std::size_t>(place)];
}

const SummaryVectorIDParams& SummarySpecData::timesVectorID() const
{
    static const SummaryVectorIDParams withoutPlace = SummaryVectorIDParams::createFromVectorName("TIME");
    return impl_->timePlace < 0 ? withoutPlace : impl_->ids[static_cast<std::size_t>(impl_->timePlace)];
}

} // namespace Kvt::Mrl::MrlIO
