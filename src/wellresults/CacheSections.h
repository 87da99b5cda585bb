#pragma once

#include "core/Fail.h"
#include "service/XmlDocument.h"
#include "service/XmlWriter.h"
#include "wellresults/ArrayNames.h"
#include "wellresults/CacheText.h"

#include <mrlio/ValueType.h>
#include <mrlio/service/EnumInfo.h>
#include <mrlio/service/Namespaces.h>

#include <cstddef>
#include <map>
#include <string>

/// \file
/// The sections that the caches of the families have in common.

namespace Kvt::Mrl::MrlIO {

using ArrayTypes = std::map<std::string, ValueType::Enum>;

/// The type of an array, of which the value 8 means that it isn't known.
inline ValueType::Enum arrayTypeOf(const ArrayTypes& types, const std::string& name)
{
    const auto known = types.find(name);
    return known == types.end() ? static_cast<ValueType::Enum>(8) : known->second;
}

inline constexpr const char* arraysElement = "arrays";
inline constexpr const char* wellsElement = "wells";

/// The number in a child element, -1 if there is no such child.
/// throws   boost::bad_lexical_cast if the child holds something else
template <class Number>
Number childNumber(Service::XML::XmlElement element, const char* name)
{
    const auto child = element.child(name);
    return child ? numberOf<Number>(child.text()) : Number(-1);
}

/// Writes an `arrays` element: an element per category, in it an empty element per name.
/// types   adds the type of each name; null for names without
template <class Categorizer>
void writeArrayNames(Service::XML::XmlWriter& xml, const ArrayNamesCollections<Categorizer>& collections,
                     const ArrayTypes* types)
{
    xml.startElement(arraysElement);
    for (std::size_t category = 0; category < Categorizer::categoryCount; ++category) {
        xml.startElement(Categorizer::cacheElements[category]);
        for (const std::string& name : collections.names(category)) {
            xml.startElement("array");
            xml.attribute("name", toCacheText(name));
            std::string type;
            if (types && Service::findLabel<ValueType>(types->at(name), type))
                xml.attribute("type", type);
            xml.endElement();
        }
        xml.endElement();
    }
    xml.endElement();
}

/// Adds the names of the element of one category.
template <class Categorizer>
bool readArrayNamesOf(const char* indexClass, Service::XML::XmlElement group,
                      typename Categorizer::CategoryType category, ArrayNamesCollections<Categorizer>& collections,
                      ArrayTypes* types)
{
    for (auto array = group.firstChild(); array; array = array.next()) {
        if (array.name() != "array")
            continue;
        const std::string name = fromCacheText(array.attribute("name"));
        const std::string type(array.attribute("type"));
        if (name.empty() || (types && type.empty()))
            return false;
        collections.addArrayName(name, category);
        if (types) {
            ValueType::Enum value{};
            if (!Service::findEnum<ValueType>(type, value))
                fail<typename Categorizer::Exception>(indexClass, "::addArrayValueType: unknown array type ", type);
            (*types)[name] = value;
        }
    }
    return true;
}

/// Adds the names of an `arrays` element to their categories. False if one has no name, or no type where it needs one.
/// indexClass   begins the text for a type that is none
/// types        gets the types; null if the names come without
/// throws       Categorizer::Exception for an unknown type
template <class Categorizer>
bool readArrayNames(const char* indexClass, Service::XML::XmlElement arrays,
                    ArrayNamesCollections<Categorizer>& collections, ArrayTypes* types)
{
    using Category = typename Categorizer::CategoryType;
    for (auto group = arrays.firstChild(); group; group = group.next()) {
        for (std::size_t category = 0; category < Categorizer::categoryCount; ++category) {
            if (group.name() == Categorizer::cacheElements[category] &&
                !readArrayNamesOf(indexClass, group, static_cast<Category>(category), collections, types))
                return false;
        }
    }
    return true;
}

} // namespace Kvt::Mrl::MrlIO
