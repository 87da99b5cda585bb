#pragma once

#include "support/TempDir.h"

#include <bit>
#include <cstdint>
#include <cstdio>
#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

namespace MrlIOTest {

/// Makes the bytes of a keyword file by hand, in either form, without the library's writers. Verbs can be chained:
///
///     KeywordFileBuilder().keyword("TIME", {1.0f}).keyword("NAMES", {"A", "B"}).cutTail(4).writeTo(path);
class KeywordFileBuilder
{
public:
    enum Form : int
    {
        Binary,
        Text
    };

    explicit KeywordFileBuilder(Form form = Binary) : form_(form) {}

    /// A whole keyword: REAL, DOUB, INTE or CHAR by the type of the values.
    KeywordFileBuilder& keyword(const std::string& name, const std::vector<float>& v) { return put(name, "REAL", v); }

    KeywordFileBuilder& keyword(const std::string& name, const std::vector<double>& v) { return put(name, "DOUB", v); }

    KeywordFileBuilder& keyword(const std::string& name, const std::vector<int>& v) { return put(name, "INTE", v); }

    KeywordFileBuilder& keyword(const std::string& name, const std::vector<std::string>& v)
    {
        return put(name, "CHAR", v);
    }

    template <class T>
    KeywordFileBuilder& keyword(const std::string& name, std::initializer_list<T> values)
    {
        return keyword(name, std::vector<T>(values));
    }

    KeywordFileBuilder& keyword(const std::string& name, std::initializer_list<const char*> values)
    {
        return keyword(name, std::vector<std::string>(values.begin(), values.end()));
    }

    /// Stored integers; in text, T for 1 and F for the rest.
    KeywordFileBuilder& logicals(const std::string& name, const std::vector<int>& v) { return put(name, "LOGI", v); }

    /// C0nn of the given width.
    KeywordFileBuilder& strings(const std::string& name, int width, const std::vector<std::string>& values)
    {
        stringWidth_ = static_cast<std::size_t>(width);
        put(name, (width < 10 ? "C00" : "C0") + std::to_string(width), values);
        stringWidth_ = 8;
        return *this;
    }

    /// The header alone, with any count.
    KeywordFileBuilder& header(const std::string& name, std::int64_t count, const std::string& type)
    {
        if (form_ == Text) {
            char line[64];
            std::snprintf(line, sizeof line, " '%-8s' %11lld '%s'\n", name.c_str(), static_cast<long long>(count),
                          type.c_str());
            return raw(line);
        }
        return record(padded(name, 8) + int32(static_cast<std::int32_t>(count)) + type);
    }

    /// A binary record around any content.
    KeywordFileBuilder& record(const std::string& content)
    {
        const std::string mark = int32(static_cast<std::int32_t>(content.size()));
        return raw(mark + content + mark);
    }

    KeywordFileBuilder& raw(std::string_view bytes)
    {
        bytes_ += bytes;
        return *this;
    }

    KeywordFileBuilder& cutTail(std::size_t count)
    {
        bytes_.resize(bytes_.size() - count);
        return *this;
    }

    KeywordFileBuilder& setByte(std::size_t position, int value)
    {
        bytes_.at(position) = static_cast<char>(value);
        return *this;
    }

    KeywordFileBuilder& setInt32(std::size_t position, std::int32_t value)
    {
        bytes_.replace(position, 4, int32(value));
        return *this;
    }

    /// Elements of a binary record or line of text; 1000 numbers and 105 strings if not told otherwise.
    KeywordFileBuilder& blockLength(std::size_t elements)
    {
        blockLength_ = elements;
        return *this;
    }

    const std::string& bytes() const { return bytes_; }

    /// Where the next keyword will stand.
    std::int64_t size() const { return static_cast<std::int64_t>(bytes_.size()); }

    const KeywordFileBuilder& writeTo(const std::string& path) const
    {
        writeBytes(path, bytes_);
        return *this;
    }

    static std::string int32(std::int32_t value) { return bigEndian(static_cast<std::uint32_t>(value), 4); }

    static std::string element(int value) { return int32(value); }

    static std::string element(float value) { return bigEndian(std::bit_cast<std::uint32_t>(value), 4); }

    static std::string element(double value) { return bigEndian(std::bit_cast<std::uint64_t>(value), 8); }

private:
    template <class T>
    KeywordFileBuilder& put(const std::string& name, const std::string& type, const std::vector<T>& values)
    {
        header(name, static_cast<std::int64_t>(values.size()), type);
        const std::size_t usual = std::is_same_v<T, std::string> ? 105 : 1000;
        const std::size_t block = blockLength_ != 0 ? blockLength_ : form_ == Text ? 4 : usual;
        for (std::size_t start = 0; start < values.size(); start += block) {
            std::string content;
            for (std::size_t i = start; i < values.size() && i < start + block; ++i)
                content += form_ == Text ? " " + text(values[i], type) : stored(values[i]);
            form_ == Text ? raw(content + "\n") : record(content);
        }
        return *this;
    }

    template <class T>
    std::string stored(T value) const
    {
        return element(value);
    }

    std::string stored(const std::string& value) const { return padded(value, stringWidth_); }

    static std::string text(int value, const std::string& type)
    {
        if (type == "LOGI")
            return value == 1 ? "T" : "F";
        return std::to_string(value);
    }

    static std::string text(double value, const std::string& type)
    {
        char buffer[40];
        std::snprintf(buffer, sizeof buffer, type == "REAL" ? "%.8E" : "%.16E", value);
        return buffer;
    }

    std::string text(const std::string& value, const std::string&) const
    {
        return "'" + padded(value, stringWidth_) + "'";
    }

    static std::string padded(std::string text, std::size_t width)
    {
        text.resize(width, ' ');
        return text;
    }

    static std::string bigEndian(std::uint64_t value, int size)
    {
        std::string bytes;
        for (int shift = 8 * (size - 1); shift >= 0; shift -= 8)
            bytes += static_cast<char>(value >> shift & 0xff);
        return bytes;
    }

    Form form_;
    std::string bytes_;
    std::size_t stringWidth_ = 8;
    std::size_t blockLength_ = 0;
};

} // namespace MrlIOTest
