#include <mrlio/ISummaryDataLoader.h>

#include "summary/SummaryDataLoaderIncremental.h"
#include "summary/SummaryDataLoaderSimple.h"

namespace Kvt::Mrl::MrlIO {

ISummaryDataLoader::~ISummaryDataLoader() = default;
ISummaryDataLoaderFactory::~ISummaryDataLoaderFactory() = default;

using Incremental = SummaryDataLoaderIncrementalFactory;

Incremental::SummaryDataLoaderIncrementalFactory() = default;
Incremental::SummaryDataLoaderIncrementalFactory(const Incremental&) = default;
Incremental::SummaryDataLoaderIncrementalFactory(Incremental&&) noexcept = default;
Incremental& Incremental::operator=(const Incremental&) = default;
Incremental& Incremental::operator=(Incremental&&) noexcept = default;
Incremental::~SummaryDataLoaderIncrementalFactory() = default;

ISummaryDataLoader* Incremental::create(const SummarySpecData& spec, const SummaryContentIndex& index) const
{
    return new SummaryDataLoaderIncremental(spec, index);
}

using Simple = SummaryDataLoaderSimpleFactory;

Simple::SummaryDataLoaderSimpleFactory() = default;
Simple::SummaryDataLoaderSimpleFactory(const Simple&) = default;
Simple::SummaryDataLoaderSimpleFactory(Simple&&) noexcept = default;
Simple& Simple::operator=(const Simple&) = default;
Simple& Simple::operator=(Simple&&) noexcept = default;
Simple::~SummaryDataLoaderSimpleFactory() = default;

ISummaryDataLoader* Simple::create(const SummarySpecData& spec, const SummaryContentIndex& index) const
{
    return new SummaryDataLoaderSimple(spec, index);
}

} // namespace Kvt::Mrl::MrlIO
