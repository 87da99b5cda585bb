#pragma once

#include "service/XmlDocument.h"
#include "service/XmlWriter.h"
#include "wellresults/hmd/HMDContent.h"

#include <mrlio/service/Namespaces.h>

namespace Kvt::Mrl::MrlIO {

/// Writes the element that stands in the `file` element of the cache, behind the stamp.
void writeHMDFileExtras(Service::XML::XmlWriter& xml, const HMDContent& content);

/// Writes the sections of the cache behind the `file` element.
void writeHMDSections(Service::XML::XmlWriter& xml, const HMDContent& content);

/// Takes the content from a cache, given its `file` element. False where something is missing; what was taken until
/// then stays.
/// throws   HMDReaderException for an array of an unknown type, boost::bad_lexical_cast for what isn't a number
bool readHMDSections(Service::XML::XmlElement file, HMDContent& content);

} // namespace Kvt::Mrl::MrlIO
