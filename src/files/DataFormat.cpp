#include <mrlio/FileIdentifiers.h>

#include <array>
#include <cstddef>
#include <type_traits>

namespace Kvt::Mrl::MrlIO {
namespace {

using Format = FileIdentifiers::DataFormat;

static_assert(sizeof(Format) == 4 && std::is_trivially_copyable_v<Format>);

/// What one value of the flags allows, in the order of trial; 0 fills a row up.
struct Expansion
{
    unsigned flags;
    std::array<unsigned, 4> definite;
};

constexpr unsigned formatted = Format::FORMATTED;
constexpr unsigned unformatted = Format::UNFORMATTED;
constexpr unsigned unified = Format::UNIFIED;
constexpr unsigned split = Format::NOTUNIFIED;

/// The order is the tie-break of the whole library: unformatted comes before formatted, split before unified.
constexpr Expansion expansions[] = {
    {unformatted | formatted | split | unified,
     {unformatted | split, formatted | split, unformatted | unified, formatted | unified}},
    {unformatted | formatted | unified, {unformatted | unified, formatted | unified}},
    {unformatted | formatted | split, {unformatted | split, formatted | split}},
    {formatted | split | unified, {formatted | split, formatted | unified}},
    {unformatted | split | unified, {unformatted | split, unformatted | unified}},
    {split | unified, {split, unified}},
    {unformatted | formatted, {unformatted, formatted}},
};

} // namespace

void FileIdentifiers::DataFormat::expandDefaults(std::vector<DataFormat>& out) const
{
    for (const Expansion& expansion : expansions) {
        if (expansion.flags != flags_)
            continue;
        for (std::size_t i = 0; i < expansion.definite.size() && expansion.definite[i] != 0; ++i)
            out.push_back(DataFormat(expansion.definite[i]));
        return;
    }
    out.push_back(*this);
}

} // namespace Kvt::Mrl::MrlIO
