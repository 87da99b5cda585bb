#pragma once

#include <cstdint>

namespace Kvt::Mrl::Core::Service {
/// Raw reading of a binary file at any place. The order of the operations is part of the contract.
///
/// Nothing is thrown. A failure shows in good(), which stays false until the next seek; reads in between do nothing.
class BinaryFileReader
{
public:
    /// Closes the file.
    virtual ~BinaryFileReader() = default;
    /// Goes to a byte offset and forgets an earlier failure. A place behind the end is fine, reading there isn't; only
    /// a negative offset fails.
    virtual void seekg(const std::int64_t& offset) = 0;
    /// The byte offset of the next read.
    virtual std::int64_t tellg() const = 0;
    /// Reads exactly count bytes and moves on behind them, or fails and stays where it is.
    virtual void read(char* bytes, int count) = 0;
    /// False if the file didn't open or the last operation failed.
    virtual bool good() const = 0;
    /// True if a read came to the end of the file since the last seek.
    virtual bool eof() const = 0;

protected:
    BinaryFileReader() = default;
    BinaryFileReader(const BinaryFileReader&) = delete;
    BinaryFileReader& operator=(const BinaryFileReader&) = delete;
};
} // namespace Kvt::Mrl::Core::Service
