#pragma once

#include "wellresults/ContentCache.h"
#include "wellresults/DatedContentIndex.h"
#include "wellresults/rft/RFTFamily.h"

#include <mrlio/service/FileName.h>
#include <mrlio/service/Namespaces.h>

#include <string>

namespace Kvt::Mrl::MrlIO {

/// The cache of an RFTContentIndex.
extern const ContentCacheKind rftContentIndexCache;

/// The content index of a file of well test results.
class RFTContentIndex final : public DatedContentIndex<DatedContent<RFTFamily>>
{
public:
    /// throws   MrlIOException if the file is missing, empty or damaged, or its cache isn't well-formed;
    ///          boost::bad_lexical_cast if the cache holds a number that can't be read
    explicit RFTContentIndex(const Service::FileName& rftFile);

    /// Those of the whole file for an empty name.
    const RFTArrayNamesCollections& arrayNames(const std::string& well) const;

    /// One that says so for an unknown well.
    const RFTWellInfo& wellInfo(const std::string& well) const;

private:
    void scan() override;
};

} // namespace Kvt::Mrl::MrlIO
