#include "wellresults/rft/RFTContentIndex.h"

#include "wellresults/DatedCacheSections.h"

#include <mrlio/RFTReaderEnvironment.h>

namespace Kvt::Mrl::MrlIO {

const ContentCacheKind rftContentIndexCache{
    "RFTContentIndex", "RFTContentIndexCache", "_rft_content_index__.xml", 2,
    "Do not modify this file.  This contains cache data used to speed up loading/reading of RFT/PLT data.  Any "
    "modification may result in inconsistencies between the original data and the cache, and consequently erroneous "
    "loading or even a program crash.  This file may be deleted, in which case it may be re-generated the next time "
    "the RFT data is loaded"};

RFTContentIndex::RFTContentIndex(const Service::FileName& rftFile) : file_(rftFile)
{
    buildContentIndex(rftContentIndexCache, file_, *this, &RFTReaderEnvironment::setLastLoadUsesXMLCache);
}

const RFTArrayNamesCollections& RFTContentIndex::arrayNames(const std::string& well) const
{
    return well.empty() ? content_.arrayNames : wellInfo(well).arrayNames;
}

const RFTWellInfo& RFTContentIndex::wellInfo(const std::string& well) const
{
    static const RFTWellInfo unknown;
    const auto known = content_.wells.find(well);
    return known == content_.wells.end() ? unknown : *known->second;
}

void RFTContentIndex::scan()
{
    DatedScan<RFTFamily> scan(content_, file_, RFTFamily::isFormatted(file_));
    while (scan.next()) {
        scan.listInWell();
        scan.listInFile();
    }
}

void RFTContentIndex::clear()
{
    file_ = Service::FileName();
    content_ = {};
}

void RFTContentIndex::writeSections(Service::XML::XmlWriter& xml) const
{
    writeUnits(xml, content_.units);
    writeArrayNames(xml, content_.arrayNames, &content_.arrayTypes);
    writeWells(xml, content_);
    writeDates(xml, content_);
}

bool RFTContentIndex::readSections(Service::XML::XmlElement file)
{
    const auto units = file.next();
    if (units.name() != unitsElement)
        return false;
    readUnits(units, content_.units);
    const auto arrays = units.next();
    if (arrays.name() != arraysElement ||
        !readArrayNames(RFTFamily::indexClass, arrays, content_.arrayNames, &content_.arrayTypes))
        return false;
    const auto wells = arrays.next();
    if (wells.name() != wellsElement || !readWells(wells, content_))
        return false;
    const auto dates = wells.next();
    return dates.name() == datesElement && readDates(dates, content_);
}

} // namespace Kvt::Mrl::MrlIO
