#include "service/TextFileReader.h"

#include <algorithm>

namespace Kvt::Mrl::Core::Service {

namespace {

/// The first read behind a seek is short, since many a seek is for one header line; a run of reads grows to the window
/// that streams fastest.
constexpr std::size_t smallestFill = std::size_t{8} << 10;
constexpr std::size_t largestFill = std::size_t{256} << 10;

/// Which of the next 16 characters are white space, one bit each, the first in the lowest.
std::uint32_t whiteSpaceAt(const char* p) noexcept
{
#if defined(__SSE2__)
    const __m128i next = _mm_loadu_si128(reinterpret_cast<const __m128i*>(p));
    const __m128i blanks = _mm_cmpeq_epi8(next, _mm_set1_epi8(' '));
    const __m128i behindTab = _mm_sub_epi8(next, _mm_set1_epi8('\t'));
    const __m128i controls = _mm_cmpeq_epi8(_mm_min_epu8(behindTab, _mm_set1_epi8('\r' - '\t')), behindTab);
    return static_cast<std::uint32_t>(_mm_movemask_epi8(_mm_or_si128(blanks, controls)));
#else
    std::uint32_t mask = 0;
    for (unsigned i = 0; i < 16; ++i)
        mask |= static_cast<std::uint32_t>(isWhiteSpace(p[i])) << i;
    return mask;
#endif
}

} // namespace

TextFileReader::TextFileReader(const std::string& path) : file_(path.c_str()), fillSize_(smallestFill)
{
    makeRoom(0, smallestFill);
    if (!file_.isOpen())
        state_ = failBit;
}

void TextFileReader::seekg(std::int64_t position)
{
    state_ &= ~endBit;
    if (state_ != 0)
        return;
    if (position < 0) {
        state_ = failBit;
        return;
    }
    if (capacity_ > 4 * largestFill) {
        buffer_.reset();
        capacity_ = 0;
        makeRoom(0, smallestFill);
    }
    cursor_ = end_ = buffer_.get();
    buffer_[0] = '\0';
    windowEndOffset_ = position;
    fillSize_ = smallestFill;
}

std::int64_t TextFileReader::bytesLeft() const
{
    return std::max<std::int64_t>(file_.size() - tellg(), 0);
}

/// Keeps the unread part of the window and reads more text behind it. False, with the unread part in place, if the file
/// has no more at the moment.
bool TextFileReader::more()
{
    const auto kept = static_cast<std::size_t>(end_ - cursor_);
    const std::size_t wanted = std::max(fillSize_, kept);
    makeRoom(kept, wanted);
    const std::int64_t got = file_.readAt(buffer_.get() + kept, wanted, windowEndOffset_);
    const std::size_t added = got > 0 ? static_cast<std::size_t>(got) : 0;
    cursor_ = buffer_.get();
    end_ = cursor_ + kept + added;
    std::memset(buffer_.get() + kept + added, 0, padding);
    windowEndOffset_ += static_cast<std::int64_t>(added);
    fillSize_ = std::min(4 * fillSize_, largestFill);
    return added != 0;
}

/// Moves the unread part of the window to the front of a buffer that holds `wanted` more bytes behind it.
void TextFileReader::makeRoom(std::size_t kept, std::size_t wanted)
{
    if (kept + wanted > capacity_) {
        const std::size_t capacity = kept + wanted;
        std::unique_ptr<char[]> larger(new char[capacity + padding]);
        if (kept != 0)
            std::memcpy(larger.get(), cursor_, kept);
        buffer_ = std::move(larger);
        capacity_ = capacity;
    } else if (kept != 0) {
        std::memmove(buffer_.get(), cursor_, kept);
    }
    cursor_ = buffer_.get();
    end_ = cursor_ + kept;
    std::memset(buffer_.get() + kept, 0, padding);
}

/// Moves to a place that the reader has come from, keeping the window if it still holds it.
void TextFileReader::moveWithinFile(std::int64_t position)
{
    const std::int64_t back = tellg() - position;
    if (back <= cursor_ - buffer_.get())
        cursor_ -= back;
    else
        seekg(position);
}

bool TextFileReader::skipBlanksAndTabs()
{
    do {
        while (*cursor_ == ' ' || *cursor_ == '\t')
            ++cursor_;
    } while (cursor_ == end_ && more());
    return cursor_ != end_;
}

bool TextFileReader::peek(char& c)
{
    if (cursor_ == end_ && !more()) {
        state_ |= endBit;
        return false;
    }
    c = *cursor_;
    return true;
}

bool TextFileReader::getline(std::string& line, char delimiter)
{
    if (state_ != 0) {
        state_ |= failBit;
        return false;
    }
    line.clear();
    do {
        const auto length = static_cast<std::size_t>(end_ - cursor_);
        if (const void* found = std::memchr(cursor_, delimiter, length)) {
            const char* const stop = static_cast<const char*>(found);
            line.append(cursor_, stop);
            cursor_ = stop + 1;
            return true;
        }
        line.append(cursor_, end_);
        cursor_ = end_;
    } while (more());
    state_ |= line.empty() ? endBit | failBit : endBit;
    return !line.empty();
}

void TextFileReader::ignoreThrough(char delimiter)
{
    if (state_ != 0) {
        state_ |= failBit;
        return;
    }
    do {
        const auto length = static_cast<std::size_t>(end_ - cursor_);
        if (const void* found = std::memchr(cursor_, delimiter, length)) {
            cursor_ = static_cast<const char*>(found) + 1;
            return;
        }
        cursor_ = end_;
    } while (more());
    state_ |= endBit;
}

bool TextFileReader::readToken(std::string& token)
{
    token.clear();
    if (!startToken())
        return false;
    do {
        const char* const begin = cursor_;
        cursor_ = std::find_if(begin, end_, isWhiteSpace);
        token.append(begin, cursor_);
    } while (cursor_ == end_ && more());
    if (cursor_ == end_)
        state_ |= endBit;
    return true;
}

void TextFileReader::skipTokens(std::int64_t count)
{
    if (state_ != 0 && count > 0)
        state_ |= failBit;
    std::uint32_t inToken = 0;
    while (state_ == 0 && count > 0) {
        if (cursor_ == end_ && !more()) {
            // What stands last may be a token without white space behind it.
            state_ |= count == 1 && inToken != 0 ? endBit : endBit | failBit;
            return;
        }
        const auto length = static_cast<int>(std::min<std::ptrdiff_t>(end_ - cursor_, 16));
        const std::uint32_t present = (1u << length) - 1;
        const std::uint32_t spaces = whiteSpaceAt(cursor_) & present;
        const std::uint32_t tokens = ~spaces & present;
        std::uint32_t ends = spaces & (tokens << 1 | inToken);
        const int passed = std::popcount(ends);
        if (passed >= count) {
            for (; count > 1; --count)
                ends &= ends - 1;
            cursor_ += std::countr_zero(ends);
            return;
        }
        count -= passed;
        inToken = tokens >> (length - 1);
        cursor_ += length;
    }
}

} // namespace Kvt::Mrl::Core::Service
