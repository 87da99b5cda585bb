#pragma once

#include <mrlio/Export.h>
#include <mrlio/SummarySpecData.h>

#include <memory>
#include <vector>

namespace Kvt::Mrl::MrlIO {

/// Which report steps and mini steps the data files of a case hold, and where. Clients' factories only pass it on.
class SummaryContentIndex;

/// Turns the summary data, stored by time, into vectors, asked for by name. Made by an ISummaryDataLoaderFactory for
/// one reader and used by it alone. The order of the virtual operations is part of the interface.
class MRLIO_EXPORT ISummaryDataLoader
{
public:
    virtual ~ISummaryDataLoader();

    /// The values of a vector, one per mini step, in the order of the mini steps; null if the vector is not known.
    /// A later request, for this or another vector of the keyword, may append to the vector that was given out.
    /// throws  a std::runtime_error if the data can't be read; a further request goes on where reading failed
    virtual std::shared_ptr<const std::vector<float>> getData(const SummaryVectorIDParams& id) const = 0;

    /// Tells the loader that the content index has grown or will grow at the next question to it.
    virtual void contentIndexGrown() = 0;
};

/// Makes the loader of a reader. The order of the virtual operations is part of the interface.
class MRLIO_EXPORT ISummaryDataLoaderFactory
{
public:
    virtual ~ISummaryDataLoaderFactory();

    /// A new loader, which the caller owns. Both arguments outlive it.
    virtual ISummaryDataLoader* create(const SummarySpecData& spec, const SummaryContentIndex& index) const = 0;
};

/// Makes the default loaders: they read the vectors of one keyword at the first request for any of them, a slice of
/// each PARAMS, and keep them.
class MRLIO_EXPORT SummaryDataLoaderIncrementalFactory : public ISummaryDataLoaderFactory
{
public:
    SummaryDataLoaderIncrementalFactory();
    SummaryDataLoaderIncrementalFactory(const SummaryDataLoaderIncrementalFactory&);
    SummaryDataLoaderIncrementalFactory(SummaryDataLoaderIncrementalFactory&&) noexcept;
    SummaryDataLoaderIncrementalFactory& operator=(const SummaryDataLoaderIncrementalFactory&);
    SummaryDataLoaderIncrementalFactory& operator=(SummaryDataLoaderIncrementalFactory&&) noexcept;
    ~SummaryDataLoaderIncrementalFactory() override;

    ISummaryDataLoader* create(const SummarySpecData& spec, const SummaryContentIndex& index) const override;
};

/// Makes loaders that read every PARAMS whole at the first request and keep all vectors: for callers who want them all.
class MRLIO_EXPORT SummaryDataLoaderSimpleFactory : public ISummaryDataLoaderFactory
{
public:
    SummaryDataLoaderSimpleFactory();
    SummaryDataLoaderSimpleFactory(const SummaryDataLoaderSimpleFactory&);
    SummaryDataLoaderSimpleFactory(SummaryDataLoaderSimpleFactory&&) noexcept;
    SummaryDataLoaderSimpleFactory& operator=(const SummaryDataLoaderSimpleFactory&);
    SummaryDataLoaderSimpleFactory& operator=(SummaryDataLoaderSimpleFactory&&) noexcept;
    ~SummaryDataLoaderSimpleFactory() override;

    ISummaryDataLoader* create(const SummarySpecData& spec, const SummaryContentIndex& index) const override;
};

} // namespace Kvt::Mrl::MrlIO
