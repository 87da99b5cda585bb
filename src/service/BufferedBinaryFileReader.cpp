#include "service/BufferedBinaryFileReader.h"

#include "service/ByteOrder.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <limits>

namespace Kvt::Mrl::Core::Service {
namespace {
constexpr std::int64_t windowCapacity = 256 * 1024;
constexpr std::int64_t nearJump = 10 * 1024; // from here on two small reads cost less than streaming

// What a read of the system takes at least. A far jump begins at 0, each near one goes up a level. Sizes of a few KiB
// do badly: they cost more than the small ones and hardly ever hold what comes next.
constexpr std::array<std::int64_t, 5> levelSizes{64, 64, 16 * 1024, 16 * 1024, windowCapacity};
constexpr std::size_t firstGrownLevel = 2;

// A grown window begins a little before the place asked for, since readers step back over a header they have just read.
constexpr std::int64_t backlog = 64;

constexpr std::int64_t largestOffset = std::numeric_limits<std::int64_t>::max() - windowCapacity;
} // namespace

BufferedBinaryFileReader::BufferedBinaryFileReader(const char* path) : file_(path)
{
    if (file_.isOpen()) {
        stamp_ = file_.stamp();
        level_ = firstGrownLevel - 1; // who begins at the start of the file will most likely go on from there
        good_ = true;
    }
}

BufferedBinaryFileReader::~BufferedBinaryFileReader() = default;

std::int64_t BufferedBinaryFileReader::available() const
{
    const auto offset = static_cast<std::uint64_t>(position_ - windowStart_);
    return offset < windowLength_ ? static_cast<std::int64_t>(windowLength_ - offset) : 0;
}

const char* BufferedBinaryFileReader::viewBeyondWindow(int count)
{
    if (!good_ || count < 1 || count > largestView) {
        good_ = false;
        return nullptr;
    }
    if (!fill(count, count))
        return nullptr;
    const char* bytes = window_.get() + (position_ - windowStart_);
    position_ += count;
    return bytes;
}

void BufferedBinaryFileReader::read(char* bytes, int count)
{
    const std::int64_t start = position_;
    const std::int64_t held = std::min<std::int64_t>(available(), count);
    if (good_ && count - held >= windowCapacity) {
        if (held > 0)
            std::memcpy(bytes, window_.get() + (position_ - windowStart_), static_cast<std::size_t>(held));
        position_ += held;
        if (!readPast(bytes + held, count - held))
            position_ = start;
        return;
    }
    readElements(bytes, count, 1, [](char* to, const char* from, std::size_t size) { std::memcpy(to, from, size); });
}

bool BufferedBinaryFileReader::readNumbers32(void* to, std::int64_t count)
{
    return readElements(static_cast<char*>(to), count, 4, ByteOrder::copy32);
}

bool BufferedBinaryFileReader::readNumbers64(void* to, std::int64_t count)
{
    return readElements(static_cast<char*>(to), count, 8, ByteOrder::copy64);
}

template <typename Copy>
bool BufferedBinaryFileReader::readElements(char* to, std::int64_t count, std::int64_t width, Copy copy)
{
    if (!good_ || count < 0)
        return good_ = false;
    const std::int64_t start = position_;
    while (count > 0) {
        const std::int64_t ready = std::min(available() / width, count);
        if (ready == 0) {
            if (fill(width, count > windowCapacity / width ? windowCapacity : count * width))
                continue;
            position_ = start;
            return false;
        }
        copy(to, window_.get() + (position_ - windowStart_), static_cast<std::size_t>(ready));
        to += ready * width;
        position_ += ready * width;
        count -= ready;
    }
    return true;
}

// Large raw reads go straight to the caller's memory.
bool BufferedBinaryFileReader::readPast(char* to, std::int64_t count)
{
    forget();
    if (position_ > largestOffset - count)
        return fail(true);
    const std::int64_t got = file_.readAt(to, static_cast<std::size_t>(count), position_);
    if (got < count)
        return fail(got >= 0);
    position_ += count;
    windowStart_ = position_;
    return true;
}

std::int64_t BufferedBinaryFileReader::readSize(std::int64_t wanted)
{
    const std::int64_t windowEnd = windowStart_ + static_cast<std::int64_t>(windowLength_);
    const bool goesOn = position_ >= windowStart_ && position_ - windowEnd < nearJump;
    level_ = goesOn ? std::min(level_ + 1, levelSizes.size() - 1) : 0;

    const auto intoExpected = static_cast<std::uint64_t>(position_ - expectedStart_);
    if (intoExpected < static_cast<std::uint64_t>(expectedLength_))
        wanted = std::max(wanted, expectedLength_ - static_cast<std::int64_t>(intoExpected));
    return std::clamp(wanted, levelSizes[level_], windowCapacity);
}

// Reads a window that holds at least the next needed bytes, and about as many as will be wanted.
bool BufferedBinaryFileReader::fill(std::int64_t needed, std::int64_t wanted)
{
    if (position_ > largestOffset)
        return fail(true);
    if (window_ == nullptr && !allocateWindow())
        return fail(false);

    const std::int64_t size = readSize(wanted);
    const std::int64_t start = level_ < firstGrownLevel ? position_ : std::max<std::int64_t>(0, position_ - backlog);
    const std::int64_t before = position_ - start;
    const auto readLength = static_cast<std::size_t>(std::min(size + before, windowCapacity));
    const std::int64_t got = file_.readAt(window_.get(), readLength, start);
    windowStart_ = start;
    windowLength_ = static_cast<std::uint64_t>(std::max<std::int64_t>(got, 0));
    return got - before >= needed || fail(got >= 0);
}

std::int64_t BufferedBinaryFileReader::length()
{
    emptyStaleWindow();
    return stamp_.size;
}

bool BufferedBinaryFileReader::allocateWindow()
{
    constexpr auto size = static_cast<std::size_t>(windowCapacity);
    window_.reset(static_cast<char*>(::operator new[](size, std::align_val_t{windowAlignment}, std::nothrow)));
    return window_ != nullptr;
}

void BufferedBinaryFileReader::forget()
{
    windowStart_ += static_cast<std::int64_t>(windowLength_);
    windowLength_ = 0;
}

void BufferedBinaryFileReader::emptyStaleWindow()
{
    const PositionalFile::Stamp now = file_.stamp();
    if (now == stamp_)
        return;
    stamp_ = now;
    forget();
}

bool BufferedBinaryFileReader::fail(bool atEnd)
{
    eof_ = atEnd;
    good_ = false;
    return false;
}
} // namespace Kvt::Mrl::Core::Service
