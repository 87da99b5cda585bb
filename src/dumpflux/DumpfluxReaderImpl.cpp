#include "dumpflux/DumpfluxReaderImpl.h"

#include "dumpflux/DumpfluxDataLoaderIncremental.h"
#include "service/Delegates.h"

#include <span>
#include <utility>

namespace Kvt::Mrl::MrlIO {

void DumpfluxReaderImpl::read(const std::string& fileName)
{
    Service::FileName file(fileName); // first, since the text may be one of the answers
    clear();
    file_ = std::move(file);
    Service::DelegateBase guard(Service::onDestruction(*this, &DumpfluxReaderImpl::clear));
    index();
    guard.Disarm();
}

void DumpfluxReaderImpl::clear()
{
    loader_.reset();
    connections_.reset();
    index_.reset();
    file_ = Service::FileName();
}

const DumpfluxContentIndex& DumpfluxReaderImpl::index()
{
    if (!index_)
        index_ = std::make_unique<const DumpfluxContentIndex>(file_);
    return *index_;
}

DumpfluxRegionManager& DumpfluxReaderImpl::connections()
{
    if (!connections_)
        connections_ = std::make_unique<DumpfluxRegionManager>(index());
    return *connections_;
}

IDumpfluxDataLoader& DumpfluxReaderImpl::loader()
{
    if (!loader_)
        loader_ = std::make_unique<DumpfluxDataLoaderIncremental>(index());
    return *loader_;
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
