#pragma once

#include "wellresults/Indexers.h"
#include "wellresults/StoredArrays.h"
#include "wellresults/hmd/HMDArrayNameCategorizer.h"

#include <mrlio/GRFTParameter.h>

#include <string>

namespace Kvt::Mrl::MrlIO {

/// Numbers what the arrays of a file are stored under. Wells and groups share the numbers, so that a group with the name
/// of a well replaces its arrays; that is kept so.
struct HMDIndexers
{
    NameIndexer arrays;
    Indexer<HMDParameter> parameters;
    NameIndexer owners; // wells and groups

    /// Where an array is stored: it is the same for all parameters or owners on which the array doesn't depend.
    ArrayKey key(const std::string& array, int parameter, int owner)
    {
        return {.array = arrays.index(array),
                .parameter = HMDArrayNameCategorizer::modifyParameterIdPriv(array, parameter),
                .well = HMDArrayNameCategorizer::modifyWellGroupIdPriv(array, owner)};
    }
};

} // namespace Kvt::Mrl::MrlIO
