#include <mrlio/SummaryReaderEnvironment.h>

#include "summary/DataLoaderFactory.h"

#include <mrlio/MrlIOException.h>
#include <mrlio/SummaryContentIndexCache.h>

#include <mutex>

namespace Kvt::Mrl::MrlIO {

namespace {

using SharedFactory = std::shared_ptr<const ISummaryDataLoaderFactory>;

/// The factory of the process, with its guard.
class FactoryHolder
{
public:
    SharedFactory get()
    {
        const std::lock_guard lock(mutex_);
        if (!factory_)
            factory_ = std::make_shared<const SummaryDataLoaderIncrementalFactory>();
        return factory_;
    }

    void set(SharedFactory factory)
    {
        const std::lock_guard lock(mutex_);
        factory_.swap(factory); // the former one dies behind the lock
    }

private:
    std::mutex mutex_;
    SharedFactory factory_;
};

FactoryHolder& factoryHolder()
{
    static FactoryHolder holder;
    return holder;
}

} // namespace

const ISummaryDataLoaderFactory& SummaryReaderEnvironment::getDataAccessorFactory()
{
    return *factoryHolder().get();
}

void SummaryReaderEnvironment::setDataAccessorFactory(std::unique_ptr<ISummaryDataLoaderFactory> factory)
{
    factoryHolder().set(std::move(factory));
}

void SummaryReaderEnvironment::flushContentIndexCache(const Service::Directory& directory, const std::string& baseName)
{
    SummaryContentIndexCache::flushCacheFile(SummaryContentIndexCache::cacheFileName(directory.Name(), baseName));
}

std::unique_ptr<ISummaryDataLoader> makeDataLoader(const SummarySpecData& spec, const SummaryContentIndex& index)
{
    const SharedFactory factory = factoryHolder().get();
    std::unique_ptr<ISummaryDataLoader> loader(factory->create(spec, index));
    if (!loader)
        throw SummaryReaderException("SummaryReaderEnvironment: the data accessor factory made no loader");
    return loader;
}

} // namespace Kvt::Mrl::MrlIO
