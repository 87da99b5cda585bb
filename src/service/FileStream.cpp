#include "service/FileStream.h"

#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <locale>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

// The life of the file: opening, locking, cutting back, closing. The buffer stands in FileStreamBuf.cpp.

namespace Kvt::Mrl::Core::Service {
namespace {
constexpr mode_t newFileMode = 0666;

int openFlags(FileMode mode)
{
    const bool writes = has(mode, FileMode::Write);
    int flags = O_CLOEXEC | O_NOCTTY;
    flags |= writes ? (has(mode, FileMode::Read) ? O_RDWR : O_WRONLY) : O_RDONLY;
    if (has(mode, FileMode::Create))
        flags |= O_CREAT;
    if (has(mode, FileMode::New))
        flags |= O_EXCL;
    return flags;
}

// A file system without locks is no reason to refuse the file.
bool lockExclusively(int descriptor)
{
    int result = 0;
    do {
        result = ::flock(descriptor, LOCK_EX | LOCK_NB);
    } while (result != 0 && errno == EINTR);
    return result == 0 || errno != EWOULDBLOCK;
}
} // namespace

FileStreamBuf::~FileStreamBuf()
{
    close();
}

bool FileStreamBuf::open(const std::string& path, FileMode mode)
{
    if (isOpen())
        return false;
    lastError_.clear();
    errno = EINVAL; // for a name that the system would see cut short
    return note(path.find('\0') == std::string::npos && openDescriptor(path, mode) && prepareFile(mode));
}

bool FileStreamBuf::openDescriptor(const std::string& path, FileMode mode)
{
    do {
        descriptor_ = ::open(path.c_str(), openFlags(mode), newFileMode);
    } while (descriptor_ < 0 && errno == EINTR);
    mode_ = mode;
    start_ = 0;
    return isOpen();
}

bool FileStreamBuf::prepareFile(FileMode mode)
{
    struct stat status;
    bool ready = ::fstat(descriptor_, &status) == 0;
    if (ready && S_ISDIR(status.st_mode)) {
        errno = EISDIR;
        ready = false;
    }
    ready = ready && (!has(mode, FileMode::Exclusive) || lockNamedFile());
    if (ready && has(mode, FileMode::Truncate) && S_ISREG(status.st_mode))
        ready = ::ftruncate(descriptor_, 0) == 0;
    else if (ready && has(mode, FileMode::AtEnd))
        ready = (start_ = fileSize()) >= 0; // asked again: the former owner may have written until the lock came
    if (ready)
        return true;
    const int reason = errno;
    ::close(std::exchange(descriptor_, -1));
    errno = reason;
    return false;
}

// The former owner of the lock may have deleted the file since it was opened here. What is written to a file without a
// name is lost, so that doesn't count as open.
bool FileStreamBuf::lockNamedFile()
{
    struct stat status;
    if (!lockExclusively(descriptor_) || ::fstat(descriptor_, &status) != 0)
        return false;
    errno = ENOENT;
    return status.st_nlink > 0;
}

bool FileStreamBuf::close() noexcept
{
    if (!isOpen())
        return false;
    bool success = flush();
    // Some file systems report a full disk only here.
    if (::close(std::exchange(descriptor_, -1)) != 0 && errno != EINTR)
        success = note(false);
    leaveSideAt(0);
    buffer_.reset();
    capacity_ = 0;
    return success;
}

bool FileStreamBuf::truncateTo(std::int64_t length)
{
    if (!isOpen() || length < 0)
        return false;
    if (side_ == Side::Writing && length < position()) {
        const std::int64_t kept = std::max<std::int64_t>(0, length - start_);
        pbump(static_cast<int>(kept - (pptr() - pbase())));
    }
    if (!flush())
        return false;
    const std::int64_t present = fileSize();
    if (present < length)
        return present < 0 ? note(false) : false;
    if (!note(::ftruncate(descriptor_, length) == 0))
        return false;
    leaveSideAt(length);
    return true;
}

std::int64_t FileStreamBuf::fileSize() const
{
    struct stat status;
    return ::fstat(descriptor_, &status) == 0 ? static_cast<std::int64_t>(status.st_size) : -1;
}

FileStream::FileStream() : std::iostream(nullptr)
{
    rdbuf(&buffer_);
    imbue(std::locale::classic());
}

FileStream::FileStream(const std::string& path, FileMode mode) : FileStream()
{
    open(path, mode);
}

FileStream::~FileStream() = default;

void FileStream::open(const std::string& path, FileMode mode)
{
    if (buffer_.open(path, mode))
        clear();
    else
        setstate(std::ios_base::failbit);
}

void FileStream::close()
{
    if (!buffer_.close())
        setstate(std::ios_base::failbit);
}

bool FileStream::truncateTo(std::int64_t length)
{
    const bool success = buffer_.truncateTo(length);
    if (success)
        clear();
    else
        setstate(std::ios_base::failbit);
    return success;
}

void FileStream::copyFrom(FileStreamBuf& source, std::int64_t count)
{
    if (!buffer_.copyFrom(source, count))
        setstate(std::ios_base::failbit);
}
} // namespace Kvt::Mrl::Core::Service
