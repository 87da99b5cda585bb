#pragma once

#include "wellresults/ArrayNames.h"

#include <mrlio/MrlIOException.h>

#include <array>
#include <cstddef>
#include <string>

namespace Kvt::Mrl::MrlIO {

/// Sorts the arrays of gradient files by name, along two axes.
class GRFTArrayNameCategorizer
{
public:
    enum CategoryType : int
    {
        BasicData,
        Gradients
    };

    /// What an array belongs to, a bit for each.
    enum SubjectType : int
    {
        Neither = 0,
        Parameter = 1,
        Well = 2,
        ParameterAndWell = Parameter | Well
    };

    static constexpr std::size_t categoryCount = 2;
    static constexpr std::array<const char*, categoryCount> cacheElements{"basicData", "gradients"};
    static constexpr const char* collectionsName = "GRFTArrayNamesCollections";
    using Exception = GRFTReaderException;

    static CategoryType categoryPriv(const std::string& name);
    static SubjectType subjectPriv(const std::string& name);

    static bool hasParameter(SubjectType subject) { return (subject & Parameter) != 0; }

    static bool hasWell(SubjectType subject) { return (subject & Well) != 0; }
};

using GRFTArrayNamesCollections = ArrayNamesCollections<GRFTArrayNameCategorizer>;

} // namespace Kvt::Mrl::MrlIO
