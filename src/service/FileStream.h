#pragma once

#include <cstddef>
#include <cstdint>
#include <iostream>
#include <memory>
#include <streambuf>
#include <string>
#include <system_error>

namespace Kvt::Mrl::Core::Service {
/// How FileStream opens a file; combine with |.
enum class FileMode : unsigned
{
    Read = 1,       ///< may be read; the file must exist unless Create says otherwise
    Write = 2,      ///< may be written
    Create = 4,     ///< a missing file is made
    Truncate = 8,   ///< what is in the file goes
    AtEnd = 16,     ///< the first position is the end of the file and not its start
    Exclusive = 32, ///< the file is locked (flock) while it is open; one that somebody else locked doesn't open
    New = 64        ///< with Create: nothing of that name may be there, not even a link to nothing
};

constexpr FileMode operator|(FileMode a, FileMode b)
{
    return static_cast<FileMode>(static_cast<unsigned>(a) | static_cast<unsigned>(b));
}

constexpr bool has(FileMode modes, FileMode one)
{
    return (static_cast<unsigned>(modes) & static_cast<unsigned>(one)) != 0;
}

/// Stream buffer over the descriptor of a file, with a buffer of its own that goes to the system in pieces of 1 MiB.
/// (The standard file buffer hands anything of 1 KiB or more straight on, so that each record of an array costs a
/// system call.)
///
/// Reading and writing share one position. Bytes reach the file when the buffer is full and at sync, a seek, a change
/// to reading, and close. Bytes that the system doesn't take stay in the buffer, so that a later attempt may succeed.
/// Memory: 16 KiB at the first access, 1 MiB for streams that need more. pubsetbuf(nullptr, size) in front of open sets
/// a lower limit, for later openings, too, and a size below 1 takes it back; it is refused (null) while a file is open.
/// Larger sizes mean 1 MiB, since pieces that leave the processor's cache are written slower.
class FileStreamBuf : public std::streambuf
{
public:
    FileStreamBuf() = default;
    FileStreamBuf(const FileStreamBuf&) = delete;
    FileStreamBuf& operator=(const FileStreamBuf&) = delete;
    /// Closes; what can't be written is lost without a word. Call close() to learn of it.
    ~FileStreamBuf() override;

    /// False, with the reason in lastError(), if the file can't be opened so or this buffer is open already. The lock
    /// is taken before anything is truncated.
    bool open(const std::string& path, FileMode mode);

    bool isOpen() const { return descriptor_ >= 0; }

    /// Writes what is left and closes the file in any case. False if it wasn't open or something couldn't be written.
    bool close() noexcept;

    /// Cuts the file back to its first length bytes and goes to its new end. Bytes that wait in the buffer behind that
    /// place are dropped, not written, so that it works on a full disk. False if the file is shorter than that, or the
    /// system refuses.
    bool truncateTo(std::int64_t length);

    /// Room for the next count bytes in the buffer itself, for those who would otherwise make them elsewhere and have
    /// them copied; null if there isn't so much at the moment. What is put there counts from accept(count) on, which is
    /// the very next thing to call.
    char* room(std::size_t count);

    void accept(std::size_t count) { pbump(static_cast<int>(count)); }

    /// Writes the next count bytes of source, which the system copies from file to file where it can. Both positions end
    /// behind what was copied. False if source holds less, or can't be read or written.
    bool copyFrom(FileStreamBuf& source, std::int64_t count);

    /// The reason of the last failure of the system; empty if there was none since open.
    std::error_code lastError() const { return lastError_; }

protected:
    int_type underflow() override;
    int_type overflow(int_type c) override;
    std::streamsize xsgetn(char* bytes, std::streamsize count) override;
    std::streamsize xsputn(const char* bytes, std::streamsize count) override;
    pos_type seekoff(off_type offset, std::ios_base::seekdir from, std::ios_base::openmode) override;
    pos_type seekpos(pos_type position, std::ios_base::openmode) override;
    int sync() override;
    std::streambuf* setbuf(char* ignored, std::streamsize size) override;

private:
    static constexpr int largestCapacity = 1024 * 1024;

    enum class Side
    {
        None,
        Reading,
        Writing
    };

    bool openDescriptor(const std::string& path, FileMode mode);
    bool prepareFile(FileMode mode);
    bool lockNamedFile();
    std::int64_t position() const;
    std::int64_t fileSize() const;
    std::size_t waiting() const;
    bool startReading();
    bool startWriting();
    bool moveTo(std::int64_t target);
    void leaveSideAt(std::int64_t target);
    bool flush();
    bool writeOut(const char* bytes, std::size_t count, std::size_t& done);
    bool makeRoom();
    std::size_t firstCapacity() const;
    bool ensureBuffer(std::size_t size);
    bool note(bool success);
    std::int64_t copyInSystem(FileStreamBuf& source, std::int64_t count);
    bool copyThroughBuffer(FileStreamBuf& source, std::int64_t count);

    int descriptor_ = -1;
    FileMode mode_{};
    Side side_ = Side::None;
    std::int64_t start_ = 0; // offset in the file of the buffer's first byte; the position when side_ is None
    std::unique_ptr<char[]> buffer_;
    std::size_t capacity_ = 0;
    std::size_t fullCapacity_ = largestCapacity;
    std::error_code lastError_;
};

/// A file as a standard stream over a FileStreamBuf, for reading, writing or both. Numbers are formatted in the classic
/// locale whatever the process has set. Failures show in the stream's state as usual; the destructor closes and never
/// throws.
class FileStream : public std::iostream
{
public:
    FileStream();
    /// Opens at once; see open.
    FileStream(const std::string& path, FileMode mode);
    ~FileStream() override;

    /// Limits the buffer of later openings; below 1, or above 1 MiB, stands for 1 MiB. Has no effect on a file that is
    /// open.
    void setBufferSize(int size) { buffer_.pubsetbuf(nullptr, size); }

    /// Clears the state on success and sets failbit otherwise.
    void open(const std::string& path, FileMode mode);

    bool is_open() const { return buffer_.isOpen(); }

    /// Sets failbit if the stream wasn't open or something couldn't be written. The file is closed in any case.
    void close();

    /// FileStreamBuf::truncateTo; the stream's state is cleared on success, and has failbit otherwise.
    bool truncateTo(std::int64_t length);

    /// FileStreamBuf::copyFrom, which sets failbit if it fails.
    void copyFrom(FileStreamBuf& source, std::int64_t count);

    std::error_code lastError() const { return buffer_.lastError(); }

private:
    FileStreamBuf buffer_;
};
} // namespace Kvt::Mrl::Core::Service
