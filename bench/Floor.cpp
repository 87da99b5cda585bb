#include "Floor.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <bit>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>

namespace bench {

namespace {

[[noreturn]] void giveUp(const std::string& what)
{
    std::perror(what.c_str());
    std::exit(1);
}

std::string readParent()
{
    const char* wanted = std::getenv("MRLIO_BENCH_DIR");
    return wanted != nullptr ? wanted : std::filesystem::temp_directory_path().string();
}

std::string writeParent()
{
    return ::access("/dev/shm", W_OK) == 0 ? "/dev/shm" : readParent();
}

#if defined(__x86_64__)
[[gnu::target("avx2")]] void swapCopyWide(const std::uint32_t* from, std::uint32_t* to, std::size_t count)
{
    for (std::size_t n = 0; n < count; ++n)
        to[n] = __builtin_bswap32(from[n]);
}
#endif

void swapCopyPlain(const std::uint32_t* from, std::uint32_t* to, std::size_t count)
{
    for (std::size_t n = 0; n < count; ++n)
        to[n] = __builtin_bswap32(from[n]);
}

} // namespace

Folder::Folder(const std::string& parent)
{
    std::string pattern = parent + "/mrlio-bench-XXXXXX";
    if (::mkdtemp(pattern.data()) == nullptr)
        giveUp(pattern);
    path_ = pattern;
}

Folder::~Folder()
{
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
}

const Folder& folder()
{
    static const Folder instance(readParent());
    return instance;
}

const Folder& writeFolder()
{
    static const Folder instance(writeParent());
    return instance;
}

Descriptor::Descriptor(const std::string& path, int flags) : number_(::open(path.c_str(), flags, 0666))
{
    if (number_ < 0)
        giveUp(path);
}

Descriptor::~Descriptor()
{
    ::close(number_);
}

// Both pointers may stand at any byte; the processors meant here don't mind.
void swapCopy(const char* from, char* to, std::size_t count)
{
    const auto* source = reinterpret_cast<const std::uint32_t*>(from);
    auto* target = reinterpret_cast<std::uint32_t*>(to);
#if defined(__x86_64__)
    static const bool wide = __builtin_cpu_supports("avx2") != 0;
    if (wide)
        return swapCopyWide(source, target, count);
#endif
    swapCopyPlain(source, target, count);
}

std::vector<float> someValues(std::size_t count)
{
    std::vector<float> values(count);
    std::uint32_t state = 12345;
    for (float& value : values) {
        state = state * 1664525U + 1013904223U;
        value = static_cast<float>(state >> 8) / 1048576.0F * 300.0F;
    }
    return values;
}

HandWriter::HandWriter(const std::string& path) : file_(path, O_WRONLY | O_CREAT | O_TRUNC), buffer_(writeSize) {}

HandWriter::~HandWriter()
{
    finish();
}

char* HandWriter::room(std::size_t bytes)
{
    if (used_ + bytes > buffer_.size())
        finish();
    char* place = buffer_.data() + used_;
    used_ += bytes;
    return place;
}

void HandWriter::finish()
{
    for (std::size_t done = 0; done < used_;) {
        const ssize_t written = ::write(file_.number(), buffer_.data() + done, used_ - done);
        if (written < 0)
            giveUp("write");
        done += static_cast<std::size_t>(written);
    }
    used_ = 0;
}

void HandWriter::integer(std::int32_t value)
{
    const std::uint32_t bytes = swapped(static_cast<std::uint32_t>(value));
    std::memcpy(room(4), &bytes, 4);
}

void HandWriter::text(const char* characters, std::size_t count)
{
    char* place = room(count);
    const std::size_t given = std::min(count, std::strlen(characters));
    std::memcpy(place, characters, given);
    std::memset(place + given, ' ', count - given);
}

void HandWriter::header(const char* name, std::int32_t count, const char* type)
{
    integer(16);
    text(name, 8);
    integer(count);
    text(type, 4);
    integer(16);
}

void HandWriter::reals(const float* values, std::size_t count)
{
    for (std::size_t from = 0; from < count; from += blockLength) {
        const std::size_t length = std::min(blockLength, count - from);
        const auto mark = static_cast<std::int32_t>(4 * length);
        integer(mark);
        swapCopy(reinterpret_cast<const char*>(values + from), room(4 * length), length);
        integer(mark);
    }
}

void HandWriter::keyword(const char* name, const std::vector<std::int32_t>& values)
{
    header(name, static_cast<std::int32_t>(values.size()), "INTE");
    for (std::size_t from = 0; from < values.size(); from += blockLength) {
        const std::size_t length = std::min(blockLength, values.size() - from);
        integer(static_cast<std::int32_t>(4 * length));
        for (std::size_t n = 0; n < length; ++n)
            integer(values[from + n]);
        integer(static_cast<std::int32_t>(4 * length));
    }
}

void HandWriter::texts(const char* name, const std::vector<std::string>& values)
{
    constexpr std::size_t textBlock = 105;
    header(name, static_cast<std::int32_t>(values.size()), "CHAR");
    for (std::size_t from = 0; from < values.size(); from += textBlock) {
        const std::size_t length = std::min(textBlock, values.size() - from);
        integer(static_cast<std::int32_t>(8 * length));
        for (std::size_t n = 0; n < length; ++n)
            text(values[from + n].c_str(), 8);
        integer(static_cast<std::int32_t>(8 * length));
    }
}

void HandWriter::doubles(const char* name, const std::vector<double>& values)
{
    header(name, static_cast<std::int32_t>(values.size()), "DOUB");
    for (std::size_t from = 0; from < values.size(); from += blockLength) {
        const std::size_t length = std::min(blockLength, values.size() - from);
        integer(static_cast<std::int32_t>(8 * length));
        for (std::size_t n = 0; n < length; ++n) {
            const auto bits = std::bit_cast<std::uint64_t>(values[from + n]);
            integer(static_cast<std::int32_t>(bits >> 32));
            integer(static_cast<std::int32_t>(bits));
        }
        integer(static_cast<std::int32_t>(8 * length));
    }
}

HandReader::HandReader(const std::string& path) : file_(path, O_RDONLY), window_(windowSize) {}

const char* HandReader::at(std::int64_t position, std::size_t bytes)
{
    if (position < begin_ || position + static_cast<std::int64_t>(bytes) > end_) {
        const ssize_t got = ::pread(file_.number(), window_.data(), window_.size(), position);
        begin_ = position;
        end_ = position + std::max<ssize_t>(got, 0);
        if (end_ - begin_ < static_cast<std::int64_t>(bytes))
            return nullptr;
    }
    return window_.data() + (position - begin_);
}

std::int32_t HandReader::integerAt(std::int64_t position)
{
    std::uint32_t value = 0;
    if (const char* place = at(position, 4))
        std::memcpy(&value, place, 4);
    return static_cast<std::int32_t>(swapped(value));
}

} // namespace bench
