#include <mrlio/SummaryReaderBase.h>

#include <mrlio/service/FileName.h>
#include <mrlio/service/Log.h>

#include <algorithm>
#include <stdexcept>
#include <utility>

namespace Kvt::Mrl::MrlIO {

ISummaryReader::~ISummaryReader() = default;
ISimpleSummaryReader::~ISimpleSummaryReader() = default;

SummaryReaderBase::SummaryReaderBase(std::shared_ptr<SummarySpecData> spec) : spec_(std::move(spec))
{
    if (!spec_)
        throw std::invalid_argument("SummaryReaderBase: specification data are missing");
}

SummaryReaderBase::~SummaryReaderBase() = default;

bool SummaryReaderBase::isValid() const
{
    const auto exists = [](const std::string& name) { return Service::FileName(name).FileExists(); };
    return exists(spec_->specFilepath()) && std::ranges::all_of(summaryFiles(), exists);
}

std::string SummaryReaderBase::specFilename() const
{
    return spec_->specFilepath();
}

const Service::YearMonthDay& SummaryReaderBase::startDate() const
{
    return spec_->startDate();
}

const Service::HourMinuteSecondMillisecond& SummaryReaderBase::startTime() const
{
    return spec_->startTime();
}

int SummaryReaderBase::NX() const
{
    return spec_->NX();
}

int SummaryReaderBase::NY() const
{
    return spec_->NY();
}

int SummaryReaderBase::NZ() const
{
    return spec_->NZ();
}

const std::vector<std::string>& SummaryReaderBase::LGRs() const
{
    return spec_->LGRs();
}

const std::vector<SummaryVectorIDParams>& SummaryReaderBase::allVectorIDs() const
{
    return spec_->allVectorIDs();
}

const SummaryVectorIDParams& SummaryReaderBase::timeVectorID() const
{
    return spec_->timesVectorID();
}

const std::string& SummaryReaderBase::unit(const SummaryVectorIDParams& id) const
{
    return spec_->unit(id);
}

int SummaryReaderBase::index(const SummaryVectorIDParams& id) const
{
    return spec_->index(id);
}

const SummarySpecData& SummaryReaderBase::specData() const
{
    return *spec_;
}

const std::string& SummaryReaderBase::measurement(const SummaryVectorIDParams& id) const
{
    return spec_->measurement(id);
}

std::shared_ptr<const std::vector<float>> SummaryReaderBase::getValues(const SummaryVectorIDParams& id) const
{
    try {
        return dataAccessor().getData(id);
    } catch (const std::runtime_error& failure) {
        Service::Log::SendLogMessage(failure.what(), Service::SeverityError);
        return nullptr;
    }
}

} // namespace Kvt::Mrl::MrlIO
