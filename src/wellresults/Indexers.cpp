#include "wellresults/Indexers.h"

namespace Kvt::Mrl::MrlIO {

DateIndexer::DateIndexer(const std::vector<Service::YearMonthDay>& dates) : dates_(dates), isLastOfDate_(dates.size())
{
    for (std::size_t place = 0; place < dates.size(); ++place)
        places_[dates[place]] = place;
    for (const auto& [date, place] : places_)
        isLastOfDate_[place] = true;
}

std::int64_t DateIndexer::index(const Service::YearMonthDay& date)
{
    for (const std::size_t place : {last_, last_ + 1}) {
        if (isAt(place, date)) {
            last_ = place;
            return static_cast<std::int64_t>(place);
        }
    }
    const auto found = places_.find(date);
    if (found == places_.end())
        return -1;
    last_ = found->second;
    return static_cast<std::int64_t>(last_);
}

bool DateIndexer::isAt(std::size_t place, const Service::YearMonthDay& date) const
{
    return place < dates_.size() && dates_[place] == date && isLastOfDate_[place];
}

} // namespace Kvt::Mrl::MrlIO
