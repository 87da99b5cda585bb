#pragma once

#include "service/PositionalFile.h"

#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <memory>
#include <string>

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

namespace Kvt::Mrl::Core::Service {

/// White space of the classic locale.
constexpr bool isWhiteSpace(char c) noexcept
{
    return c == ' ' || (c >= '\t' && c <= '\r');
}

/// How many of the next 16 characters are blanks, up to the first other one.
inline int blanksAt(const char* p) noexcept
{
#if defined(__SSE2__)
    const __m128i next = _mm_loadu_si128(reinterpret_cast<const __m128i*>(p));
    const int blanks = _mm_movemask_epi8(_mm_cmpeq_epi8(next, _mm_set1_epi8(' ')));
    return std::countr_one(static_cast<unsigned>(blanks));
#else
    int count = 0;
    while (count < 16 && p[count] == ' ')
        ++count;
    return count;
#endif
}

/// A text file read through a window, with the state bits of a std::ifstream in binary mode: every operation but clear
/// and seekg needs a good state, running into the end of the file sets the end bit, and getting nothing sets the fail
/// bit. White space is that of the classic locale.
///
/// A seek drops the window, so what another process has written meanwhile is seen, and an end of file is not
/// remembered. Positions are byte offsets. The window grows only for a token that is longer than it.
class TextFileReader
{
public:
    /// Readable bytes behind the text that extract hands to a scanner, the first of which is a NUL.
    static constexpr std::size_t padding = 16;

    /// Opens the file; not good if that fails.
    explicit TextFileReader(const std::string& path);

    bool good() const noexcept { return state_ == 0; }

    bool eof() const noexcept { return (state_ & endBit) != 0; }

    bool fail() const noexcept { return (state_ & failBit) != 0; }

    void clear() noexcept { state_ = 0; }

    /// Moves to a byte offset, beyond the end of the file too. A negative one fails.
    void seekg(std::int64_t position);

    /// Byte offset of the next character.
    std::int64_t tellg() const noexcept { return windowEndOffset_ - (end_ - cursor_); }

    /// Bytes between here and the present end of the file; 0 beyond it.
    std::int64_t bytesLeft() const;

    /// Reads up to the delimiter, which is passed and left out. False if there was no character at all.
    bool getline(std::string& line, char delimiter = '\n');

    /// Passes everything up to and including the next delimiter.
    void ignoreThrough(char delimiter);

    /// Passes lines up to one whose first character other than blank and tab is wanted, and reads that line and where
    /// it starts. The end bit says that the line ended with the file. Lines passed are not collected.
    /// False at the end of the file.
    template <class Wanted>
    bool findLine(Wanted wanted, std::string& line, std::int64_t& start);

    /// Passes white space. False, with the end bit, at the end of the file, and in a bad state.
    bool skipWhiteSpace();

    /// The next character, which stays; the state must be good. False, with the end bit, at the end of the file.
    bool peek(char& c);

    /// Passes the character that peek or skipWhiteSpace has found.
    void advance() noexcept { ++cursor_; }

    /// Passes white space and reads up to the next white space. False if there was nothing.
    bool readToken(std::string& token);

    /// Passes as many tokens with the white space before them. A state that is good afterwards says that there were so
    /// many and that something stands behind the last one.
    void skipTokens(std::int64_t count);

    /// Passes white space and lets `scan(const char*& p, const char* end, Value&)` take a value from p on, p being
    /// moved behind what it takes. A scan that comes to the end of the window runs again over more text, so that it
    /// always decides on the whole. False if the scan says so or there was nothing.
    template <class Value, class Scan>
    bool extract(Scan scan, Value& value);

private:
    static constexpr unsigned endBit = 1;
    static constexpr unsigned failBit = 2;

    bool more();
    void makeRoom(std::size_t kept, std::size_t wanted);
    bool skipBlanksAndTabs();
    void moveWithinFile(std::int64_t position);
    bool startToken();

    PositionalFile file_;
    std::unique_ptr<char[]> buffer_;
    std::size_t capacity_ = 0;
    std::size_t fillSize_;
    const char* cursor_ = nullptr;
    const char* end_ = nullptr;
    std::int64_t windowEndOffset_ = 0;
    unsigned state_ = 0;
};

inline bool TextFileReader::skipWhiteSpace()
{
    if (state_ != 0) {
        state_ |= failBit;
        return false;
    }
    for (;;) {
        cursor_ += blanksAt(cursor_);
        if (isWhiteSpace(*cursor_))
            ++cursor_;
        else if (cursor_ != end_)
            return true;
        else if (!more()) {
            state_ |= endBit;
            return false;
        }
    }
}

inline bool TextFileReader::startToken()
{
    if (skipWhiteSpace())
        return true;
    state_ |= failBit;
    return false;
}

template <class Value, class Scan>
bool TextFileReader::extract(Scan scan, Value& value)
{
    if (!startToken())
        return false;
    for (;;) {
        const char* p = cursor_;
        const bool valid = scan(p, end_, value);
        const bool atEnd = p == end_;
        if (atEnd && more())
            continue;
        cursor_ = atEnd ? end_ : p;
        state_ |= (atEnd ? endBit : 0u) | (valid ? 0u : failBit);
        return valid;
    }
}

template <class Wanted>
bool TextFileReader::findLine(Wanted wanted, std::string& line, std::int64_t& start)
{
    while (state_ == 0) {
        const std::int64_t lineStart = tellg();
        if (!skipBlanksAndTabs()) {
            state_ |= endBit | failBit;
        } else if (wanted(*cursor_)) {
            moveWithinFile(lineStart);
            start = lineStart;
            return getline(line);
        } else {
            ignoreThrough('\n');
        }
    }
    return false;
}

} // namespace Kvt::Mrl::Core::Service
