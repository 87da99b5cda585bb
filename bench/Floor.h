#pragma once

/// \file
/// What the floors are made of: plain system calls, byte swaps, and hand-written keyword files. Nothing of the library.

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace bench {

constexpr std::size_t windowSize = 256 * 1024;
constexpr std::size_t writeSize = 1024 * 1024;
constexpr std::size_t blockLength = 1000;

/// A folder for the files of one program, removed at the end.
class Folder
{
public:
    explicit Folder(const std::string& parent);
    ~Folder();
    Folder(const Folder&) = delete;
    Folder& operator=(const Folder&) = delete;

    std::string file(const std::string& name) const { return path_ + "/" + name; }

    const std::string& path() const { return path_; }

private:
    std::string path_;
};

/// Where files are read from: the folder for temporary files, or what MRLIO_BENCH_DIR names. Its pages are warm, since
/// the program has just written them.
const Folder& folder();

/// Where files are written: in memory if the system has such a place, since a disk that writes back at some moment or
/// another would be all that is measured.
const Folder& writeFolder();

/// A descriptor that closes itself; the program ends with a message if the file can't be opened.
class Descriptor
{
public:
    Descriptor(const std::string& path, int flags);
    ~Descriptor();
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;

    int number() const { return number_; }

private:
    int number_;
};

/// Swaps the bytes of 32-bit numbers on the way, by the widest instructions of the machine.
void swapCopy(const char* from, char* to, std::size_t count);

inline std::uint32_t swapped(std::uint32_t value)
{
    return __builtin_bswap32(value);
}

/// Numbers that look like results.
std::vector<float> someValues(std::size_t count);

/// Collects bytes in a buffer of writeSize and writes it out when it is full.
class HandWriter
{
public:
    explicit HandWriter(const std::string& path);
    ~HandWriter();

    void integer(std::int32_t value);
    void text(const char* characters, std::size_t count);
    void header(const char* name, std::int32_t count, const char* type);
    void reals(const float* values, std::size_t count);
    void keyword(const char* name, const std::vector<std::int32_t>& values);
    void texts(const char* name, const std::vector<std::string>& values);
    void doubles(const char* name, const std::vector<double>& values);
    void finish();

private:
    char* room(std::size_t bytes);

    Descriptor file_;
    std::vector<char> buffer_;
    std::size_t used_ = 0;
};

/// Reads through a window of windowSize, in jumps forward.
class HandReader
{
public:
    explicit HandReader(const std::string& path);

    /// The next bytes at a position, or null at the end of the file.
    const char* at(std::int64_t position, std::size_t bytes);
    std::int32_t integerAt(std::int64_t position);

private:
    Descriptor file_;
    std::vector<char> window_;
    std::int64_t begin_ = 0, end_ = 0;
};

} // namespace bench
