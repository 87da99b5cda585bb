#pragma once

#include <cstddef>
#include <list>
#include <memory>
#include <utility>

namespace Kvt::Mrl::MrlIO {

class PropertyData;

/// The loaded properties of all steps of a reader, of which it keeps the newest and releases the data of the others.
class PropertyCache
{
public:
    using Pair = std::pair<std::shared_ptr<PropertyData>, std::shared_ptr<PropertyData>>;

    /// limit   how many properties stay loaded; all of them for 0 and below
    explicit PropertyCache(int limit) : limit_(limit) {}

    /// Takes in a property that has just been loaded, matrix and fracture (or null), and releases the oldest one if
    /// there are too many.
    void add(std::shared_ptr<PropertyData> matrix, std::shared_ptr<PropertyData> fracture);

    /// How many properties it watches over: none without a limit.
    std::size_t size() const { return pairs_.size(); }

private:
    int limit_;
    std::list<Pair> pairs_; // newest at the back
};

} // namespace Kvt::Mrl::MrlIO
