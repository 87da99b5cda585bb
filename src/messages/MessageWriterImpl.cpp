#include "messages/MessageWriterImpl.h"

#include "core/Fail.h"
#include "files/OutputDirectory.h"
#include "messages/MessageText.h"

#include <algorithm>
#include <cstdio>
#include <ios>
#include <limits>
#include <stdexcept>

namespace Kvt::Mrl::MrlIO {

using Service::FileMode;

namespace {

Service::Time midnightOf(const Service::YearMonthDay& date)
{
    if (date.Year() == 0)
        return Service::Time::MinTime();
    const auto year = static_cast<int>(std::min<long>(date.Year(), std::numeric_limits<int>::max()));
    return {year, date.Month(), date.Day(), 0, 0, 0, 0};
}

std::string tagOf(MessageType::Enum type)
{
    std::string tag;
    if (!Service::findLabel<MessageType>(type, tag))
        throw std::runtime_error("Unknown message type");
    return tag;
}

} // namespace

MessageWriterImpl::MessageWriterImpl(const std::string& directory, const std::string& caseName,
                                     const Service::YearMonthDay& startDate, bool overwrite, bool throwOnStreamError)
    : start_(midnightOf(startDate)),
      file_(outputFile(outputDirectory(directory), caseName, "MSG", false)),
      overwrite_(overwrite),
      throwOnStreamError_(throwOnStreamError)
{
    if (!overwrite_ && file_.FileExists())
        throw std::invalid_argument(fileExistsText(file_));
}

void MessageWriterImpl::open()
{
    if (isOpen_)
        throw std::runtime_error("MessageWriter is already open.");
    isOpen_ = hasRoot() ? openAgain() : openNew();
    if (!isOpen_)
        fail<std::runtime_error>("Problem encountered opening file : ", file_.GetFullName());
}

bool MessageWriterImpl::openNew()
{
    const FileMode oldContent = overwrite_ ? FileMode::Truncate : FileMode::New;
    stream_.open(file_.GetFullName(), FileMode::Write | FileMode::Create | oldContent);
    if (!stream_)
        return false;
    append('<' + rootTag_ + ">\n");
    if (stream_ || !throwOnStreamError_)
        return true;
    dropRootlessFile();
    return false;
}

/// The closing tag stays where it is until a message takes its place. A file that has become shorter is refused, since
/// zero bytes would fill the gap.
bool MessageWriterImpl::openAgain()
{
    stream_.open(file_.GetFullName(), FileMode::Read | FileMode::Write | FileMode::AtEnd);
    if (stream_ && stream_.tellp() >= wholeLength_ && stream_.seekp(wholeLength_))
        return true;
    stream_.close();
    return false;
}

void MessageWriterImpl::close()
{
    if (!isOpen_)
        return;
    isOpen_ = false;
    const bool lostNothing = stream_.good();
    if (hasRoot()) {
        writeEnd();
        stream_.close();
    } else {
        dropRootlessFile();
    }
    if (!lostNothing || !stream_)
        fail<std::runtime_error>("Problem closing file: ", file_.GetFullName());
}

void MessageWriterImpl::writeEnd()
{
    if (!stream_) // with the rest of a message that was written in part
        stream_.truncateTo(wholeLength_);
    const std::string tag = "</" + rootTag_ + ">\n";
    const std::int64_t end = wholeLength_ + static_cast<std::int64_t>(tag.size());
    stream_.write(tag.data(), static_cast<std::streamsize>(tag.size()));
    if (stream_.flush() && stream_.seekp(0, std::ios_base::end).tellp() > end)
        stream_.truncateTo(end);
}

/// A file without its root is none that could be continued, so that the next open begins anew. What this writer created
/// would stand in the way of that.
void MessageWriterImpl::dropRootlessFile()
{
    stream_.close();
    if (!overwrite_)
        std::remove(file_.GetFullName().c_str());
}

void MessageWriterImpl::resetRootTagName(const std::string& name)
{
    if (isOpen_)
        throw std::runtime_error("Unable to set tags: the MessageWriter must not be open.");
    if (!hasRoot())
        rootTag_ = name;
}

void MessageWriterImpl::resetStartDate(const Service::YearMonthDay& startDate)
{
    if (!isOpen_)
        throw std::runtime_error("Unable to reset start date: the MessageWriter must be opened first.");
    start_ = midnightOf(startDate);
}

void MessageWriterImpl::writeMessage(MessageType::Enum type, const std::string& text, double elapsedTime,
                                     const std::string& name, const std::string& typeName, const std::string& guid)
{
    if (!isOpen_)
        throw std::runtime_error("Unable to write message: the MessageWriter must be opened first.");
    if (elapsedTime < 0)
        fail<std::invalid_argument>("Elapsed time is invalid: ", elapsedTime, ".  Must be >= 0.0.");
    const std::string tag = tagOf(type);
    const std::string date = dateText(start_, elapsedTime);
    const std::string time = timeText(start_, elapsedTime);
    append(elementText({tag, text, date, time, name, typeName, guid}));
    if (!stream_ && throwOnStreamError_)
        throw std::ios_base::failure("Problem writing to file: " + file_.GetFullName(), stream_.lastError());
}

/// The stream that has failed once takes nothing more.
void MessageWriterImpl::append(const std::string& text)
{
    stream_.write(text.data(), static_cast<std::streamsize>(text.size()));
    if (stream_.flush())
        wholeLength_ += static_cast<std::int64_t>(text.size());
}

} // namespace Kvt::Mrl::MrlIO
