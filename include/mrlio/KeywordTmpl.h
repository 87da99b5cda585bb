#pragma once

#include <mrlio/Export.h>
#include <mrlio/KeywordHeader.h>

#include <cstdint>
#include <string>
#include <vector>

/// \file
/// Keyword records: a header together with its array in memory, the thing that is read from or written to a keyword
/// file as a whole.

namespace Kvt::Mrl::MrlIO {

/// The element in memory of each value type.
template <int V>
struct KeywordElement;

template <>
struct KeywordElement<ValueType::DOUB>
{
    using type = double;
};

template <>
struct KeywordElement<ValueType::REAL>
{
    using type = float;
};

template <>
struct KeywordElement<ValueType::INTE>
{
    using type = int;
};

template <>
struct KeywordElement<ValueType::LOGI>
{
    using type = int;
};

template <>
struct KeywordElement<ValueType::CHAR>
{
    using type = std::string;
};

template <>
struct KeywordElement<ValueType::MESS>
{
    using type = std::string;
};

template <>
struct KeywordElement<ValueType::C0nn>
{
    using type = std::string;
};

/// A header with its array. V is a value of ValueType::Enum, DOUB to C0nn; a LOGI is an int per element, as in files.
/// The header's size is not tied to the array: readers take the size from the header, writers the array's own length.
/// A moved-from record keeps its header, with an empty array.
template <int V>
class MRLIO_EXPORT KeywordTmpl : public KeywordHeader
{
public:
    using ElementType = typename KeywordElement<V>::type;

    /// Size -1, an empty array.
    KeywordTmpl() { valueType(static_cast<ValueType::Enum>(V)); }

    /// Size 0, an empty array.
    explicit KeywordTmpl(const std::string& name)
        : KeywordHeader(name, 0, static_cast<ValueType::Enum>(V), std::int64_t{0})
    {}

    /// A copy of the values, and their number as size.
    KeywordTmpl(const std::string& name, const std::vector<ElementType>& values)
        : KeywordHeader(name, std::ssize(values), static_cast<ValueType::Enum>(V), std::int64_t{0}),
          array_(values)
    {}

    /// A copy of the header, whatever its type, and an empty array. Reading a header of another type throws.
    explicit KeywordTmpl(const KeywordHeader& header) : KeywordHeader(header) {}

    std::vector<ElementType>& array() { return array_; }

    const std::vector<ElementType>& array() const { return array_; }

    /// Copies the values; with updateSize their number becomes the size.
    void setArray(const std::vector<ElementType>& values, bool updateSize)
    {
        array_ = values;
        if (updateSize)
            size(std::ssize(array_));
    }

private:
    std::vector<ElementType> array_;
};

extern template class KeywordTmpl<ValueType::DOUB>;
extern template class KeywordTmpl<ValueType::REAL>;
extern template class KeywordTmpl<ValueType::INTE>;
extern template class KeywordTmpl<ValueType::LOGI>;
extern template class KeywordTmpl<ValueType::CHAR>;
extern template class KeywordTmpl<ValueType::MESS>;
extern template class KeywordTmpl<ValueType::C0nn>;

/// A record of integers. Classes derived from it may shift them: readers add the shift to each value, writers take it
/// off, both in 32 bits that wrap around. A shift of -1 holds one-based indexes in files and zero-based ones in memory.
class MRLIO_EXPORT KeywordINTE : public KeywordTmpl<ValueType::INTE>
{
public:
    using KeywordTmpl<ValueType::INTE>::KeywordTmpl;

    /// 0 here.
    virtual int getShift() const;
};

/// A record of strings of 8 characters.
class MRLIO_EXPORT KeywordCHAR : public KeywordTmpl<ValueType::CHAR>
{
public:
    using KeywordTmpl<ValueType::CHAR>::KeywordTmpl;

    /// All strings one behind the other, with nothing between them: a long name that is stored in pieces of 8. Strings
    /// that were read have no blanks at their ends, so blanks between two pieces are lost.
    std::string getConcatenatedName() const;
};

} // namespace Kvt::Mrl::MrlIO
