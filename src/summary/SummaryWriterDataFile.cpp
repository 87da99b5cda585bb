#include "summary/SummaryWriterDataFile.h"

#include "core/Fail.h"
#include "files/Extensions.h"
#include "files/OutputDirectory.h"

#include <mrlio/KeywordWriter.h>

#include <bit>
#include <locale>
#include <stdexcept>
#include <utility>

namespace Kvt::Mrl::MrlIO {

namespace {

/// The letters of report steps from 0, 10000 and 20000.
std::string_view stepLetters(bool formatted)
{
    return formatted ? extensions::summary.formattedLetters : extensions::summary.unformattedLetters;
}

KeywordINTE oneNumber(const char* keyword, int value)
{
    return {keyword, std::vector<int>{value}};
}

} // namespace

SummaryWriterDataFile::SummaryWriterDataFile(const Service::Directory& directory, const std::string& rootName,
                                             bool formatted, const MrlWriterDefaultParams& params, LocalClock clock)
    : directory_(directory),
      rootName_(rootName),
      formatted_(formatted),
      unified_(params.unified),
      swapCase_(params.swapExtensionCase),
      mayOverwrite_(params.overwriteData),
      hasTimeStamps_(!params.noTimeStamps),
      clock_(std::move(clock))
{
    encoded_.imbue(std::locale::classic());
}

void SummaryWriterDataFile::append(int reportStep, int miniStep, const std::vector<float>& values)
{
    if (!stream_.is_open())
        open(reportStep);
    if (needsHeader_)
        writeHeader();
    writeWhole("PARAMS", [&](KeywordWriter& out) {
        out.write(oneNumber("MINISTEP", miniStep));
        out.write(KeywordTmpl<ValueType::REAL>("PARAMS", values));
    });
}

void SummaryWriterDataFile::close()
{
    if (!stream_.is_open())
        return;
    stream_.close();
    if (!stream_)
        fail<std::runtime_error>("Problem closing file: ", file_.GetFullName());
}

/// A file that this writer made is continued. Any other that stands there is replaced if the caller allowed it, so the
/// permission acts once for each file.
void SummaryWriterDataFile::open(int reportStep)
{
    const Service::FileName file = fileOf(reportStep);
    const bool isOwn = file == file_;
    if (isFirstOpening_ && !unified_)
        clearOldSteps();
    if (!isOwn && !mayOverwrite_ && file.FileExists())
        throw std::invalid_argument(fileExistsText(file));
    isFirstOpening_ = false;

    using Service::FileMode;
    const FileMode place = !isOwn && mayOverwrite_ ? FileMode::Truncate : FileMode::AtEnd;
    stream_.open(file.GetFullName(), FileMode::Write | FileMode::Create | place);
    if (!stream_)
        fail<std::runtime_error>("Problem encountered opening file : ", file.GetFullName());
    file_ = file;
    wholeLength_ = stream_.tellp();
    needsHeader_ = true;
}

void SummaryWriterDataFile::clearOldSteps() const
{
    const std::string letter(1, stepLetters(formatted_).front()); // further letters are never looked for
    const std::string pattern = stepFilesPattern(rootName_, swapCase_ ? swapLetterCase(letter) : letter);
    if (mayOverwrite_)
        deleteFilesOfType(directory_, pattern);
    else
        refuseFilesOfType(directory_, pattern);
}

Service::FileName SummaryWriterDataFile::fileOf(int reportStep) const
{
    const std::string extension = unified_ ? extensions::ofNewUnifiedFile(extensions::summary, formatted_)
                                           : stepExtension(stepLetters(formatted_), reportStep);
    return outputFile(directory_, rootName_, extension, swapCase_);
}

/// The word that stands for the stamp in a file of signed numbers.
int SummaryWriterDataFile::stamp()
{
    if (!hasTimeStamps_)
        return 0;
    if (!stamp_)
        stamp_ = sequenceStamp(clock_());
    return std::bit_cast<int>(*stamp_);
}

/// After a failure the header is still due, whatever has become of the record that was to follow it.
void SummaryWriterDataFile::writeHeader()
{
    const KeywordINTE header = oneNumber("SEQHDR", stamp());
    writeWhole("SEQHDR", [&](KeywordWriter& out) { out.write(header); });
    needsHeader_ = false;
}

template <class Encode>
void SummaryWriterDataFile::writeWhole(const char* lastKeyword, const Encode& encode)
{
    encoded_.str({});
    KeywordWriter out(encoded_, formatted_, file_);
    encode(out);
    sendWhole(lastKeyword, encoded_.view());
}

/// All bytes or none. They are in the file when this returns, so that other processes see them.
void SummaryWriterDataFile::sendWhole(const char* lastKeyword, std::string_view bytes)
{
    // A stream that failed before is good again once the file is cut back, which may have failed then.
    if (stream_ || stream_.truncateTo(wholeLength_)) {
        stream_.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
        stream_.flush();
    }
    if (!stream_) {
        stream_.truncateTo(wholeLength_);
        fail<std::runtime_error>("A problem was encountered writing the keyword ", lastKeyword, " to file.");
    }
    wholeLength_ += static_cast<std::int64_t>(bytes.size());
}

} // namespace Kvt::Mrl::MrlIO
