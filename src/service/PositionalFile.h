#pragma once

#include <cstddef>
#include <cstdint>

namespace Kvt::Mrl::Core::Service {
/// A plain file that is read by position: one descriptor, no position of its own, no buffer. It never throws; what goes
/// wrong is reported by results. The descriptor isn't inherited by child processes.
class PositionalFile
{
public:
    PositionalFile() = default;

    explicit PositionalFile(const char* path) { open(path); }

    PositionalFile(PositionalFile&& other) noexcept;
    PositionalFile& operator=(PositionalFile&& other) noexcept;

    ~PositionalFile() { close(); }

    /// Closes what was open and opens path for reading. False, with errno set, if there is no such file, it can't be
    /// read, or it isn't a plain file: a folder or a pipe doesn't open.
    bool open(const char* path);
    void close() noexcept;

    bool isOpen() const { return descriptor_ >= 0; }

    /// Reads up to count bytes at offset and gives how many there were: fewer than count only at the end of the file,
    /// -1 if the system refuses. Interrupted and short reads of the system are carried on.
    std::int64_t readAt(char* bytes, std::size_t count, std::int64_t offset) const;

    /// The present length in bytes, -1 if it can't be told.
    std::int64_t size() const;

    /// What the system says of the file now. Two equal stamps mean that nobody wrote between them, down to the
    /// resolution of the file system's clock.
    struct Stamp
    {
        std::int64_t size = -1;
        std::int64_t changeSeconds = 0;
        std::int64_t changeNanoseconds = 0;
        bool operator==(const Stamp&) const = default;
    };

    Stamp stamp() const;

private:
    int descriptor_ = -1;
};
} // namespace Kvt::Mrl::Core::Service
