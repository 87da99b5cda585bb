#pragma once

/// \file
/// A few kilobytes of text on their way to a stream.

#include <array>
#include <cstddef>
#include <cstring>
#include <iterator>
#include <ostream>
#include <string_view>

namespace Kvt::Mrl::MrlIO {

/// Collects text on the caller's stack and hands it to the stream in large pieces. Nothing is handed over by the
/// destructor: end with flush. Once the stream has failed, text is dropped.
class TextBuffer
{
public:
    explicit TextBuffer(std::ostream& stream) : stream_(stream) {}

    TextBuffer(const TextBuffer&) = delete;
    TextBuffer& operator=(const TextBuffer&) = delete;

    /// Room for at least length characters (not above capacity), to be followed by taken; null once the stream failed.
    char* room(std::size_t length)
    {
        if (length > capacity - size_ && !flush())
            return nullptr;
        return buffer_.data() + size_;
    }

    void taken(const char* end) { size_ = static_cast<std::size_t>(end - buffer_.data()); }

    void append(std::string_view text)
    {
        if (text.size() > capacity - size_) {
            flush();
            if (text.size() > capacity) {
                stream_.write(text.data(), static_cast<std::streamsize>(text.size()));
                return;
            }
        }
        std::memcpy(buffer_.data() + size_, text.data(), text.size());
        size_ += text.size();
    }

    void append(char character) { append(std::string_view(&character, 1)); }

    /// count blanks; none for a count of 0 or below
    void appendBlanks(std::ptrdiff_t count)
    {
        constexpr std::string_view blanks = "                ";
        for (; count > 0; count -= std::ssize(blanks))
            append(blanks.substr(0, static_cast<std::size_t>(count)));
    }

    /// True when the stream has taken everything so far.
    bool flush()
    {
        if (size_ > 0)
            stream_.write(buffer_.data(), static_cast<std::streamsize>(size_));
        size_ = 0;
        return stream_.good();
    }

private:
    static constexpr std::size_t capacity = 8192;

    std::ostream& stream_;
    std::size_t size_ = 0;
    std::array<char, capacity> buffer_;
};

} // namespace Kvt::Mrl::MrlIO
