#pragma once

/// \file
/// The writer of unformatted keyword files.

#include <mrlio/Export.h>
#include <mrlio/MorvaneWriter.h>

#include <memory>
#include <string>

namespace Kvt::Mrl::MrlIO {

class KeywordFileOutput;

/// Writes the unformatted form: big-endian records framed by their lengths, numbers in records of up to 1000 elements,
/// strings in records of up to 105.
///
/// - Names longer than 8 characters are cut to 8 without notice.
/// - CHAR values longer than 8 characters are cut without notice; values are padded with blanks.
/// - LOGI goes out as the stored integers, whatever they are.
/// - C0nn: if the keyword's intData is below 1 it is set, in the caller's keyword, to the length of the longest string
///   (-1 for an empty array). The type text shows intData, but the elements have the length of the longest string: a
///   keyword whose intData is larger than its longest string makes a file that readers reject. Give the right width or
///   none. An empty array without a width writes a header of type "C0-1".
/// - A record of strings goes out in the type that its header has. A KeywordCHAR of type C0nn, as readers make it of
///   such an array, has its intData as the length of its elements.
class MRLIO_EXPORT MorvaneBinaryWriter : public MorvaneWriter
{
public:
    MorvaneBinaryWriter();
    MorvaneBinaryWriter(const MorvaneBinaryWriter&) = delete;
    MorvaneBinaryWriter& operator=(const MorvaneBinaryWriter&) = delete;

    /// Closes the file if endWrite was not called; what then goes wrong is not reported.
    ~MorvaneBinaryWriter() override;

    bool setFilename(const std::string& name, bool append) override;
    const std::string& getFileName() const override;
    bool endWrite() override;

    /// throws std::invalid_argument, before anything is written, if the width is above 99, or if all strings are empty
    ///        and no width is given
    bool writeKeyword(KeywordTmpl<6>& keyword) override;
    bool writeKeyword(KeywordTmpl<3>& keyword) override;

    /// throws std::invalid_argument, before anything is written, for type C0nn with an intData below 1 or above 99
    bool writeKeyword(KeywordCHAR& keyword) override;
    bool writeKeyword(KeywordTmpl<1>& keyword) override;
    bool writeKeyword(KeywordTmpl<0>& keyword) override;
    bool writeKeyword(KeywordINTE& keyword) override;

private:
    std::unique_ptr<KeywordFileOutput> output_;
};

} // namespace Kvt::Mrl::MrlIO
