#pragma once

/// \file
/// Headers and arrays of the formatted form, onto any stream.

#include <cstddef>
#include <cstdint>
#include <iosfwd>
#include <span>
#include <string>

namespace Kvt::Mrl::MrlIO {

class TextBuffer;

/// Strict mode of all formatted output of the process: see MorvaneAsciiWriter::setStrict.
void setStrictMode(bool strict) noexcept;
bool strictMode() noexcept;

/// One header line: ` 'ZCORN   '         100 'REAL'`. A longer name is written whole. True when the stream is good.
bool writeFormattedHeader(std::ostream& stream, const std::string& name, std::int32_t count,
                          const std::string& typeText);

/// Writes the array of one keyword in the formatted form, whole or piece by piece: pieces join on the lines. The place
/// of the next value in its line and its block is the only state, so an encoder may live as long as an array is under
/// way.
///
/// A line ends behind every itemsPerLine values and at the end of every block, where the count of values starts again.
/// Every write gives true when the stream is good after the last value. REAL and DOUB throw std::runtime_error at a
/// value that strict mode refuses, the values before it being written.
class FormattedArrayEncoder
{
public:
    /// itemsPerLine, blockLength   at least 1
    FormattedArrayEncoder(std::ostream& stream, int itemsPerLine, int blockLength);

    bool writeReals(std::span<const float> values);
    bool writeDoubles(std::span<const double> values);

    /// Each value less shift, in 32 bits that wrap around.
    bool writeIntegers(std::span<const int> values, int shift);

    /// T for exactly 1, F for everything else, -1 included: kept although the unformatted form stores the value itself.
    bool writeLogicals(std::span<const int> values);

    /// Quoted strings padded to 8. An item has at most 15 characters: a string of 13 loses its closing quote, longer
    /// ones their tail too. Kept, since the items of such files have always looked so.
    bool writeChars(std::span<const std::string> values);

    /// Quoted strings padded to width, longer ones whole.
    bool writeStrings(std::span<const std::string> values, int width);

    /// Ends a line that is not full. No values may follow.
    bool finish();

private:
    template <class T, class Print>
    bool writeItems(std::span<const T> values, std::size_t longestItem, Print print);
    bool writeQuoted(std::span<const std::string> values, int width, std::size_t longestText);
    bool endsLine() noexcept;

    std::ostream& stream_;
    int itemsPerLine_;
    int blockLength_;
    int inLine_ = 0;
    int inBlock_ = 0;
};

} // namespace Kvt::Mrl::MrlIO
