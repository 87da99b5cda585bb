#include <mrlio/StreamSection.h>

#include "core/RetryWait.h"
#include "service/FileStream.h"
#include "service/FileUtils.h"

#include <chrono>
#include <cstdint>
#include <exception>
#include <stdexcept>
#include <system_error>

namespace Kvt::Mrl::MrlIO {

namespace {

constexpr std::int64_t nothingSaved = -1;

/// The temporary file of a section stands beside its target.
Service::FileName temporaryFile(const Service::FileName& target, const std::string& sectionName)
{
    Service::FileName file(target);
    file.SetRootName(target.GetRootName() + (sectionName.empty() ? "_FFM" : "_" + sectionName));
    file.SetExtension("tmp");
    return file;
}

} // namespace

class StreamSectionImpl
{
public:
    StreamSectionImpl(const Service::FileName& target, const std::string& sectionName)
        : name_(sectionName),
          file_(temporaryFile(target, sectionName))
    {}

    void open();
    void close();
    void deleteFile();
    std::streambuf* rewind();

    Service::FileStream& stream() { return stream_; }

private:
    bool tryOpen();

    std::string name_;
    Service::FileStream stream_;
    Service::FileName file_;
    std::int64_t savedPosition_ = nothingSaved;
};

bool StreamSectionImpl::tryOpen()
{
    using Service::FileMode;
    const FileMode contents = savedPosition_ == nothingSaved ? FileMode::Create | FileMode::Truncate : FileMode{};
    stream_.open(file_.GetFullName(), FileMode::Read | FileMode::Write | FileMode::Exclusive | contents);
    stream_.setf(std::ios_base::scientific, std::ios_base::floatfield);
    return stream_.good();
}

void StreamSectionImpl::open()
{
    constexpr int mostAttempts = 10;
    constexpr std::chrono::milliseconds firstWait(500);
    int attempts = 0;
    for (bool clean = tryOpen(); !clean && attempts < mostAttempts;) {
        ++attempts;
        clean = tryOpen();
        if (!clean)
            waitForRetry(attempts * firstWait);
    }
    if (stream_.good() && savedPosition_ != nothingSaved)
        stream_.seekp(savedPosition_);
    if (!stream_.good())
        throw std::runtime_error("Problem encountered opening file on StreamSection : " + name_ +
                                 " - Failed to open file after " + std::to_string(attempts) +
                                 " attempts : " + file_.GetFullName());
}

void StreamSectionImpl::close()
{
    if (!stream_.is_open())
        return;
    // Asked of the buffer: a failed stream gives no position, and the next opening would take that for an empty file.
    savedPosition_ = stream_.rdbuf()->pubseekoff(0, std::ios_base::cur);
    stream_.close();
}

void StreamSectionImpl::deleteFile()
{
    // A section of this name in another process may have taken the file over since it was closed here, or may do so as
    // soon as the name is free. The lock keeps others out until the file is gone.
    using Service::FileMode;
    const Service::FileStream lock(file_.GetFullName(), FileMode::Read | FileMode::Write | FileMode::Exclusive);
    const std::error_code reason = lock.lastError();
    if (reason == std::errc::operation_would_block || reason == std::errc::no_such_file_or_directory)
        return;
    try {
        Service::FileUtils::Remove(file_);
        savedPosition_ = nothingSaved;
    } catch (const std::exception&) {
        // The file stays, and with it the place where writing may go on.
    }
}

std::streambuf* StreamSectionImpl::rewind()
{
    if (!stream_.is_open())
        throw std::runtime_error("The file has not been opened");
    if (stream_.tellp() == std::streampos(0))
        return nullptr;
    stream_.seekp(0);
    if (stream_.fail())
        throw std::runtime_error("Problem encountered reading file : " + file_.GetFullName());
    return stream_.rdbuf();
}

StreamSection::StreamSection(const Service::FileName& target, const std::string& sectionName, bool /*formatted*/)
    : impl_(std::make_unique<StreamSectionImpl>(target, sectionName))
{}

StreamSection::~StreamSection() = default;

void StreamSection::close()
{
    impl_->close();
}

std::ostream& StreamSection::stream()
{
    if (!impl_->stream().is_open())
        impl_->open();
    return impl_->stream();
}

void StreamSection::remove()
{
    close();
    impl_->deleteFile();
}

std::streambuf* StreamSection::rewind()
{
    return impl_->rewind();
}

} // namespace Kvt::Mrl::MrlIO
