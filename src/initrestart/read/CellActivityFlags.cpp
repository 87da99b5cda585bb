#include "initrestart/read/CellActivityFlags.h"

#include <mrlio/CellActivitiesInfo.h>

#include <algorithm>
#include <bit>
#include <utility>

namespace Kvt::Mrl::MrlIO {

namespace {

constexpr std::int64_t wordBits = 64;

} // namespace

CellActivityFlags::CellActivityFlags(std::vector<bool> flags) : size_(std::ssize(flags)), flags_(std::move(flags))
{
    pack();
    for (const std::uint64_t word : words_)
        count_ += std::popcount(word);
}

CellActivityFlags::CellActivityFlags(std::int64_t size, bool value)
    : size_(std::max<std::int64_t>(0, size)),
      count_(value ? size_ : 0)
{}

const std::vector<bool>& CellActivityFlags::flags() const
{
    makeUniform();
    return flags_;
}

const std::vector<std::uint64_t>& CellActivityFlags::words() const
{
    makeUniform();
    return words_;
}

std::shared_ptr<const CellActivityFlags> CellActivityFlags::of(const ICellActivitiesInfo& info, bool fracture)
{
    if (const auto* own = dynamic_cast<const CellActivitiesInfo*>(&info))
        return fracture ? own->fracture_ : own->matrix_;
    return std::make_shared<const CellActivityFlags>(info.activeCells(fracture));
}

void CellActivityFlags::makeUniform() const
{
    std::call_once(uniform_, [this] {
        if (size_ == 0 || !words_.empty())
            return;
        flags_.assign(static_cast<std::size_t>(size_), count_ != 0);
        pack();
    });
}

void CellActivityFlags::pack() const
{
    words_.reserve(static_cast<std::size_t>((size_ + wordBits - 1) / wordBits));
    auto flag = flags_.begin();
    for (std::int64_t left = size_; left > 0; left -= wordBits) {
        std::uint64_t word = 0;
        const std::int64_t bits = std::min(left, wordBits);
        for (std::int64_t bit = 0; bit < bits; ++bit, ++flag)
            word |= std::uint64_t{*flag} << bit;
        words_.push_back(word);
    }
}

} // namespace Kvt::Mrl::MrlIO
