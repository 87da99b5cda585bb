#include "service/BinaryFileIO.h"

#include <algorithm>
#include <array>
#include <ostream>
#include <type_traits>

namespace Kvt::Mrl::Core::Service {
namespace {
constexpr int numbersPerRead = 1 << 20;        // keeps the byte count of one read within an int
constexpr std::size_t encodedPieceSize = 8000; // a whole block of either width

void copyBigEndian(void* to, const void* from, std::size_t count, std::integral_constant<std::size_t, 4>)
{
    ByteOrder::copy32(to, from, count);
}

void copyBigEndian(void* to, const void* from, std::size_t count, std::integral_constant<std::size_t, 8>)
{
    ByteOrder::copy64(to, from, count);
}

template <typename Number>
void copyBigEndian(void* to, const void* from, std::size_t count)
{
    copyBigEndian(to, from, count, std::integral_constant<std::size_t, sizeof(Number)>{});
}

template <typename Number>
bool readNumbers(BinaryFileReader& reader, Number* numbers, int count)
{
    if (count < 0 || !reader.good())
        return false;
    while (count > 0) {
        const int piece = std::min(count, numbersPerRead);
        reader.read(reinterpret_cast<char*>(numbers), piece * static_cast<int>(sizeof(Number)));
        if (!reader.good())
            return false;
        copyBigEndian<Number>(numbers, numbers, static_cast<std::size_t>(piece));
        numbers += piece;
        count -= piece;
    }
    return true;
}

template <typename Number>
bool writeNumbers(std::ostream& stream, const Number* numbers, int count)
{
    std::array<char, encodedPieceSize> bytes;
    constexpr int numbersPerPiece = static_cast<int>(encodedPieceSize / sizeof(Number));
    while (count > 0 && stream.good()) {
        const int piece = std::min(count, numbersPerPiece);
        copyBigEndian<Number>(bytes.data(), numbers, static_cast<std::size_t>(piece));
        stream.write(bytes.data(), static_cast<std::streamsize>(sizeof(Number)) * piece);
        numbers += piece;
        count -= piece;
    }
    return count == 0 && stream.good();
}
} // namespace

bool BinaryFileIO::readInt32(BinaryFileReader& reader, int& number)
{
    int value = 0;
    if (!readNumbers(reader, &value, 1))
        return false;
    number = value;
    return true;
}

bool BinaryFileIO::readInt32s(BinaryFileReader& reader, int* numbers, int count)
{
    return readNumbers(reader, numbers, count);
}

bool BinaryFileIO::readFloat32s(BinaryFileReader& reader, float* numbers, int count)
{
    return readNumbers(reader, numbers, count);
}

bool BinaryFileIO::readFloat64s(BinaryFileReader& reader, double* numbers, int count)
{
    return readNumbers(reader, numbers, count);
}

bool BinaryFileIO::readChars(BinaryFileReader& reader, char* chars, int count)
{
    if (count < 0 || !reader.good())
        return false;
    reader.read(chars, count);
    return reader.good();
}

bool BinaryFileIO::writeInt32(std::ostream& stream, int number)
{
    return writeNumbers(stream, &number, 1);
}

bool BinaryFileIO::writeFloat32(std::ostream& stream, float number)
{
    return writeNumbers(stream, &number, 1);
}

bool BinaryFileIO::writeFloat64(std::ostream& stream, double number)
{
    return writeNumbers(stream, &number, 1);
}

bool BinaryFileIO::writeInt32s(std::ostream& stream, const int* numbers, int count)
{
    return writeNumbers(stream, numbers, count);
}

bool BinaryFileIO::writeFloat32s(std::ostream& stream, const float* numbers, int count)
{
    return writeNumbers(stream, numbers, count);
}

bool BinaryFileIO::writeFloat64s(std::ostream& stream, const double* numbers, int count)
{
    return writeNumbers(stream, numbers, count);
}

bool BinaryFileIO::writeChars(std::ostream& stream, const char* chars, int count)
{
    if (count > 0)
        stream.write(chars, count);
    return count >= 0 && stream.good();
}
} // namespace Kvt::Mrl::Core::Service
