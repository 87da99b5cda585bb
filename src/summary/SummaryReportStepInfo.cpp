#include <mrlio/SummaryReportStepInfo.h>

#include <mrlio/MrlIOException.h>

#include <iterator>
#include <utility>

namespace Kvt::Mrl::MrlIO {

SummaryReportStepInfo::SummaryReportStepInfo(const Service::FileName& fileName)
    : fileName_(std::make_shared<const Service::FileName>(fileName))
{}

SummaryReportStepInfo::SummaryReportStepInfo(std::shared_ptr<const Service::FileName> fileName)
    : fileName_(std::move(fileName))
{}

void SummaryReportStepInfo::addMiniStep(int number, std::streampos position)
{
    if (number < 0)
        throw SummaryReaderException("SummaryReportStepInfo::addMiniStep: mini step number less than 0");
    auto place = miniSteps_.end();
    while (place != miniSteps_.begin() && (*std::prev(place))->number() > number)
        --place;
    if (place != miniSteps_.begin() && (*std::prev(place))->number() == number)
        throw SummaryReaderException("SummaryReportStepInfo::addMiniStep: non-unique mini step number");
    miniSteps_.insert(place, std::make_shared<SummaryMiniStepInfo>(number, position));
}

} // namespace Kvt::Mrl::MrlIO
