#include "wellresults/hmd/HMDCacheSections.h"

#include "wellresults/CacheSections.h"
#include "wellresults/CacheText.h"

#include <cstddef>
#include <cstdint>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace Kvt::Mrl::MrlIO {

namespace {

using Service::XML::XmlElement;
using Service::XML::XmlWriter;

constexpr const char* encodedElement = "encoded";
constexpr const char* parametersElement = "parameters";
constexpr const char* groupsElement = "groups";
constexpr const char* quantitiesElement = "quantities";
constexpr const char* timesElement = "times";
constexpr const char* nameElement = "name";

/// Calls read(child) for the children of that name until one gives false.
template <class Read>
bool readChildren(XmlElement element, const char* name, Read&& read)
{
    for (auto child = element.firstChild(); child; child = child.next()) {
        if (child.name() == name && !read(child))
            return false;
    }
    return true;
}

void writeParameters(XmlWriter& xml, const std::set<HMDParameter>& parameters)
{
    xml.startElement(parametersElement);
    for (const HMDParameter& parameter : parameters) {
        xml.startElement("parameter");
        xml.textElement(nameElement, toCacheText(parameter.name));
        xml.textElement("type", parameter.type);
        xml.textElement("domain", parameter.domain);
        xml.textElement("domain2", parameter.domain2);
        xml.endElement();
    }
    xml.endElement();
}

bool readParameters(XmlElement element, std::set<HMDParameter>& parameters)
{
    return readChildren(element, "parameter", [&parameters](XmlElement child) {
        HMDParameter parameter(fromCacheText(child.child(nameElement).text()), childNumber<int>(child, "type"),
                               childNumber<int>(child, "domain"), childNumber<int>(child, "domain2"));
        if (parameter.name.empty())
            return false;
        parameters.insert(parameters.end(), std::move(parameter));
        return true;
    });
}

template <class Names>
void writeNames(XmlWriter& xml, const char* element, const Names& names)
{
    xml.startElement(element);
    for (const std::string& name : names)
        xml.textElement(nameElement, toCacheText(name));
    xml.endElement();
}

bool readOwners(XmlElement element, std::set<std::string>& owners)
{
    return readChildren(element, nameElement, [&owners](XmlElement child) {
        std::string name = fromCacheText(child.text());
        if (name.empty())
            return false;
        owners.insert(owners.end(), std::move(name));
        return true;
    });
}

void writeQuantities(XmlWriter& xml, const HMDContent& content)
{
    xml.startElement(quantitiesElement);
    writeNames(xml, wellsElement, content.wellQuantities);
    writeNames(xml, groupsElement, content.groupQuantities);
    xml.endElement();
}

/// Files may leave a quantity without a name; the place counts.
bool readQuantitiesOf(XmlElement element, std::vector<std::string>& quantities)
{
    return element && readChildren(element, nameElement, [&quantities](XmlElement child) {
               quantities.push_back(fromCacheText(child.text()));
               return true;
           });
}

bool readQuantities(XmlElement element, HMDContent& content)
{
    return readQuantitiesOf(element.child(wellsElement), content.wellQuantities) &&
           readQuantitiesOf(element.child(groupsElement), content.groupQuantities);
}

void writeTimes(XmlWriter& xml, const HMDContent& content)
{
    xml.startElement(timesElement);
    for (std::size_t index = 0; index < content.times.size(); ++index) {
        xml.startElement("time");
        xml.textElement("value", numberText(content.times[index]));
        xml.textElement("step", numberText(content.timeSteps[index]));
        xml.textElement("offset", content.offsets[index]);
        xml.endElement();
    }
    xml.endElement();
}

/// Refuses negative times, which can only be the first ones, but not a negative step: if that refused the cache, the
/// reports in front of it would be there twice after the scan.
bool readTimes(XmlElement element, HMDContent& content)
{
    return readChildren(element, "time", [&content](XmlElement child) {
        const HMDTimeStep report{childNumber<double>(child, "value"), childNumber<double>(child, "step")};
        const auto offset = childNumber<std::int64_t>(child, "offset");
        if (!(report.time >= 0) || offset < 0)
            return false;
        content.addReport(report, offset);
        return true;
    });
}

bool readEncoded(XmlElement file, bool& isEncoded)
{
    const int encoded = childNumber<int>(file, encodedElement);
    isEncoded = encoded == 1;
    return encoded == 0 || encoded == 1;
}

} // namespace

void writeHMDFileExtras(XmlWriter& xml, const HMDContent& content)
{
    xml.textElement(encodedElement, static_cast<int>(content.isFileEncoded));
}

void writeHMDSections(XmlWriter& xml, const HMDContent& content)
{
    writeArrayNames(xml, content.arrayNames, &content.arrayTypes);
    writeParameters(xml, content.parameters);
    writeNames(xml, wellsElement, content.wellNames);
    writeNames(xml, groupsElement, content.groupNames);
    writeQuantities(xml, content);
    writeTimes(xml, content);
}

bool readHMDSections(XmlElement file, HMDContent& content)
{
    const XmlElement arrays = file.next();
    const XmlElement parameters = arrays.next();
    const XmlElement wells = parameters.next();
    const XmlElement groups = wells.next();
    const XmlElement quantities = groups.next();
    const XmlElement times = quantities.next();
    return readEncoded(file, content.isFileEncoded) && arrays.name() == arraysElement &&
           readArrayNames("HMDContentIndex", arrays, content.arrayNames, &content.arrayTypes) &&
           parameters.name() == parametersElement && readParameters(parameters, content.parameters) &&
           wells.name() == wellsElement && readOwners(wells, content.wellNames) && //
           groups.name() == groupsElement && readOwners(groups, content.groupNames) &&
           quantities.name() == quantitiesElement && readQuantities(quantities, content) &&
           times.name() == timesElement && readTimes(times, content);
}

} // namespace Kvt::Mrl::MrlIO
