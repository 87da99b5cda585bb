#pragma once

#include "wellresults/ContentCache.h"
#include "wellresults/DatedCacheSections.h"
#include "wellresults/DatedContent.h"
#include "wellresults/WellUnits.h"

#include <mrlio/ValueType.h>
#include <mrlio/service/FileName.h>
#include <mrlio/service/Namespaces.h>
#include <mrlio/service/YearMonthDay.h>

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

namespace Kvt::Mrl::MrlIO {

/// What a file of dated reports holds and where, from one walk over its headers or from the cache of an earlier one.
/// Complete once it is made; it doesn't see later changes of the file. The derived class calls buildContentIndex and
/// brings the walk.
///
/// Content is a DatedContent, or derived from one.
template <class Content>
class DatedContentIndex : protected ICachedContent
{
public:
    const Service::FileName& file() const { return file_; }

    /// The reports in file order: dates, times, and where the DATE keywords stand.
    const std::vector<Service::YearMonthDay>& dates() const { return content_.dates; }

    const std::vector<float>& times() const { return content_.times; }

    const std::vector<std::int64_t>& offsets() const { return content_.offsets; }

    /// By name.
    const auto& wells() const { return content_.wells; }

    ValueType::Enum arrayValueType(const std::string& array) const { return content_.arrayValueType(array); }

    const std::string& unit(WellUnit::Enum unit) const { return content_.units[unit]; }

protected:
    explicit DatedContentIndex(Service::FileName file) : file_(std::move(file)) {}

    Content& content() { return content_; }

    const Content& content() const { return content_; }

private:
    /// What the cache holds between the arrays and the wells. Reading it moves `section` on from the arrays to the last
    /// of it; false where something is missing or incomplete.
    virtual void writeOwnSections(Service::XML::XmlWriter& /*xml*/) const {}

    virtual bool readOwnSections(Service::XML::XmlElement& /*section*/) { return true; }

    void clear() override
    {
        file_ = Service::FileName();
        content_ = {};
    }

    void writeSections(Service::XML::XmlWriter& xml) const override
    {
        writeUnits(xml, content_.units);
        writeArrayNames(xml, content_.arrayNames, &content_.arrayTypes);
        writeOwnSections(xml);
        writeWells(xml, content_);
        writeDates(xml, content_);
    }

    bool readSections(Service::XML::XmlElement file) override
    {
        auto section = file.next();
        if (section.name() != unitsElement)
            return false;
        readUnits(section, content_.units);
        section = section.next();
        if (section.name() != arraysElement ||
            !readArrayNames(Content::Family::indexClass, section, content_.arrayNames, &content_.arrayTypes))
            return false;
        if (!readOwnSections(section))
            return false;
        section = section.next();
        if (section.name() != wellsElement || !readWells(section, content_))
            return false;
        section = section.next();
        return section.name() == datesElement && readDates(section, content_);
    }

    Service::FileName file_;
    Content content_;
};

} // namespace Kvt::Mrl::MrlIO
