#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <new>
#include <stdexcept>
#include <vector>

/// \file
/// Vectors that grow while they are filled from a file.

namespace Kvt::Mrl::MrlIO {

/// Tells the system that a large, untouched piece of memory is best made of large pages, since touching new memory
/// costs more than reading a file into it. Pieces below 4 MiB are left alone.
void adviseLargePages(void* memory, std::size_t bytes);

/// Fills a vector from its start, in place of what it held. Elements that stand in it already are written over, so that
/// a vector that is used again for an array of the same length costs no filling with zeros.
template <class T>
class VectorFiller
{
public:
    /// wanted   the elements to come, if all is well
    /// held     how many of them the file can hold at most: memory is taken for no more
    VectorFiller(std::vector<T>& out, std::int64_t wanted, std::int64_t held) : out_(out)
    {
        // One step more than held: the step that fails at the end of the file must not make the vector move.
        const auto count = static_cast<std::size_t>(std::max<std::int64_t>(0, std::min(wanted, held + step)));
        if (out_.capacity() < count)
            allocate(count);
        else
            out_.resize(std::min(out_.size(), count));
    }

    /// The place of the next count elements, which are to be filled before the next call.
    T* next(std::int64_t count)
    {
        const std::size_t start = filled_;
        filled_ += static_cast<std::size_t>(count);
        if (out_.size() < filled_)
            out_.resize(filled_);
        return out_.data() + start;
    }

    /// The elements that next() should be asked for at most: those that a new vector fills with zeros are still in the
    /// processor's cache when they are written.
    static constexpr std::int64_t step = std::int64_t{32 * 1024} / static_cast<std::int64_t>(sizeof(T));

private:
    void allocate(std::size_t count)
    {
        std::vector<T>().swap(out_);
        try {
            out_.reserve(count);
            adviseLargePages(out_.data(), count * sizeof(T));
        } catch (const std::bad_alloc&) {
            // A file of holes may claim any length. Then the vector grows with what is read.
        } catch (const std::length_error&) {}
    }

    std::vector<T>& out_;
    std::size_t filled_ = 0;
};

/// The same for a buffer that is large enough.
template <class T>
class BufferFiller
{
public:
    explicit BufferFiller(T* buffer) : place_(buffer) {}

    T* next(std::int64_t count)
    {
        T* const start = place_;
        place_ += count;
        return start;
    }

    static constexpr std::int64_t step = INT64_MAX;

private:
    T* place_;
};

} // namespace Kvt::Mrl::MrlIO
