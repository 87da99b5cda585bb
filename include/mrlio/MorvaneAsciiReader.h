#pragma once

#include <mrlio/Export.h>
#include <mrlio/KeywordHeader.h>
#include <mrlio/MorvaneReader.h>

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace Kvt::Mrl::MrlIO {

class MorvaneAsciiReaderImpl;

/// Reads one formatted (text) keyword file through the interface of MorvaneReader.
///
/// A keyword is one header line of fixed columns
///
///      'ZCORN   '         100 'REAL'
///
/// and its values behind it as tokens between white space, over any number of lines: numbers, strings in single quotes,
/// and T or F. There is no length framing, so the next keyword is found by scanning for a line whose first character
/// behind blanks and tabs is a quote or a letter; LOGI, CHAR, MESS and C0nn data are passed value by value, since their
/// own lines begin like that. Kept as they are: a value line that begins with NAN or INF stops a walk with an error
/// (though DOUB values of that form are read), and a string value that holds a quote reads back as others.
///
/// Values follow the rules of formatted stream extraction in the classic locale, whatever the global locale is: INTE
/// like an int, REAL like a double that is then narrowed to float (so a D exponent, inf, nan and 1E400 fail, while a
/// value beyond the range of float becomes infinity). DOUB takes what strtod takes, with D or d as exponent letter too.
///
/// A header handed out here stays a checked reference to its array: before data are read, name, type and size are
/// compared with the line at the header's position. Reading a slice passes the values before it token by token, so its
/// cost grows with `first`; nothing is kept between two requests, so a file may grow or be rewritten meanwhile.
///
/// One reader belongs to one thread at a time; separate readers are independent of each other.
class MRLIO_EXPORT MorvaneAsciiReader : public MorvaneReader
{
public:
    /// A reader with no file.
    MorvaneAsciiReader();
    ~MorvaneAsciiReader() override;

    MorvaneAsciiReader(const MorvaneAsciiReader&) = delete;
    MorvaneAsciiReader& operator=(const MorvaneAsciiReader&) = delete;

    /// True with no file open, else whether the last operation ran into the end of the file. After an exception it
    /// tells a keyword that is cut by the end of the file from a damaged one.
    bool eof() override;

    /// Opens a file for reading in place of the one that is open, and forgets the current keyword.
    /// False, with no file open and an empty file name, if it can't be opened.
    bool setFilename(const std::string& fileName) override;

    /// Makes `header` the current keyword: the next walk step gives the keyword behind it. A default header goes back
    /// to the start of the file. Nothing is checked here.
    void setCurrentHeader(KeywordHeader& header) override;

    /// Moves past the current keyword and reads the next header line into `header`, which becomes the current one. With
    /// a `header` of type X231 the line is taken as the second of a double header and folded into it.
    /// False at the end of the file; a later call finds a keyword that was appended meanwhile.
    /// throws MrlIOException if the current keyword has gone, its values are damaged, or the next line is no header
    bool readNextSingleKeywordHeader(KeywordHeader& header) override;

    /// Whether `header` still describes the keyword at its position. The reader's position is lost.
    bool isValidHeader(const KeywordHeader& header) override;

protected:
    /// Read elements first to last, counted from 0 and inclusive, into a buffer that holds them. Always true.
    /// throws MrlIOException if the type doesn't fit the buffer, the header is stale, or the values end early or can't
    ///        be read; the text ends with file, line, name and type of the keyword
    bool readArray(const KeywordHeader& header, std::string* out, std::int64_t first, std::int64_t last) override;
    bool readArray(const KeywordHeader& header, float* out, std::int64_t first, std::int64_t last) override;
    bool readArray(const KeywordHeader& header, double* out, std::int64_t first, std::int64_t last) override;
    bool readArray(const KeywordHeader& header, int* out, std::int64_t first, std::int64_t last) override;
    using MorvaneReader::readArray;

    /// The same into a vector that grows by what the file really holds, so a lying count allocates nothing.
    bool readVector(const KeywordHeader& header, std::vector<std::string>& out, std::int64_t first,
                    std::int64_t last) override;
    bool readVector(const KeywordHeader& header, std::vector<float>& out, std::int64_t first,
                    std::int64_t last) override;
    bool readVector(const KeywordHeader& header, std::vector<double>& out, std::int64_t first,
                    std::int64_t last) override;
    bool readVector(const KeywordHeader& header, std::vector<int>& out, std::int64_t first, std::int64_t last) override;
    using MorvaneReader::readVector;

    /// Turns a header line that starts at byte `position` into `header`; of type X231 on entry, `header` is completed
    /// as a double header. `line` is changed: its count gets a terminator.
    /// throws MrlIOException if it is no header line; the text ends with file and line number
    void parseKeywordHeaderLine(KeywordHeader& header, std::string& line, std::int64_t position);

    /// Reads the line at the reader's position and parses it. Always true.
    /// throws MrlIOException if no file is open, no line is left, or it is no header line
    bool readKeywordHeader(KeywordHeader& header);

    /// Checks that `header` still describes the keyword at its second position and leaves the reader behind its header
    /// line, at the first line of values.
    /// throws MrlIOException if name, type or size differ
    void seekToStartOfData(const KeywordHeader& header);

    /// Passes lines up to the next header line, gives it without its line end, and the byte offset where it starts.
    /// False at the end of the file, and with no file.
    bool skipBlanksAndNumericLinesToFindNextHeaderLine(std::string& line, std::int64_t& position);

    /// The same from the data of `header` on.
    bool skipBlanksAndNumericLinesToFindNextHeaderLine(const KeywordHeader& header, std::string& line,
                                                       std::int64_t& position);

private:
    std::unique_ptr<MorvaneAsciiReaderImpl> impl_;
};

} // namespace Kvt::Mrl::MrlIO
