#pragma once

#include "wellresults/ContentCache.h"
#include "wellresults/DatedContentIndex.h"
#include "wellresults/grft/GRFTContent.h"

#include <mrlio/GRFTParameter.h>
#include <mrlio/service/FileName.h>
#include <mrlio/service/Namespaces.h>

#include <memory>
#include <string>
#include <vector>

namespace Kvt::Mrl::MrlIO {

/// The cache of a GRFTContentIndex.
extern const ContentCacheKind grftContentIndexCache;

/// The content index of a gradient file.
class GRFTContentIndex final : public DatedContentIndex<GRFTContent>
{
public:
    /// throws   MrlIOException if the file is missing, empty or damaged, or its cache isn't well-formed;
    ///          boost::bad_lexical_cast if the cache holds a number that can't be read
    explicit GRFTContentIndex(const Service::FileName& grftFile);

    /// In the order in which the file names them first.
    const std::vector<std::shared_ptr<GRFTParameterInfo>>& parameters() const { return content().parameters(); }

    /// Those of the whole file.
    const GRFTArrayNamesCollections& arrayNames() const { return content().arrayNames; }

    /// Null for an unknown one.
    const GRFTParameterInfo* parameterInfo(const GRFTParameter& parameter) const
    {
        return content().parameterInfo(parameter);
    }

    const GRFTWellInfo* wellInfo(const std::string& well) const { return content().wellInfo(well); }

private:
    void scan() override;
    void writeOwnSections(Service::XML::XmlWriter& xml) const override;
    bool readOwnSections(Service::XML::XmlElement& section) override;
};

} // namespace Kvt::Mrl::MrlIO
