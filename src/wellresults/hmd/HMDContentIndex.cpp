#include "wellresults/hmd/HMDContentIndex.h"

#include "wellresults/hmd/HMDCacheSections.h"
#include "wellresults/hmd/HMDScan.h"

#include <mrlio/HMDReaderEnvironment.h>

namespace Kvt::Mrl::MrlIO {

const ContentCacheKind hmdContentIndexCache{
    "HMDContentIndex", "HMDContentIndexCache", "_hmd_content_index__.xml", 1,
    "Do not modify this file.  It contains cache data used to speed up loading/reading of HMD files.  Any modification "
    "may result in inconsistencies between the original data and the cache, and consequently erroneous loading or even "
    "a program crash.  This file may be deleted, in which case it will be re-generated the next time the HMD data is "
    "loaded."};

HMDContentIndex::HMDContentIndex(const Service::FileName& hmdFile) : file_(hmdFile)
{
    buildContentIndex(hmdContentIndexCache, file_, *this, &HMDReaderEnvironment::setLastLoadUsesXMLCache);
}

ValueType::Enum HMDContentIndex::arrayValueType(const std::string& array) const
{
    return arrayTypeOf(content_.arrayTypes, array);
}

void HMDContentIndex::scan()
{
    HMDScan(content_, file_).run();
}

void HMDContentIndex::clear()
{
    file_ = Service::FileName();
    content_ = HMDContent();
}

void HMDContentIndex::writeFileExtras(Service::XML::XmlWriter& xml) const
{
    writeHMDFileExtras(xml, content_);
}

void HMDContentIndex::writeSections(Service::XML::XmlWriter& xml) const
{
    writeHMDSections(xml, content_);
}

bool HMDContentIndex::readSections(Service::XML::XmlElement file)
{
    return readHMDSections(file, content_);
}

} // namespace Kvt::Mrl::MrlIO
