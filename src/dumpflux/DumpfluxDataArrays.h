#pragma once

#include <map>
#include <span>
#include <utility>

namespace Kvt::Mrl::MrlIO {

/// Where the arrays of one time range lie. Names are the numbers that a NameIndexer gives; what isn't there is empty.
class DumpfluxDataArrays
{
public:
    using Values = std::span<const double>;

    void store(int array, Values values) { arrays_[array] = values; }

    void store(int array, int well, Values values) { wellArrays_[{array, well}] = values; }

    Values find(int array) const { return find(arrays_, array); }

    Values find(int array, int well) const { return find(wellArrays_, std::pair(array, well)); }

private:
    template <class Key>
    static Values find(const std::map<Key, Values>& values, const Key& key)
    {
        const auto place = values.find(key);
        return place != values.end() ? place->second : Values();
    }

    std::map<int, Values> arrays_;
    std::map<std::pair<int, int>, Values> wellArrays_;
};

} // namespace Kvt::Mrl::MrlIO
