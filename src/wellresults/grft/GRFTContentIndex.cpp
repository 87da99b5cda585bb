#include "wellresults/grft/GRFTContentIndex.h"

#include "wellresults/grft/GRFTScan.h"

#include <mrlio/GRFTReaderEnvironment.h>

namespace Kvt::Mrl::MrlIO {

namespace {

constexpr const char* parametersElement = "parameters";
constexpr const char* parameterElement = "parameter";

void writeParameters(Service::XML::XmlWriter& xml, const GRFTContent& content)
{
    xml.startElement(parametersElement);
    for (const auto& parameter : content.parameters()) {
        xml.startElement(parameterElement);
        xml.textElement("name", toCacheText(parameter->name));
        xml.textElement("type", parameter->type);
        xml.textElement("domain", parameter->domain);
        // A second domain below -1 becomes -1 on the way; that is kept so.
        if (parameter->domain2 > 0)
            xml.textElement("domain2", parameter->domain2);
        writeArrayNames(xml, parameter->arrayNames, nullptr);
        xml.endElement();
    }
    xml.endElement();
}

/// False if a parameter has no name or no arrays.
bool readParameters(Service::XML::XmlElement element, GRFTContent& content)
{
    for (auto child = element.firstChild(); child; child = child.next()) {
        if (child.name() != parameterElement)
            continue;
        const std::string name = fromCacheText(child.child("name").text());
        const auto arrays = child.child(arraysElement);
        if (name.empty() || !arrays)
            return false;
        GRFTParameterInfo& parameter =
            content.addParameter({name, childNumber<int>(child, "type"), childNumber<int>(child, "domain"),
                                  childNumber<int>(child, "domain2")});
        if (!readArrayNames(GRFTFamily::indexClass, arrays, parameter.arrayNames, nullptr))
            return false;
    }
    return true;
}

} // namespace

const ContentCacheKind grftContentIndexCache{
    "GRFTContentIndex", "GRFTContentIndexCache", "_grft_content_index__.xml", 1,
    "Do not modify this file.  It contains cache data used to speed up loading/reading of GRFT files.  Any "
    "modification may result in inconsistencies between the original data and the cache, and consequently erroneous "
    "loading or even a program crash.  This file may be deleted, in which case it will be re-generated the next time "
    "the GRFT data is loaded."};

GRFTContentIndex::GRFTContentIndex(const Service::FileName& grftFile) : DatedContentIndex(grftFile)
{
    buildContentIndex(grftContentIndexCache, file(), *this, &GRFTReaderEnvironment::setLastLoadUsesXMLCache);
}

void GRFTContentIndex::scan()
{
    GRFTScan(content(), file()).run();
}

void GRFTContentIndex::writeOwnSections(Service::XML::XmlWriter& xml) const
{
    writeParameters(xml, content());
}

bool GRFTContentIndex::readOwnSections(Service::XML::XmlElement& section)
{
    section = section.next();
    return section.name() == parametersElement && readParameters(section, content());
}

} // namespace Kvt::Mrl::MrlIO
