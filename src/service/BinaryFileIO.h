#pragma once

#include "service/BinaryFileReader.h"
#include "service/BufferedBinaryFileReader.h"
#include "service/ByteOrder.h"

#include <iosfwd>

namespace Kvt::Mrl::Core::Service {
/// Big-endian numbers and raw bytes from and to binary files. Each operation gives true on success and never throws by
/// itself; a read gives false also at the end of the file, and what it should have filled is undefined then. Those on a
/// BufferedBinaryFileReader do the same as those on its base class, faster.
class BinaryFileIO
{
public:
    static bool readInt32(BinaryFileReader& reader, int& number);
    static bool readInt32s(BinaryFileReader& reader, int* numbers, int count);
    static bool readFloat32s(BinaryFileReader& reader, float* numbers, int count);
    static bool readFloat64s(BinaryFileReader& reader, double* numbers, int count);
    /// No terminator is added.
    static bool readChars(BinaryFileReader& reader, char* chars, int count);

    static bool readInt32(BufferedBinaryFileReader& reader, int& number)
    {
        const char* bytes = reader.view(sizeof(std::int32_t));
        if (bytes == nullptr)
            return false;
        number = ByteOrder::loadInt32(bytes);
        return true;
    }

    static bool readInt32s(BufferedBinaryFileReader& reader, int* numbers, int count)
    {
        return reader.readNumbers32(numbers, count);
    }

    static bool readFloat32s(BufferedBinaryFileReader& reader, float* numbers, int count)
    {
        return reader.readNumbers32(numbers, count);
    }

    static bool readFloat64s(BufferedBinaryFileReader& reader, double* numbers, int count)
    {
        return reader.readNumbers64(numbers, count);
    }

    static bool readChars(BufferedBinaryFileReader& reader, char* chars, int count)
    {
        reader.read(chars, count);
        return reader.good();
    }

    static bool writeInt32(std::ostream& stream, int number);
    static bool writeFloat32(std::ostream& stream, float number);
    static bool writeFloat64(std::ostream& stream, double number);
    static bool writeInt32s(std::ostream& stream, const int* numbers, int count);
    static bool writeFloat32s(std::ostream& stream, const float* numbers, int count);
    static bool writeFloat64s(std::ostream& stream, const double* numbers, int count);
    static bool writeChars(std::ostream& stream, const char* chars, int count);
};
} // namespace Kvt::Mrl::Core::Service
