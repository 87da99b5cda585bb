#pragma once

#include "wellresults/ContentCache.h"
#include "wellresults/WellUnits.h"
#include "wellresults/grft/GRFTContent.h"

#include <mrlio/GRFTParameter.h>
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

/// The cache of a GRFTContentIndex.
extern const ContentCacheKind grftContentIndexCache;

/// What a gradient file holds and where, from one walk over its headers or from the cache of an earlier one. Complete
/// once it is made; it doesn't see later changes of the file.
class GRFTContentIndex final : private ICachedContent
{
public:
    /// throws   MrlIOException if the file is missing, empty or damaged, or its cache isn't well-formed;
    ///          boost::bad_lexical_cast if the cache holds a number that can't be read
    explicit GRFTContentIndex(const Service::FileName& grftFile);

    const Service::FileName& file() const { return file_; }

    /// The reports in file order: dates, times, and where the DATE keywords stand.
    const std::vector<Service::YearMonthDay>& dates() const { return content_.dates; }

    const std::vector<float>& times() const { return content_.times; }

    const std::vector<std::int64_t>& offsets() const { return content_.offsets; }

    const std::map<std::string, std::shared_ptr<GRFTWellInfo>>& wells() const { return content_.wells; }

    /// In the order in which the file names them first.
    const std::vector<std::shared_ptr<GRFTParameterInfo>>& parameters() const { return content_.parameters(); }

    /// Those of the whole file.
    const GRFTArrayNamesCollections& arrayNames() const { return content_.arrayNames; }

    /// Null for an unknown one.
    const GRFTParameterInfo* parameterInfo(const GRFTParameter& parameter) const
    {
        return content_.parameterInfo(parameter);
    }

    const GRFTWellInfo* wellInfo(const std::string& well) const { return content_.wellInfo(well); }

    ValueType::Enum arrayValueType(const std::string& array) const { return content_.arrayValueType(array); }

    const std::string& unit(WellUnit::Enum unit) const { return content_.units[unit]; }

private:
    void scan() override;
    void clear() override;
    void writeSections(Service::XML::XmlWriter& xml) const override;
    bool readSections(Service::XML::XmlElement file) override;

    Service::FileName file_;
    GRFTContent content_;
};

} // namespace Kvt::Mrl::MrlIO
