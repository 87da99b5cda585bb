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

/// Name and domains, by which parameters are told apart.
inline std::string labelOf(const Kvt::Mrl::MrlIO::GRFTParameter& parameter)
{
    const std::string label = parameter.name + " " + std::to_string(parameter.domain);
    return parameter.domain2 < 0 ? label : label + " " + std::to_string(parameter.domain2);
}

} // namespace casereport
