#include "summary/FileChecksum.h"

#include "service/PositionalFile.h"

#include <mrlio/service/Namespaces.h>

#include <array>
#include <cstddef>
#include <vector>

namespace Kvt::Mrl::MrlIO {

namespace {

constexpr std::uint32_t unreadable = 0xFFFFFFFFu;
constexpr std::uint32_t reflectedPolynomial = 0xEDB88320u;
constexpr std::size_t pieceSize = 256 * 1024;
constexpr std::size_t lanes = 8; // bytes taken at once

using Tables = std::array<std::array<std::uint32_t, 256>, lanes>;

/// tables[0] is the usual table of one byte; tables[k] is its effect k bytes further on.
constexpr Tables makeTables()
{
    Tables tables{};
    for (std::uint32_t byte = 0; byte < 256; ++byte) {
        std::uint32_t crc = byte;
        for (int bit = 0; bit < 8; ++bit)
            crc = (crc >> 1) ^ ((crc & 1u) ? reflectedPolynomial : 0u);
        tables[0][byte] = crc;
    }
    for (std::size_t lane = 1; lane < lanes; ++lane) {
        for (std::size_t byte = 0; byte < 256; ++byte) {
            const std::uint32_t before = tables[lane - 1][byte];
            tables[lane][byte] = (before >> 8) ^ tables[0][before & 0xFFu];
        }
    }
    return tables;
}

constexpr Tables tables = makeTables();

std::uint32_t addBytes(std::uint32_t crc, const char* bytes, std::size_t count)
{
    const auto byteAt = [bytes](std::size_t i) {
        return static_cast<std::uint32_t>(static_cast<unsigned char>(bytes[i]));
    };
    std::size_t i = 0;
    for (; i + lanes <= count; i += lanes) {
        crc ^= byteAt(i) | byteAt(i + 1) << 8 | byteAt(i + 2) << 16 | byteAt(i + 3) << 24;
        crc = tables[7][crc & 0xFFu] ^ tables[6][(crc >> 8) & 0xFFu] ^ tables[5][(crc >> 16) & 0xFFu] ^
              tables[4][crc >> 24] ^ tables[3][byteAt(i + 4)] ^ tables[2][byteAt(i + 5)] ^ tables[1][byteAt(i + 6)] ^
              tables[0][byteAt(i + 7)];
    }
    for (; i < count; ++i)
        crc = (crc >> 8) ^ tables[0][(crc ^ byteAt(i)) & 0xFFu];
    return crc;
}

} // namespace

std::uint32_t crc32OfFile(const std::string& path)
{
    const Service::PositionalFile file(path.c_str());
    if (!file.isOpen())
        return unreadable;
    std::vector<char> piece(pieceSize);
    std::uint32_t crc = 0xFFFFFFFFu;
    std::int64_t offset = 0;
    for (;;) {
        const std::int64_t got = file.readAt(piece.data(), piece.size(), offset);
        if (got < 0)
            return unreadable;
        crc = addBytes(crc, piece.data(), static_cast<std::size_t>(got));
        if (static_cast<std::size_t>(got) < piece.size())
            return ~crc;
        offset += got;
    }
}

} // namespace Kvt::Mrl::MrlIO
