#pragma once

#include "wellresults/ContentCache.h"
#include "wellresults/hmd/HMDContent.h"

#include <mrlio/ValueType.h>
#include <mrlio/service/FileName.h>
#include <mrlio/service/Namespaces.h>

#include <string>

namespace Kvt::Mrl::MrlIO {

/// The cache of an HMDContentIndex.
extern const ContentCacheKind hmdContentIndexCache;

/// Which reports, wells, groups, parameters and arrays a file of history match data holds. Complete when it is made, and
/// unchanged from then on.
class HMDContentIndex final : private ICachedContent
{
public:
    /// throws   what the scan and the cache throw
    explicit HMDContentIndex(const Service::FileName& hmdFile);

    const Service::FileName& file() const { return file_; }

    const HMDContent& content() const { return content_; }

    /// The value 8 for an unknown name.
    ValueType::Enum arrayValueType(const std::string& array) const;

private:
    void scan() override;
    void clear() override;
    void writeFileExtras(Service::XML::XmlWriter& xml) const override;
    void writeSections(Service::XML::XmlWriter& xml) const override;
    bool readSections(Service::XML::XmlElement file) override;

    Service::FileName file_;
    HMDContent content_;
};

} // namespace Kvt::Mrl::MrlIO
