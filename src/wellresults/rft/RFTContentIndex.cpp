#include "wellresults/rft/RFTContentIndex.h"

#include <mrlio/RFTReaderEnvironment.h>

namespace Kvt::Mrl::MrlIO {

const ContentCacheKind rftContentIndexCache{
    "RFTContentIndex", "RFTContentIndexCache", "_rft_content_index__.xml", 2,
    "Do not modify this file.  This contains cache data used to speed up loading/reading of RFT/PLT data.  Any "
    "modification may result in inconsistencies between the original data and the cache, and consequently erroneous "
    "loading or even a program crash.  This file may be deleted, in which case it may be re-generated the next time "
    "the RFT data is loaded"};

RFTContentIndex::RFTContentIndex(const Service::FileName& rftFile) : DatedContentIndex(rftFile)
{
    buildContentIndex(rftContentIndexCache, file(), *this, &RFTReaderEnvironment::setLastLoadUsesXMLCache);
}

const RFTArrayNamesCollections& RFTContentIndex::arrayNames(const std::string& well) const
{
    return well.empty() ? content().arrayNames : wellInfo(well).arrayNames;
}

const RFTWellInfo& RFTContentIndex::wellInfo(const std::string& well) const
{
    static const RFTWellInfo unknown;
    const auto known = wells().find(well);
    return known == wells().end() ? unknown : *known->second;
}

void RFTContentIndex::scan()
{
    DatedScan<RFTFamily> scan(content(), file(), RFTFamily::isFormatted(file()));
    while (scan.next()) {
        scan.listInWell();
        scan.listInFile();
    }
}

} // namespace Kvt::Mrl::MrlIO
