#pragma once

/// \file
/// The writer of formatted keyword files.

#include <mrlio/Export.h>
#include <mrlio/MorvaneWriter.h>

#include <memory>
#include <string>

namespace Kvt::Mrl::MrlIO {

class KeywordFileOutput;

/// Writes the formatted form: a header line, then lines of REAL (4 values a line), DOUB (3), INTE (6), LOGI (25) and
/// CHAR (7). A line also ends behind every 1000 numbers or 105 strings. Numbers don't depend on any locale.
///
/// What callers should know of the form:
/// - A name longer than 8 characters is written whole; the columns of its header line shift and readers fail on it.
/// - A CHAR value of 13 characters or more loses its closing quote, and of 14 or more its tail: an item has at most 15
///   characters. A value that holds a single quote reads back as another one. Strings end at their first NUL.
/// - LOGI prints T for exactly 1 and F for everything else, so -1 prints F although the unformatted form keeps it.
/// - Values that are not finite print as INF, -INF, NAN and -NAN. A line that begins with INF or NAN stops a later
///   walk over the file's headers with an error, though a DOUB array with such values can be read.
/// - C0nn: if the keyword's intData is below 1 it is set, in the caller's keyword, to the length of the longest string.
///   A line has 80 / (length of the longest string + 3) items, and each is padded to intData. Longer values are not
///   cut, so lines may pass 80 columns.
/// - A record of strings goes out in the type that its header has. A KeywordCHAR of type C0nn, as readers make it of
///   such an array, has 80 / (intData + 3) items on a line.
class MRLIO_EXPORT MorvaneAsciiWriter : public MorvaneWriter
{
public:
    MorvaneAsciiWriter();
    MorvaneAsciiWriter(const MorvaneAsciiWriter&) = delete;
    MorvaneAsciiWriter& operator=(const MorvaneAsciiWriter&) = delete;

    /// Closes the file if endWrite was not called; what then goes wrong is not reported.
    ~MorvaneAsciiWriter() override;

    bool setFilename(const std::string& name, bool append) override;
    const std::string& getFileName() const override;
    bool endWrite() override;

    /// throws std::invalid_argument, before anything is written, if the width is 0 or below (an empty array, or one of
    ///        empty strings only, without a width) or above 77
    bool writeKeyword(KeywordTmpl<6>& keyword) override;
    bool writeKeyword(KeywordTmpl<3>& keyword) override;

    /// throws std::invalid_argument, before anything is written, for type C0nn with an intData below 1 or above 77
    bool writeKeyword(KeywordCHAR& keyword) override;

    /// throws std::runtime_error in strict mode, see setStrict; the values before the one refused are written
    bool writeKeyword(KeywordTmpl<1>& keyword) override;

    /// throws std::runtime_error in strict mode, see setStrict; the values before the one refused are written
    bool writeKeyword(KeywordTmpl<0>& keyword) override;
    bool writeKeyword(KeywordINTE& keyword) override;

    /// Switches strict mode for every formatted writer of the process, KeywordWriter included; off at start.
    ///
    /// In strict mode REAL and DOUB are printed with a leading zero, -1.2345678E+01 as -0.12345678E+01: the point moves
    /// but the exponent stays, so readers get a tenth of the value, and the item grows by one character. An exponent of
    /// 10 or more in size is refused with a std::runtime_error "Can't use 'strict' - exponent overflow". The init,
    /// restart and summary writers switch the mode on when their settings ask for it; only this operation ends it.
    static void setStrict(bool strict) noexcept;
    static bool isStrict() noexcept;

private:
    std::unique_ptr<KeywordFileOutput> output_;
};

} // namespace Kvt::Mrl::MrlIO
