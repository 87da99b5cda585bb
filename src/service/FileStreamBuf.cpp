#include "service/FileStream.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <limits>
#include <new>
#include <unistd.h>
#include <utility>

namespace Kvt::Mrl::Core::Service {
std::streambuf* FileStreamBuf::setbuf(char* /*ignored*/, std::streamsize size)
{
    if (isOpen())
        return nullptr;
    const bool isLimit = size > 0 && size < largestCapacity;
    fullCapacity_ = isLimit ? static_cast<std::size_t>(size) : largestCapacity;
    return this;
}

std::size_t FileStreamBuf::firstCapacity() const
{
    return std::min<std::size_t>(16 * 1024, fullCapacity_);
}

std::int64_t FileStreamBuf::position() const
{
    switch (side_) {
    case Side::Reading:
        return start_ + (gptr() - eback());
    case Side::Writing:
        return start_ + (pptr() - pbase());
    default:
        return start_;
    }
}

std::size_t FileStreamBuf::waiting() const
{
    return side_ == Side::Writing ? static_cast<std::size_t>(pptr() - pbase()) : 0;
}

bool FileStreamBuf::startReading()
{
    if (side_ == Side::Reading)
        return true;
    if (!isOpen() || !has(mode_, FileMode::Read) || !flush() || !ensureBuffer(firstCapacity()))
        return false;
    setp(nullptr, nullptr);
    setg(buffer_.get(), buffer_.get(), buffer_.get());
    side_ = Side::Reading;
    return true;
}

bool FileStreamBuf::startWriting()
{
    if (side_ == Side::Writing)
        return true;
    if (!isOpen() || !has(mode_, FileMode::Write) || !ensureBuffer(firstCapacity()))
        return false;
    start_ = position();
    setg(nullptr, nullptr, nullptr);
    setp(buffer_.get(), buffer_.get() + capacity_);
    side_ = Side::Writing;
    return true;
}

bool FileStreamBuf::moveTo(std::int64_t target)
{
    if (target == position())
        return true;
    if (side_ == Side::Reading && target >= start_ && target <= start_ + (egptr() - eback())) {
        setg(eback(), eback() + (target - start_), egptr());
        return true;
    }
    if (!flush())
        return false;
    leaveSideAt(target);
    return true;
}

// Forgets what the buffer holds.
void FileStreamBuf::leaveSideAt(std::int64_t target)
{
    setg(nullptr, nullptr, nullptr);
    setp(nullptr, nullptr);
    side_ = Side::None;
    start_ = target;
}

// Sends what waits to the system. What can't be sent stays in front of the buffer.
bool FileStreamBuf::flush()
{
    const std::size_t count = waiting();
    if (count == 0)
        return true;
    std::size_t done = 0;
    const bool success = writeOut(pbase(), count, done);
    const std::size_t left = count - done;
    if (left > 0)
        std::memmove(buffer_.get(), buffer_.get() + done, left);
    setp(buffer_.get(), buffer_.get() + capacity_);
    pbump(static_cast<int>(left));
    return success;
}

bool FileStreamBuf::writeOut(const char* bytes, std::size_t count, std::size_t& done)
{
    while (done < count) {
        const ssize_t sent = ::pwrite(descriptor_, bytes + done, count - done, start_);
        if (sent > 0) {
            done += static_cast<std::size_t>(sent);
            start_ += sent;
        } else if (sent == 0) {
            errno = EIO;
            return note(false);
        } else if (errno != EINTR) {
            return note(false);
        }
    }
    return true;
}

// Space for at least one more byte: the buffer grows once, after that it is written out.
bool FileStreamBuf::makeRoom()
{
    if (pptr() < epptr())
        return true;
    if (capacity_ < fullCapacity_ && ensureBuffer(fullCapacity_))
        return true;
    return flush();
}

bool FileStreamBuf::ensureBuffer(std::size_t size)
{
    if (capacity_ >= size)
        return true;
    std::unique_ptr<char[]> larger(new (std::nothrow) char[size]);
    if (larger == nullptr) {
        errno = ENOMEM;
        return note(false);
    }
    const std::size_t kept = waiting();
    if (kept > 0)
        std::memcpy(larger.get(), buffer_.get(), kept);
    if (side_ == Side::Writing) {
        setp(larger.get(), larger.get() + size);
        pbump(static_cast<int>(kept));
    } else if (side_ == Side::Reading) {
        start_ = position();
        setg(larger.get(), larger.get(), larger.get());
    }
    buffer_ = std::move(larger);
    capacity_ = size;
    return true;
}

bool FileStreamBuf::note(bool success)
{
    if (!success)
        lastError_.assign(errno, std::generic_category());
    return success;
}

FileStreamBuf::int_type FileStreamBuf::underflow()
{
    if (!startReading())
        return traits_type::eof();
    if (gptr() < egptr())
        return traits_type::to_int_type(*gptr());
    // A full buffer was read through: the reader goes on in large pieces from here.
    if (egptr() - eback() == static_cast<std::ptrdiff_t>(firstCapacity()))
        ensureBuffer(fullCapacity_);
    start_ = position();
    setg(buffer_.get(), buffer_.get(), buffer_.get());
    ssize_t got = 0;
    do {
        got = ::pread(descriptor_, buffer_.get(), capacity_, start_);
    } while (got < 0 && errno == EINTR);
    if (got <= 0) {
        note(got == 0);
        return traits_type::eof();
    }
    setg(buffer_.get(), buffer_.get(), buffer_.get() + got);
    return traits_type::to_int_type(*gptr());
}

std::streamsize FileStreamBuf::xsgetn(char* bytes, std::streamsize count)
{
    std::streamsize done = 0;
    while (done < count && !traits_type::eq_int_type(underflow(), traits_type::eof())) {
        const std::streamsize ready = std::min<std::streamsize>(egptr() - gptr(), count - done);
        std::memcpy(bytes + done, gptr(), static_cast<std::size_t>(ready));
        gbump(static_cast<int>(ready));
        done += ready;
    }
    return done;
}

FileStreamBuf::int_type FileStreamBuf::overflow(int_type c)
{
    if (!startWriting() || !makeRoom())
        return traits_type::eof();
    if (!traits_type::eq_int_type(c, traits_type::eof())) {
        *pptr() = traits_type::to_char_type(c);
        pbump(1);
    }
    return traits_type::not_eof(c);
}

std::streamsize FileStreamBuf::xsputn(const char* bytes, std::streamsize count)
{
    if (count <= 0 || !startWriting())
        return 0;
    std::streamsize done = 0;
    while (done < count) {
        if (!makeRoom())
            break;
        const auto left = static_cast<std::size_t>(count - done);
        if (left >= fullCapacity_ && waiting() == 0) {
            std::size_t sent = 0;
            writeOut(bytes + done, left, sent);
            return done + static_cast<std::streamsize>(sent);
        }
        const std::streamsize ready = std::min<std::streamsize>(epptr() - pptr(), count - done);
        std::memcpy(pptr(), bytes + done, static_cast<std::size_t>(ready));
        pbump(static_cast<int>(ready));
        done += ready;
    }
    return done;
}

char* FileStreamBuf::room(std::size_t count)
{
    const bool hasRoom = startWriting() && static_cast<std::size_t>(epptr() - pptr()) >= count;
    return hasRoom ? pptr() : nullptr;
}

bool FileStreamBuf::copyFrom(FileStreamBuf& source, std::int64_t count)
{
    if (!source.isOpen() || !source.flush() || !startWriting() || !flush())
        return false;
    const std::int64_t copied = copyInSystem(source, count);
    return copyThroughBuffer(source, count - copied);
}

/// The system may not copy these files, or not all at once, so whatever ends this is no failure yet.
std::int64_t FileStreamBuf::copyInSystem(FileStreamBuf& source, std::int64_t count)
{
    off64_t from = source.position();
    off64_t to = position();
    std::int64_t left = count;
    while (left > 0) {
        const ssize_t copied =
            ::copy_file_range(source.descriptor_, &from, descriptor_, &to, static_cast<std::size_t>(left), 0);
        if (copied == 0 || (copied < 0 && errno != EINTR))
            break;
        left -= std::max<ssize_t>(copied, 0);
    }
    source.leaveSideAt(from);
    leaveSideAt(to);
    return count - left;
}

bool FileStreamBuf::copyThroughBuffer(FileStreamBuf& source, std::int64_t count)
{
    while (count > 0 && !traits_type::eq_int_type(source.underflow(), traits_type::eof())) {
        const std::streamsize ready = std::min<std::streamsize>(source.egptr() - source.gptr(), count);
        if (xsputn(source.gptr(), ready) != ready)
            return false;
        source.gbump(static_cast<int>(ready));
        count -= ready;
    }
    return count == 0;
}

FileStreamBuf::pos_type FileStreamBuf::seekoff(off_type offset, std::ios_base::seekdir from, std::ios_base::openmode)
{
    const pos_type failure{off_type(-1)};
    if (!isOpen())
        return failure;
    std::int64_t base = 0;
    if (from == std::ios_base::cur) {
        base = position();
    } else if (from == std::ios_base::end) {
        if (!flush() || !note((base = fileSize()) >= 0))
            return failure;
    }
    if (offset > std::numeric_limits<std::int64_t>::max() - base || base + offset < 0 || !moveTo(base + offset))
        return failure;
    return pos_type(position());
}

FileStreamBuf::pos_type FileStreamBuf::seekpos(pos_type position, std::ios_base::openmode which)
{
    return seekoff(off_type(position), std::ios_base::beg, which);
}

int FileStreamBuf::sync()
{
    if (side_ == Side::Reading) { // what was read ahead may be out of date when the reader goes on
        start_ = position();
        setg(buffer_.get(), buffer_.get(), buffer_.get());
    }
    return flush() ? 0 : -1;
}
} // namespace Kvt::Mrl::Core::Service
