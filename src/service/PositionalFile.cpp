#include "service/PositionalFile.h"

#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

namespace Kvt::Mrl::Core::Service {
namespace {
constexpr std::size_t largestRead = std::size_t{1} << 30; // the system cuts requests a little below 2 GiB anyway

int openRetrying(const char* path)
{
    int descriptor = -1;
    do {
        // Opening a pipe must not wait for its writer; a plain file takes no notice of O_NONBLOCK.
        descriptor = ::open(path, O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY);
    } while (descriptor < 0 && errno == EINTR);
    return descriptor;
}

bool isPlainFile(int descriptor)
{
    struct stat status;
    if (::fstat(descriptor, &status) != 0)
        return false;
    if (S_ISREG(status.st_mode))
        return true;
    errno = S_ISDIR(status.st_mode) ? EISDIR : EINVAL;
    return false;
}
} // namespace

PositionalFile::PositionalFile(PositionalFile&& other) noexcept : descriptor_(std::exchange(other.descriptor_, -1)) {}

PositionalFile& PositionalFile::operator=(PositionalFile&& other) noexcept
{
    if (this != &other) {
        close();
        descriptor_ = std::exchange(other.descriptor_, -1);
    }
    return *this;
}

bool PositionalFile::open(const char* path)
{
    close();
    descriptor_ = openRetrying(path);
    if (descriptor_ < 0 || isPlainFile(descriptor_))
        return descriptor_ >= 0;
    const int reason = errno;
    close();
    errno = reason;
    return false;
}

void PositionalFile::close() noexcept
{
    if (descriptor_ >= 0)
        ::close(std::exchange(descriptor_, -1));
}

std::int64_t PositionalFile::readAt(char* bytes, std::size_t count, std::int64_t offset) const
{
    std::size_t done = 0;
    while (done < count) {
        const std::size_t wanted = std::min(count - done, largestRead);
        const ssize_t got = ::pread(descriptor_, bytes + done, wanted, offset + static_cast<std::int64_t>(done));
        if (got == 0)
            break;
        if (got > 0)
            done += static_cast<std::size_t>(got);
        else if (errno != EINTR)
            return -1;
    }
    return static_cast<std::int64_t>(done);
}

std::int64_t PositionalFile::size() const
{
    return stamp().size;
}

PositionalFile::Stamp PositionalFile::stamp() const
{
    struct stat status;
    if (::fstat(descriptor_, &status) != 0)
        return {};
    return {status.st_size, status.st_ctim.tv_sec, status.st_ctim.tv_nsec};
}
} // namespace Kvt::Mrl::Core::Service
