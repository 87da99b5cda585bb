#include "wellresults/grft/GRFTContentIndex.h"

#include "wellresults/DatedCacheSections.h"
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

GRFTContentIndex::GRFTContentIndex(const Service::FileName& grftFile) : file_(grftFile)
{
    buildContentIndex(grftContentIndexCache, file_, *this, &GRFTReaderEnvironment::setLastLoadUsesXMLCache);
}

void GRFTContentIndex::scan()
{
    GRFTScan(content_, file_).run();
}

void GRFTContentIndex::clear()
{
    file_ = Service::FileName();
    content_ = {};
}

void GRFTContentIndex::writeSections(Service::XML::XmlWriter& xml) const
{
    writeUnits(xml, content_.units);
    writeArrayNames(xml, content_.arrayNames, &content_.arrayTypes);
    writeParameters(xml, content_);
    writeWells(xml, content_);
    writeDates(xml, content_);
}

bool GRFTContentIndex::readSections(Service::XML::XmlElement file)
{
    const auto units = file.next();
    if (units.name() != unitsElement)
        return false;
    readUnits(units, content_.units);
    const auto arrays = units.next();
    if (arrays.name() != arraysElement ||
        !readArrayNames(GRFTFamily::indexClass, arrays, content_.arrayNames, &content_.arrayTypes))
        return false;
    const auto parameters = arrays.next();
    if (parameters.name() != parametersElement || !readParameters(parameters, content_))
        return false;
    const auto wells = parameters.next();
    if (wells.name() != wellsElement || !readWells(wells, content_))
        return false;
    const auto dates = wells.next();
    return dates.name() == datesElement && readDates(dates, content_);
}

} // namespace Kvt::Mrl::MrlIO
