#pragma once

#include <cstdint>
#include <string>

namespace Kvt::Mrl::MrlIO {

/// CRC-32 (reflected, polynomial 0x04C11DB7, initial value and final complement all ones) of a file's bytes, read piece
/// by piece. 0xFFFFFFFF if the file can't be read.
std::uint32_t crc32OfFile(const std::string& path);

} // namespace Kvt::Mrl::MrlIO
