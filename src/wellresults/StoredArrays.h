#pragma once

#include "wellresults/StoredArray.h"

#include <cstddef>
#include <cstdint>
#include <unordered_map>
#include <utility>

namespace Kvt::Mrl::MrlIO {

/// Under which an array is stored: the numbers that indexers have given to its name and to what it belongs to.
struct ArrayKey
{
    int array;
    int parameter = -1; // -1 for none
    int well = -1;      // -1 for none

    bool operator==(const ArrayKey&) const = default;
};

/// The arrays of one report that have been read.
class StoredArrays
{
public:
    /// Replaces what stands there.
    void store(const ArrayKey& key, StoredArray array) { arrays_.insert_or_assign(key, std::move(array)); }

    /// Nothing for an array that isn't there.
    const StoredArray& find(const ArrayKey& key) const
    {
        static const StoredArray nothing;
        const auto found = arrays_.find(key);
        return found == arrays_.end() ? nothing : found->second;
    }

private:
    struct Hash
    {
        std::size_t operator()(const ArrayKey& key) const
        {
            constexpr std::uint64_t spread = 0x9E3779B97F4A7C15;
            std::uint64_t hash = static_cast<std::uint32_t>(key.array);
            hash = (hash ^ static_cast<std::uint32_t>(key.parameter)) * spread;
            hash = ((hash ^ hash >> 29) + static_cast<std::uint32_t>(key.well)) * spread;
            return static_cast<std::size_t>(hash ^ hash >> 32);
        }
    };

    std::unordered_map<ArrayKey, StoredArray, Hash> arrays_;
};

} // namespace Kvt::Mrl::MrlIO
