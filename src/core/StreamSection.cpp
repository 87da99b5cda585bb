#include <mrlio/StreamSection.h>

#include "core/RetryWait.h"
#include "service/FileStream.h"
#include "service/FileUtils.h"

#include <boost/filesystem/operations.hpp>
#include <boost/filesystem/path.hpp>

#include <chrono>
#include <cstdint>
#include <exception>
#include <mutex>
#include <set>
#include <stdexcept>
#include <system_error>
#include <utility>

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

/// One spelling for each file, whether it exists or not.
std::string uniqueName(const std::string& file)
{
    namespace fs = boost::filesystem;
    boost::system::error_code failure;
    fs::path path = fs::system_complete(file, failure);
    if (!failure)
        path = fs::weakly_canonical(path, failure);
    return failure ? file : path.string();
}

/// A file that belongs to one section of the process from its first opening on. The lock on the file can't stand for
/// that, since sections are closed between two arrays.
class Reservation
{
public:
    Reservation() = default;
    Reservation(const Reservation&) = delete;
    Reservation& operator=(const Reservation&) = delete;

    ~Reservation() { release(); }

    /// False if another section has the file.
    bool take(const std::string& file)
    {
        if (!name_.empty())
            return true;
        std::string name = uniqueName(file);
        const std::lock_guard guard(mutex());
        if (!names().insert(name).second)
            return false;
        name_ = std::move(name);
        return true;
    }

    void release()
    {
        if (name_.empty())
            return;
        const std::lock_guard guard(mutex());
        names().erase(name_);
        name_.clear();
    }

private:
    // Both live to the end of the process: sections may be static objects.
    static std::mutex& mutex()
    {
        static std::mutex& instance = *new std::mutex;
        return instance;
    }

    static std::set<std::string>& names()
    {
        static std::set<std::string>& instance = *new std::set<std::string>;
        return instance;
    }

    std::string name_;
};

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

    void setBufferSize(int bytes) { bufferSize_ = bytes; }

    Service::FileStream& stream() { return stream_; }

private:
    bool tryOpen();
    bool goToSavedPosition();
    [[noreturn]] void failOpen(int attempts);

    std::string name_;
    Service::FileName file_;
    Reservation reservation_; // in front of the stream, so that it outlives the open file
    Service::FileStream stream_;
    std::int64_t savedPosition_ = nothingSaved;
    int bufferSize_ = 0;
};

bool StreamSectionImpl::tryOpen()
{
    using Service::FileMode;
    if (!reservation_.take(file_.GetFullName()))
        return false;
    const FileMode contents = savedPosition_ == nothingSaved ? FileMode::Create | FileMode::Truncate : FileMode{};
    stream_.setBufferSize(bufferSize_);
    stream_.open(file_.GetFullName(), FileMode::Read | FileMode::Write | FileMode::Exclusive | contents);
    stream_.setf(std::ios_base::scientific, std::ios_base::floatfield);
    return stream_.good();
}

void StreamSectionImpl::open()
{
    constexpr int mostAttempts = 10;
    constexpr std::chrono::milliseconds firstWait(500);
    int attempts = 0;
    bool clean = tryOpen();
    while (!clean && attempts < mostAttempts) {
        ++attempts;
        clean = tryOpen();
        if (!clean)
            waitForRetry(attempts * firstWait);
    }
    if (!clean || !goToSavedPosition())
        failOpen(attempts);
}

/// A shorter file isn't what this section wrote, and going on behind its end would leave a gap of zeros.
bool StreamSectionImpl::goToSavedPosition()
{
    if (savedPosition_ == nothingSaved)
        return true;
    stream_.seekp(0, std::ios_base::end);
    if (stream_.tellp() < savedPosition_)
        return false;
    stream_.seekp(savedPosition_);
    return stream_.good();
}

void StreamSectionImpl::failOpen(int attempts)
{
    stream_.close();
    if (savedPosition_ == nothingSaved)
        reservation_.release();
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
    if (!reservation_.take(file_.GetFullName()))
        return;
    // A section of this name in another process may have taken the file over since it was closed here, or may do so as
    // soon as the name is free. The lock keeps others out until the file is gone.
    using Service::FileMode;
    const Service::FileStream lock(file_.GetFullName(), FileMode::Read | FileMode::Write | FileMode::Exclusive);
    const std::error_code reason = lock.lastError();
    if (reason != std::errc::operation_would_block && reason != std::errc::no_such_file_or_directory) {
        try {
            Service::FileUtils::Remove(file_);
            savedPosition_ = nothingSaved;
        } catch (const std::exception&) {
            // The file stays, and with it the place where writing may go on.
        }
    }
    if (savedPosition_ == nothingSaved)
        reservation_.release();
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

void StreamSection::setBufferSize(int bytes)
{
    impl_->setBufferSize(bytes);
}

} // namespace Kvt::Mrl::MrlIO
