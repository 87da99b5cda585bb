#pragma once

#include "service/BinaryFileReader.h"
#include "service/PositionalFile.h"

#include <cstddef>
#include <memory>
#include <new>

namespace Kvt::Mrl::Core::Service {
/// Reads a file through a window that fits itself to the way the file is used.
///
/// Moves inside the window cost nothing, backwards too. A far jump costs one small read of the system, so that walking
/// over large arrays touches headers only. Accesses that follow one another at less than 10 KiB let the window grow to
/// 256 KiB, which is the cheapest way through a file up to that stride. Memory: the window, allocated once.
///
/// A file may grow, shrink or be rewritten meanwhile. What the window doesn't hold is always asked of the file, so
/// growth is seen at once. A change of what it holds is noticed by length() and by a step back of more than 64 bytes:
/// both look at the file's size and time of change, and empty the window if these are new.
///
/// One thread at a time.
class BufferedBinaryFileReader final : public BinaryFileReader
{
public:
    /// The most bytes that view() gives.
    static constexpr int largestView = 4096;

    /// Opens the file. good() is false if that fails, and stays so.
    explicit BufferedBinaryFileReader(const char* path);
    ~BufferedBinaryFileReader() override;

    void seekg(const std::int64_t& offset) override
    {
        if (offset < position_ - freeStepBack && offset >= windowStart_)
            emptyStaleWindow();
        eof_ = false;
        good_ = offset >= 0 && file_.isOpen();
        if (good_)
            position_ = offset;
    }

    std::int64_t tellg() const override { return position_; }

    void read(char* bytes, int count) override;

    bool good() const override { return good_; }

    bool eof() const override { return eof_; }

    /// The next count bytes (1 to largestView) in one piece, and moves on behind them. Null, with good() false and the
    /// place unchanged, if the file doesn't hold them. Valid until the next call of any other operation than tellg,
    /// good and eof.
    const char* view(int count)
    {
        const auto offset = static_cast<std::uint64_t>(position_ - windowStart_);
        const auto wanted = static_cast<std::uint64_t>(count);
        if (offset > windowLength_ || windowLength_ - offset < wanted || !good_) [[unlikely]]
            return viewBeyondWindow(count);
        position_ += count;
        return window_.get() + offset;
    }

    /// Reads count big-endian numbers of 32 or 64 bits into native order at to, of any alignment. False at failure: the
    /// place is unchanged then, and what stands at to is undefined.
    bool readNumbers32(void* to, std::int64_t count);
    bool readNumbers64(void* to, std::int64_t count);

    /// Tells that nearly all of the next count bytes will be wanted. The next read of the system takes as much of them
    /// as the window holds and doesn't begin small. Only a hint: it changes the cost and nothing else.
    void expect(std::int64_t count)
    {
        expectedStart_ = position_;
        expectedLength_ = count > 0 ? count : 0;
    }

    /// Drops what was read ahead, so that the next read asks the file.
    void forget();

    /// The present length of the file in bytes, -1 if it can't be told. Asks the system each time.
    std::int64_t length();

private:
    struct AlignedDelete
    {
        void operator()(char* memory) const { ::operator delete[](memory, std::align_val_t{windowAlignment}); }
    };

    static constexpr std::size_t windowAlignment = 64;
    static constexpr std::int64_t freeStepBack = 64;

    const char* viewBeyondWindow(int count);
    template <typename Copy>
    bool readElements(char* to, std::int64_t count, std::int64_t width, Copy copy);
    bool readPast(char* to, std::int64_t count);
    bool fill(std::int64_t needed, std::int64_t wanted);
    std::int64_t readSize(std::int64_t wanted);
    std::int64_t available() const;
    bool allocateWindow();
    void emptyStaleWindow();
    bool fail(bool atEnd);

    PositionalFile file_;
    std::unique_ptr<char[], AlignedDelete> window_;
    std::int64_t position_ = 0;
    std::int64_t windowStart_ = 0; // offset in the file of the window's first byte
    std::uint64_t windowLength_ = 0;
    std::int64_t expectedStart_ = 0;
    std::int64_t expectedLength_ = 0;
    PositionalFile::Stamp stamp_; // not younger than what the window holds
    std::size_t level_ = 0;       // of the window's growth
    bool good_ = false;
    bool eof_ = false;
};
} // namespace Kvt::Mrl::Core::Service
