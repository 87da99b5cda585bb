#include "summary/SummaryWriterSpecFile.h"

#include "core/Fail.h"
#include "service/FileStream.h"

#include <mrlio/KeywordWriter.h>

#include <boost/filesystem/operations.hpp>
#include <cstdio>
#include <ios>
#include <locale>
#include <sstream>
#include <stdexcept>

namespace Kvt::Mrl::MrlIO {

namespace {

using Service::FileMode;

constexpr FileMode newFile = FileMode::Write | FileMode::Create | FileMode::Truncate;

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

/// Where the file really is: a link stays a link.
std::string placeOf(const Service::FileName& file)
{
    boost::system::error_code error;
    const boost::filesystem::path place = boost::filesystem::canonical(file.GetFullName(), error);
    return error ? file.GetFullName() : place.string();
}

} // namespace

void SummaryWriterSpecFile::write(const SummaryCaseFacts& summaryCase, const SummaryRunFacts& run,
                                  const SummaryWriterVectors& vectors) const
{
    std::ostringstream content;
    content.imbue(std::locale::classic());
    KeywordWriter out(content, formatted_, file_);
    writeSummarySpec(out, summaryCase, run, vectors);
    replace(content.view());
}

/// The new content is written aside and takes the place of the old one in a single step. Where that can't be done, in a
/// folder that takes no new files or for a name that is no file, the old content is written over.
void SummaryWriterSpecFile::replace(std::string_view content) const
{
    const std::string place = placeOf(file_);
    const bool exists = file_.FileExists();
    if (exists) // one that mustn't be written isn't replaced either
        checkStream(Service::FileStream(place, FileMode::Write), "Problem encountered opening file : ", file_);
    const std::string aside = place + ".new";
    Service::FileStream stream;
    if (!exists || file_.IsFile())
        stream.open(aside, newFile);
    const bool isAside = stream.is_open();
    if (!isAside)
        stream.open(place, newFile);
    checkStream(stream, "Problem encountered opening file : ", file_);
    stream.setf(std::ios_base::scientific, std::ios_base::floatfield);
    checkStream(stream, "Problem encountered setting file flags : ", file_);
    stream.write(content.data(), static_cast<std::streamsize>(content.size()));
    stream.close();
    if (stream && (!isAside || std::rename(aside.c_str(), place.c_str()) == 0))
        return;
    if (isAside)
        std::remove(aside.c_str());
    fail<std::runtime_error>("Problem closing file: ", file_.GetFullName());
}

} // namespace Kvt::Mrl::MrlIO
