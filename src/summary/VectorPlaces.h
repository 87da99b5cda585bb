#pragma once

#include <mrlio/SummaryVectorIDParams.h>

#include <vector>

namespace Kvt::Mrl::MrlIO {

/// Finds the place of a vector among hundreds of thousands: a hash table of places only, beside the list it belongs to.
class VectorPlaces
{
public:
    /// Of several equal identities the first gets the place.
    explicit VectorPlaces(const std::vector<SummaryVectorIDParams>& ids);

    /// The place, or -1. ids is the list that the table was made for.
    int find(const std::vector<SummaryVectorIDParams>& ids, const SummaryVectorIDParams& id) const;

private:
    /// Where the identity is, or the free cell where it would be.
    std::size_t cellOf(const std::vector<SummaryVectorIDParams>& ids, const SummaryVectorIDParams& id) const;

    std::vector<int> cells_; // at most half full, so that every search ends
};

} // namespace Kvt::Mrl::MrlIO
