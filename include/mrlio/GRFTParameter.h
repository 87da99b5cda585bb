#pragma once

#include <compare>
#include <string>
#include <utility>

namespace Kvt::Mrl::MrlIO {

/// A parameter of a history match, as gradients name it. What type and domains mean is the simulator's.
///
/// Two parameters are the same if name, domain and second domain agree; the type takes no part. They are ordered by
/// these three.
struct GRFTParameter
{
    /// No parameter.
    GRFTParameter() = default;

    GRFTParameter(std::string parameterName, int parameterType, int firstDomain, int secondDomain)
        : name(std::move(parameterName)),
          type(parameterType),
          domain(firstDomain),
          domain2(secondDomain)
    {}

    std::string name;
    int type = -1;
    int domain = -1;
    int domain2 = -1; ///< -1 for none

    bool operator==(const GRFTParameter& other) const { return (*this <=> other) == 0; }

    std::strong_ordering operator<=>(const GRFTParameter& other) const
    {
        if (const auto byName = name <=> other.name; byName != 0)
            return byName;
        if (const auto byDomain = domain <=> other.domain; byDomain != 0)
            return byDomain;
        return domain2 <=> other.domain2;
    }
};

/// The same of a history match file.
using HMDParameter = GRFTParameter;

} // namespace Kvt::Mrl::MrlIO
