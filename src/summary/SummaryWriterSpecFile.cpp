#include "summary/SummaryWriterSpecFile.h"

#include "core/Fail.h"
#include "service/FileStream.h"

#include <mrlio/KeywordWriter.h>

#include <ios>
#include <locale>
#include <sstream>
#include <stdexcept>

namespace Kvt::Mrl::MrlIO {

namespace {

std::string causeOf(const Service::FileStream& stream)
{
    if (stream.eof())
        return "Unexpected end of file.";
    const std::error_code error = stream.lastError();
    return error ? error.message() : "Unknown file error.";
}

void checkStream(const Service::FileStream& stream, const char* problem, const Service::FileName& file)
{
    if (!stream)
        fail<std::runtime_error>(problem, file.GetFullName(), " : ", causeOf(stream));
}

} // namespace

void SummaryWriterSpecFile::write(const SummaryCaseFacts& summaryCase, const SummaryRunFacts& run,
                                  const SummaryWriterVectors& vectors)
{
    std::ostringstream content;
    content.imbue(std::locale::classic());
    KeywordWriter out(content, formatted_, file_);
    writeSummarySpec(out, summaryCase, run, vectors);
    replace(content.view());
}

/// The file is emptied and written in one piece. Most of the time, though, this writer finds its own content of the same
/// length, in which the clock alone has moved on: that is overwritten in place, so that a viewer that opens the file just
/// then finds a whole spec file and not an empty one.
void SummaryWriterSpecFile::replace(std::string_view content)
{
    const auto length = static_cast<std::int64_t>(content.size());
    const bool inPlace = ownLength_ == length && file_.FileLength() == length;
    ownLength_ = -1;

    using Service::FileMode;
    const FileMode mode = FileMode::Write | FileMode::Create;
    Service::FileStream stream(file_.GetFullName(), inPlace ? mode : mode | FileMode::Truncate);
    checkStream(stream, "Problem encountered opening file : ", file_);
    stream.setf(std::ios_base::scientific, std::ios_base::floatfield);
    checkStream(stream, "Problem encountered setting file flags : ", file_);
    stream.write(content.data(), static_cast<std::streamsize>(content.size()));
    stream.close();
    if (!stream)
        fail<std::runtime_error>("Problem closing file: ", file_.GetFullName());
    ownLength_ = length;
}

} // namespace Kvt::Mrl::MrlIO
