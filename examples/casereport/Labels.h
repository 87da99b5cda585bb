#pragma once

#include <mrlio/MrlIO.h>

#include <string>

namespace casereport {

/// What the library calls a value of one of its enumerations; a question mark for one without a name.
template <class Enumeration>
std::string labelOf(typename Enumeration::Enum value)
{
    std::string label;
    return Kvt::Mrl::MrlIO::Service::findLabel<Enumeration>(value, label) ? label : "?";
}

} // namespace casereport
