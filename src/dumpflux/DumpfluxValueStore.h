#pragma once

#include <mrlio/KeywordHeader.h>
#include <mrlio/MorvaneReader.h>

#include <cstddef>
#include <memory>
#include <new>
#include <optional>
#include <span>
#include <vector>

namespace Kvt::Mrl::MrlIO {

/// Keeps arrays of numbers until its end, side by side in large pieces of memory: to touch new memory array by array
/// costs several times as much as to read the arrays. What an array claims to hold takes no more than such a piece.
class DumpfluxValueStore
{
public:
    /// Reads an array to stay. Nothing if the reader couldn't read it.
    /// throws   what MorvaneReader::readDataVector does
    std::optional<std::span<const double>> read(MorvaneReader& reader, const KeywordHeader& header);

private:
    static constexpr std::align_val_t pageSize{std::size_t{2} << 20};

    struct Release
    {
        void operator()(double* memory) const { ::operator delete[](memory, pageSize); }
    };

    std::optional<std::span<const double>> readApart(MorvaneReader& reader, const KeywordHeader& header);
    double* room(std::size_t count);

    std::vector<std::unique_ptr<double[], Release>> pieces_;
    std::size_t pieceSize_ = 0; // of the last piece, in elements
    std::span<double> free_;    // the rest of it
    std::vector<std::vector<double>> apart_;
};

} // namespace Kvt::Mrl::MrlIO
