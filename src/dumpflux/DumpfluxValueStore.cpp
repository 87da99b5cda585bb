#include "dumpflux/DumpfluxValueStore.h"

#include "core/VectorGrowth.h"

#include <algorithm>
#include <cstdint>
#include <utility>

namespace Kvt::Mrl::MrlIO {

namespace {

// In elements.
constexpr std::size_t smallestPiece = 8 * 1024;
constexpr std::size_t largestPiece = 4 * 1024 * 1024;

} // namespace

std::optional<std::span<const double>> DumpfluxValueStore::read(MorvaneReader& reader, const KeywordHeader& header)
{
    if (header.size() <= 0 || header.size() > std::int64_t{largestPiece})
        return readApart(reader, header);
    const auto count = static_cast<std::size_t>(header.size());
    double* const values = room(count);
    if (!reader.readDataArray(header, values, 0, header.size() - 1))
        return std::nullopt;
    free_ = free_.subspan(count);
    return std::span<const double>(values, count);
}

/// For an array that gains nothing by standing with others, or only claims to be that long: a vector grows with what is
/// really there. Its memory stays where it is when the vector of vectors grows.
std::optional<std::span<const double>> DumpfluxValueStore::readApart(MorvaneReader& reader, const KeywordHeader& header)
{
    std::vector<double> values;
    if (!reader.readDataVector(header, values))
        return std::nullopt;
    return apart_.emplace_back(std::move(values));
}

/// Memory for the next array. It stays free unless the array is read.
double* DumpfluxValueStore::room(std::size_t count)
{
    if (free_.size() < count) {
        pieceSize_ = std::max(count, std::clamp(2 * pieceSize_, smallestPiece, largestPiece));
        pieces_.emplace_back(new (pageSize) double[pieceSize_]);
        free_ = {pieces_.back().get(), pieceSize_};
        adviseLargePages(free_.data(), free_.size_bytes());
    }
    return free_.data();
}

} // namespace Kvt::Mrl::MrlIO
