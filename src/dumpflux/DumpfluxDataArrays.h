#pragma once

#include <map>
#include <span>
#include <utility>
#include <vector>

namespace Kvt::Mrl::MrlIO {

/// The arrays of one time range. Names are the numbers that a NameIndexer gives; what isn't there is empty.
class DumpfluxDataArrays
{
public:
    using Values = std::vector<double>;

    void store(int array, Values values) { arrays_[array] = std::move(values); }

    void store(int array, int well, Values values) { wellArrays_[{array, well}] = std::move(values); }

    std::span<const double> find(int array) const { return find(arrays_, array); }

    std::span<const double> find(int array, int well) const { return find(wellArrays_, std::pair(array, well)); }

private:
    template <class Key>
    static std::span<const double> find(const std::map<Key, Values>& values, const Key& key)
    {
        const auto place = values.find(key);
        return place != values.end() ? std::span<const double>(place->second) : std::span<const double>();
    }

    std::map<int, Values> arrays_;
    std::map<std::pair<int, int>, Values> wellArrays_;
};

} // namespace Kvt::Mrl::MrlIO
