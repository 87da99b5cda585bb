#include "initrestart/read/PropertyCache.h"

#include "initrestart/read/PropertyData.h"

namespace Kvt::Mrl::MrlIO {

void PropertyCache::add(std::shared_ptr<PropertyData> matrix, std::shared_ptr<PropertyData> fracture)
{
    if (limit_ <= 0)
        return;
    pairs_.emplace_back(std::move(matrix), std::move(fracture));
    if (pairs_.size() <= static_cast<std::size_t>(limit_))
        return;
    const Pair& oldest = pairs_.front();
    oldest.first->release();
    if (oldest.second != nullptr)
        oldest.second->release();
    pairs_.pop_front();
}

} // namespace Kvt::Mrl::MrlIO
