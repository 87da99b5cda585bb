#include "dumpflux/DumpfluxReaderImpl.h"

#include <span>

namespace Kvt::Mrl::MrlIO {

DumpfluxRegionManager& DumpfluxReaderImpl::connections()
{
    if (!connections_)
        connections_ = std::make_unique<DumpfluxRegionManager>(index());
    return *connections_;
}

bool DumpfluxReaderImpl::wellArray(const std::string& well, const std::string& array, double time,
                                   std::vector<double>& values)
{
    std::span<const double> stored;
    const bool hasValues = loader().wellValues(well, array, time, stored);
    values.assign(stored.begin(), stored.end());
    return hasValues;
}

bool DumpfluxReaderImpl::allValues(const std::string& array, double time, std::vector<double>& values)
{
    std::span<const double> stored;
    const bool hasValues = loader().values(array, time, stored);
    values.assign(stored.begin(), stored.end());
    return hasValues;
}

bool DumpfluxReaderImpl::regionValues(const std::string& array, double time, std::vector<double>& values, int region)
{
    std::span<const double> stored;
    if (loader().values(array, time, stored))
        return connections().values(region, stored, values);
    values.clear();
    return false;
}

} // namespace Kvt::Mrl::MrlIO
