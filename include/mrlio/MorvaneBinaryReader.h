#pragma once

#include <mrlio/Export.h>
#include <mrlio/KeywordHeader.h>
#include <mrlio/MorvaneReader.h>

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace Kvt::Mrl::MrlIO {

class MorvaneBinaryReaderImpl;

/// Reads one unformatted keyword file through the interface of MorvaneReader.
///
/// The file is a bare run of keywords, big-endian, in records framed by their length before and behind:
///
///     header   16 | name, 8 characters | count | type, 4 characters | 16
///     data     bytes | whole elements | bytes                             any number of them, none for a count of 0
///
/// A walk touches headers and record lengths only, and a slice costs the records from the start of the array to its
/// last element. The framing is checked for each record that is passed or read to its end.
///
/// One reader belongs to one thread at a time; separate readers are independent of each other.
class MRLIO_EXPORT MorvaneBinaryReader : public MorvaneReader
{
public:
    /// A reader with no file.
    MorvaneBinaryReader();
    ~MorvaneBinaryReader() override;

    MorvaneBinaryReader(const MorvaneBinaryReader&) = delete;
    MorvaneBinaryReader& operator=(const MorvaneBinaryReader&) = delete;

    bool eof() override;
    bool setFilename(const std::string& fileName) override;
    void setCurrentHeader(KeywordHeader& header) override;

    /// Moves past the current keyword and reads the header record behind it into `header`, which becomes the current
    /// one. False if no record of 16 bytes stands there.
    /// throws MrlIOException if no file is open, the current keyword is stale or damaged, or the header is; the current
    ///        keyword stays what it was, and between the two records of a double header it goes back to the one before
    bool readNextSingleKeywordHeader(KeywordHeader& header) override;

    bool isValidHeader(const KeywordHeader& header) override;

    /// The bytes that a keyword of `count` elements takes in a file, for jumping over it; 8 more than it really takes
    /// if count is a multiple of the block length other than 0.
    /// throws MrlIOException for elements of MESS, C0nn, X231 and unknown types
    static std::uint64_t computeKeywordStorageSize(ValueType::Enum type, std::uint64_t count);

protected:
    bool readArray(const KeywordHeader& header, std::string* out, std::int64_t first, std::int64_t last) override;
    bool readArray(const KeywordHeader& header, float* out, std::int64_t first, std::int64_t last) override;
    bool readArray(const KeywordHeader& header, double* out, std::int64_t first, std::int64_t last) override;
    bool readArray(const KeywordHeader& header, int* out, std::int64_t first, std::int64_t last) override;
    using MorvaneReader::readArray;

    bool readVector(const KeywordHeader& header, std::vector<std::string>& out, std::int64_t first,
                    std::int64_t last) override;
    bool readVector(const KeywordHeader& header, std::vector<float>& out, std::int64_t first,
                    std::int64_t last) override;
    bool readVector(const KeywordHeader& header, std::vector<double>& out, std::int64_t first,
                    std::int64_t last) override;
    bool readVector(const KeywordHeader& header, std::vector<int>& out, std::int64_t first, std::int64_t last) override;
    using MorvaneReader::readVector;

    /// Reads the header record at the reader's position; a `header` of type X231 is completed as a double header.
    /// False if no record of 16 bytes stands there.
    /// throws MrlIOException if no file is open, an earlier operation failed, or the record is damaged; the text ends
    ///        with the file, and the byte offset that `header` holds
    bool readKeywordHeader(KeywordHeader& header);

    /// Checks that `header` still describes the keyword at its second position, and leaves the reader at its data.
    /// throws MrlIOException if no header stands there, or name, type or size differ
    void seekToStartOfData(const KeywordHeader& header);

private:
    std::unique_ptr<MorvaneBinaryReaderImpl> impl_;
};

} // namespace Kvt::Mrl::MrlIO
