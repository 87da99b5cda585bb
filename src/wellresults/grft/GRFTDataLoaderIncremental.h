#pragma once

#include "wellresults/DatedDataLoader.h"
#include "wellresults/Indexers.h"
#include "wellresults/grft/GRFTContentIndex.h"

#include <mrlio/GRFTParameter.h>

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

namespace Kvt::Mrl::MrlIO {

/// Reads a date, for all wells and parameters at once, when it is first asked for, and keeps it.
class GRFTDataLoaderIncremental final : public DatedDataLoader<GRFTFamily, GRFTContentIndex>
{
public:
    using DatedDataLoader::DatedDataLoader;

    /// Replaces `values` by an array; false, with `values` empty, if there is none. Parameter and well count only for
    /// arrays that belong to one.
    /// throws   MrlIOException if the types don't convert or the date can't be read
    template <class T>
    bool getArray(const std::string& array, const GRFTParameter& parameter, const std::string& well,
                  std::size_t dateIndex, std::vector<T>& values)
    {
        return copyArray(dateIndex, keyOf(array, parameter, well), values);
    }

    /// The array without a copy; null if there is none.
    /// throws   GRFTReaderException if it is of another type, MrlIOException if the date can't be read
    template <class T>
    std::shared_ptr<std::vector<T>> getArrayOfType(const std::string& array, const GRFTParameter& parameter,
                                                   const std::string& well, std::size_t dateIndex)
    {
        return sharedArray<T>(dateIndex, keyOf(array, parameter, well));
    }

private:
    void readReport(Walk& walk, StoredArrays& arrays) override;

    /// Arrays are stored under the subjects that they have, and asked for likewise.
    ArrayKey keyOf(const std::string& array, int parameterId, int wellId);
    ArrayKey keyOf(const std::string& array, const GRFTParameter& parameter, const std::string& well);

    NameIndexer arrays_;
    NameIndexer wells_;
    Indexer<GRFTParameter> parameters_;
};

} // namespace Kvt::Mrl::MrlIO
