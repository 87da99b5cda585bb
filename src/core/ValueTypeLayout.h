#pragma once

#include <mrlio/ValueType.h>

#include <array>
#include <cstddef>

/// \file
/// How each value type is laid out in keyword files: the one table behind readers, writers and size arithmetic.

namespace Kvt::Mrl::MrlIO {

/// The layout of one value type in both forms of a keyword file.
struct ValueTypeLayout
{
    int readWidth;    ///< bytes of an unformatted element as readers count it; elementWidthVaries for C0nn
    int writeWidth;   ///< bytes of an unformatted element as writers make it; elementWidthVaries for C0nn
    int blockLength;  ///< elements of a full data record, and of a full run of formatted lines
    int itemsPerLine; ///< formatted elements of a full line; 0 where the width of C0nn decides
    int columnWidth;  ///< field width of a formatted element, its leading blank and quotes left out; 0 for C0nn
};

/// In place of an element width: the keyword's own type information states it.
constexpr int elementWidthVaries = -1;

constexpr int numberBlockLength = 1000;
constexpr int stringBlockLength = 105;
constexpr int charWidth = 8;
constexpr int formattedLineLength = 80;

/// Indexed by ValueType::Enum. MESS counts 4 bytes an element for readers and 8 for writers: kept, since it decides how
/// far a reader skips in existing files.
constexpr std::array<ValueTypeLayout, 8> valueTypeLayouts{{
    {8, 8, numberBlockLength, 3, 22},                                  // DOUB
    {4, 4, numberBlockLength, 4, 16},                                  // REAL
    {4, 4, numberBlockLength, 6, 11},                                  // INTE
    {4, 4, numberBlockLength, 25, 2},                                  // LOGI
    {charWidth, charWidth, stringBlockLength, 7, 8},                   // CHAR
    {4, charWidth, stringBlockLength, 7, 8},                           // MESS
    {elementWidthVaries, elementWidthVaries, stringBlockLength, 0, 0}, // C0nn
    {0, 0, 0, 0, 0},                                                   // X231
}};

/// The layout of a type, null for values outside the enumeration.
constexpr const ValueTypeLayout* findValueTypeLayout(ValueType::Enum type) noexcept
{
    const auto row = static_cast<std::size_t>(static_cast<unsigned>(type));
    return row < valueTypeLayouts.size() ? &valueTypeLayouts[row] : nullptr;
}

/// The layout of a type that the caller knows to be one of the eight.
constexpr const ValueTypeLayout& valueTypeLayout(ValueType::Enum type) noexcept
{
    return valueTypeLayouts[static_cast<std::size_t>(type)];
}

} // namespace Kvt::Mrl::MrlIO
