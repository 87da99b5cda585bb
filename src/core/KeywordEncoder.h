#pragma once

/// \file
/// Keyword records onto a stream, in either form: what all writers of keyword files have in common.

#include <mrlio/KeywordTmpl.h>

#include <cstddef>
#include <cstdint>
#include <iosfwd>
#include <string>
#include <vector>

namespace Kvt::Mrl::MrlIO {

/// The text by which a header names its type; the width of a C0nn type stands in place of the letters nn, on two
/// digits. Empty for a type without a label.
std::string typeText(const ValueTypeInfo& info);

/// The two widths of a C0nn keyword. They differ only in files that were asked for with a width of their own.
struct StringWidths
{
    int declared; ///< stands in the type text; formatted items are padded to it
    int laidOut;  ///< length of the unformatted elements; decides how many formatted items a line has
};

/// The greatest width of a C0nn keyword: two digits in the header, or a formatted line.
int widestStrings(bool formatted) noexcept;

/// Length of the longest string, -1 for none.
int longestString(const KeywordTmpl<6>& keyword) noexcept;

/// Writes keyword records whole: the header with the number of elements of the array, then the array in blocks. Every
/// operation gives true when the stream is good behind the last value and stops early when it fails.
class KeywordEncoder
{
public:
    KeywordEncoder(std::ostream& stream, bool formatted) : stream_(stream), formatted_(formatted) {}

    /// The header of an array of count elements, two headers for 2147483648 elements or more. The size that the keyword
    /// states is not asked. False, with nothing written, for a type whose text doesn't have the four characters of a
    /// header's type field.
    bool writeHeader(const KeywordHeader& keyword, std::uint64_t count);

    bool write(const KeywordTmpl<0>& keyword);
    bool write(const KeywordTmpl<1>& keyword);
    bool write(const KeywordTmpl<3>& keyword);
    bool write(const KeywordINTE& keyword);

    /// Strings have the form of the header's type, whichever record holds them: one that was read keeps its file's
    /// type. A C0nn without widths of its own has the keyword's width for both.
    /// widths   declared has to be the keyword's own width, which is taken for the type text
    /// throws   std::invalid_argument, before anything is written, for a C0nn of widths that the form can't hold
    bool write(const KeywordTmpl<4>& keyword);
    bool write(const KeywordTmpl<5>& keyword);
    bool write(const KeywordTmpl<6>& keyword);
    bool write(const KeywordTmpl<6>& keyword, StringWidths widths);

private:
    template <class Lines, class Records, class Items>
    bool writeKeyword(const KeywordHeader& keyword, std::size_t count, Lines lines, Records records, Items items);
    bool writeHeaderRecord(const std::string& name, std::int64_t count, const std::string& type);
    bool writeText(const KeywordHeader& keyword, const std::vector<std::string>& values);
    bool writeChars(const KeywordHeader& keyword, const std::vector<std::string>& values);
    bool writeStrings(const KeywordHeader& keyword, const std::vector<std::string>& values, StringWidths widths);
    void checkWidths(StringWidths widths) const;

    std::ostream& stream_;
    bool formatted_;
};

} // namespace Kvt::Mrl::MrlIO
