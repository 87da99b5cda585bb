#pragma once

#include <mrlio/Export.h>
#include <mrlio/ValueType.h>

#include <cstdint>
#include <ios>
#include <string>

namespace Kvt::Mrl::MrlIO {

/// The description of one keyword of a file: name, number of elements, kind of elements, and where it stands.
///
/// A value: a reader fills it, it stays valid when the reader has moved on, and handed back to that reader it is a
/// checked reference to the keyword's array. Of two keywords of one name, only the position tells which one is meant.
///
/// An array of 2147483648 elements or more has two headers in its file: the first, of type X231, holds the multiple of
/// 2147483648 and the second, directly before the data, the remainder and the true type. A KeywordHeader that a walk
/// gives stands for both. Positions are byte offsets.
class MRLIO_EXPORT KeywordHeader
{
public:
    /// Number of elements from which on an array takes two headers.
    static constexpr std::uint32_t twoPower31 = 2147483648u;

    /// No name, size -1, no type, position 0.
    KeywordHeader() = default;
    KeywordHeader(const KeywordHeader&) = default;
    KeywordHeader& operator=(const KeywordHeader&) = default;

    /// A header with both positions at `position`. The forms with a plain type leave its width at -1.
    KeywordHeader(const std::string& name, std::int64_t size, ValueType::Enum type, std::int64_t position);
    KeywordHeader(const std::string& name, std::int64_t size, ValueType::Enum type, std::streampos position);
    KeywordHeader(const std::string& name, std::int64_t size, const ValueTypeInfo& info, std::int64_t position);
    KeywordHeader(const std::string& name, std::int64_t size, const ValueTypeInfo& info, std::streampos position);

    virtual ~KeywordHeader();

    /// At most 8 characters in files; readers give it without blanks at its ends.
    const std::string& name() const { return name_; }

    void name(const std::string& name) { name_ = name; }

    /// Number of elements; -1 if not known.
    std::int64_t size() const { return size_; }

    void size(std::int64_t size) { size_ = size; }

    ValueType::Enum valueType() const { return info_.type(); }

    /// Sets the type and resets the width to -1.
    void valueType(ValueType::Enum type) { info_ = ValueTypeInfo(type, -1); }

    const ValueTypeInfo& valueTypeInfo() const { return info_; }

    void valueTypeInfo(const ValueTypeInfo& info) { info_ = info; }

    /// Where the keyword's first header starts. Setting it sets the second position too.
    std::streampos keywordPos() const { return position_; }

    void keywordPos(const std::streampos& position);

    std::int64_t keywordLargePos() const { return static_cast<std::int64_t>(std::streamoff(position_)); }

    void keywordLargePos(const std::int64_t& position);

    /// Where the header that directly precedes the data starts. Setting it leaves the first position alone.
    std::streampos second_keywordPos() const { return secondPosition_; }

    std::int64_t second_keywordLargePos() const { return static_cast<std::int64_t>(std::streamoff(secondPosition_)); }

    void second_keywordLargePos(const std::int64_t& position);

    /// remainder + multiplier x 2147483648: the byte offset behind the pair by which text indexes store positions.
    /// Mind the order: the remainder comes first.
    static std::int64_t getLargePos(const std::int64_t& remainder, const std::int64_t& multiplier);
    /// The two numbers of that pair.
    static int getMultiplierPos(const std::int64_t& position);
    static int getRemainderPos(const std::int64_t& position);

    /// Whether an array of count elements takes two headers.
    bool requires_double_header(std::uint64_t count) const { return count >= twoPower31; }

    /// The number of elements that the second of two headers holds.
    std::int64_t second_size() const { return size_ % std::int64_t{twoPower31}; }

    /// Takes the present size as the multiple of 2147483648, and adds the remainder.
    void update_header_size(std::int64_t remainder);

    /// Makes the two headers for an array of count elements; the header's own size is not asked. Name and positions
    /// are the header's own in both, the type is X231 in the first.
    void split_header(KeywordHeader& first, KeywordHeader& second, std::uint64_t count) const;

protected:
    /// Writes a byte offset, with the state of a stream's start, into a stream position.
    static void setLargePos(const std::int64_t& offset, std::streampos& position);

private:
    std::string name_;
    std::int64_t size_ = -1;
    ValueTypeInfo info_;
    std::streampos position_ = std::streampos(0);
    std::streampos secondPosition_ = std::streampos(0);
};

} // namespace Kvt::Mrl::MrlIO
