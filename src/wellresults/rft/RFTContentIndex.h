#pragma once

#include "wellresults/ContentCache.h"
#include "wellresults/DatedContent.h"
#include "wellresults/rft/RFTFamily.h"

#include <mrlio/ValueType.h>
#include <mrlio/service/FileName.h>
#include <mrlio/service/Namespaces.h>
#include <mrlio/service/YearMonthDay.h>

#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <vector>

namespace Kvt::Mrl::MrlIO {

/// The cache of an RFTContentIndex.
extern const ContentCacheKind rftContentIndexCache;

/// What a file of well test results holds and where, from one walk over its headers or from the cache of an earlier
/// one. Complete once it is made; it doesn't see later changes of the file.
class RFTContentIndex final : private ICachedContent
{
public:
    /// throws   MrlIOException if the file is missing, empty or damaged, or its cache isn't well-formed;
    ///          boost::bad_lexical_cast if the cache holds a number that can't be read
    explicit RFTContentIndex(const Service::FileName& rftFile);

    const Service::FileName& file() const { return file_; }

    /// The reports in file order: dates, times, and where the DATE keywords stand.
    const std::vector<Service::YearMonthDay>& dates() const { return content_.dates; }

    const std::vector<float>& times() const { return content_.times; }

    const std::vector<std::int64_t>& offsets() const { return content_.offsets; }

    const std::map<std::string, std::shared_ptr<RFTWellInfo>>& wells() const { return content_.wells; }

    /// Those of the whole file for an empty name.
    const RFTArrayNamesCollections& arrayNames(const std::string& well) const;

    /// One that says so for an unknown well.
    const RFTWellInfo& wellInfo(const std::string& well) const;

    ValueType::Enum arrayValueType(const std::string& array) const { return content_.arrayValueType(array); }

    const std::string& unit(WellUnit::Enum unit) const { return content_.units[unit]; }

private:
    void scan() override;
    void clear() override;
    void writeSections(Service::XML::XmlWriter& xml) const override;
    bool readSections(Service::XML::XmlElement file) override;

    Service::FileName file_;
    DatedContent<RFTFamily> content_;
};

} // namespace Kvt::Mrl::MrlIO
