#pragma once

#include "wellresults/DatedContent.h"

#include <cstddef>

/// \file
/// The sections of a cache for a DatedContent.

namespace Kvt::Mrl::MrlIO {

inline constexpr const char* unitsElement = "units";
inline constexpr const char* datesElement = "dates";

inline void writeUnits(Service::XML::XmlWriter& xml, const WellUnits& units)
{
    xml.startElement(unitsElement);
    for (std::size_t unit = 0; unit < units.size(); ++unit)
        xml.textElement(wellUnitRows[unit].cacheElement, toCacheText(units[unit]));
    xml.endElement();
}

/// What isn't there stays as it is.
inline void readUnits(Service::XML::XmlElement element, WellUnits& units)
{
    for (auto child = element.firstChild(); child; child = child.next()) {
        for (std::size_t unit = 0; unit < units.size(); ++unit) {
            if (child.name() == wellUnitRows[unit].cacheElement)
                units[unit] = fromCacheText(child.text());
        }
    }
}

template <class Family>
void writeWells(Service::XML::XmlWriter& xml, const DatedContent<Family>& content)
{
    xml.startElement(wellsElement);
    for (const auto& [name, well] : content.wells) {
        std::string type;
        Service::findLabel<WellModelType>(well->type, type);
        xml.startElement("well");
        xml.textElement("name", toCacheText(name));
        xml.textElement(Family::wellTypeElement, type);
        if (!well->lgr.empty())
            xml.textElement("lgr", toCacheText(well->lgr));
        writeArrayNames(xml, well->arrayNames, nullptr);
        xml.endElement();
    }
    xml.endElement();
}

/// False if a well has no name, no type or no arrays.
template <class Family>
bool readWells(Service::XML::XmlElement element, DatedContent<Family>& content)
{
    for (auto child = element.firstChild(); child; child = child.next()) {
        if (child.name() != "well")
            continue;
        const std::string name = fromCacheText(child.child("name").text());
        const std::string type = fromCacheText(child.child(Family::wellTypeElement).text());
        const auto arrays = child.child(arraysElement);
        if (name.empty() || type.empty() || !arrays)
            return false;
        const auto& well = content.addWell(name, type, fromCacheText(child.child("lgr").text()));
        if (!readArrayNames(Family::indexClass, arrays, well->arrayNames, nullptr))
            return false;
    }
    return true;
}

template <class Family>
void writeDates(Service::XML::XmlWriter& xml, const DatedContent<Family>& content)
{
    xml.startElement(datesElement);
    for (std::size_t index = 0; index < content.dates.size(); ++index) {
        const Service::YearMonthDay& date = content.dates[index];
        xml.startElement("date");
        xml.textElement("year", date.Year());
        xml.textElement("month", date.Month());
        xml.textElement("day", date.Day());
        xml.textElement("time", numberText(content.times[index]));
        xml.textElement("offset", content.offsets[index]);
        xml.endElement();
    }
    xml.endElement();
}

/// False at a report that lacks a number, has a negative one or no day of the calendar.
template <class Family>
bool readDates(Service::XML::XmlElement element, DatedContent<Family>& content)
{
    for (auto child = element.firstChild(); child; child = child.next()) {
        if (child.name() != "date")
            continue;
        const int year = childNumber<int>(child, "year");
        const int month = childNumber<int>(child, "month");
        const int day = childNumber<int>(child, "day");
        const auto time = childNumber<float>(child, "time");
        const auto offset = childNumber<std::int64_t>(child, "offset");
        Service::YearMonthDay date;
        if (year < 0 || month < 0 || day < 0 || offset < 0 || !(time >= 0) || !makeDate(year, month, day, date))
            return false;
        content.addReport(date, time, offset);
    }
    return true;
}

} // namespace Kvt::Mrl::MrlIO
