#include <mrlio/MorvaneBinaryReader.h>

#include "core/Fail.h"
#include "core/MorvaneBinaryReaderImpl.h"
#include "core/ValueTypeLayout.h"

#include <mrlio/MrlIOException.h>

namespace Kvt::Mrl::MrlIO {

namespace {

constexpr bool accepts(const int*, ValueType::Enum type)
{
    return type == ValueType::INTE || type == ValueType::LOGI;
}

constexpr bool accepts(const float*, ValueType::Enum type)
{
    return type == ValueType::REAL;
}

constexpr bool accepts(const double*, ValueType::Enum type)
{
    return type == ValueType::DOUB;
}

constexpr bool accepts(const std::string*, ValueType::Enum type)
{
    return type == ValueType::CHAR || type == ValueType::MESS || type == ValueType::C0nn;
}

template <class T>
void checkType(const KeywordHeader& header)
{
    const ValueType::Enum type = header.valueType();
    if (accepts(static_cast<const T*>(nullptr), type))
        return;
    if (type < ValueType::DOUB || type > ValueType::C0nn)
        fail<MrlIOException>("Kvt::Mrl::MrlIO::MorvaneBinaryReader::readArrayImpl", ": unhandled type");
    fail<MrlIOException>("Kvt::Mrl::MrlIO::MorvaneBinaryReader::readKeywordData", ": header and data type mismatch");
}

template <class T>
bool readInto(MorvaneBinaryReaderImpl& impl, const KeywordHeader& header, T* out, std::int64_t first, std::int64_t last)
{
    checkType<T>(header);
    impl.readArray(header, out, first, last);
    return true;
}

template <class T>
bool readInto(MorvaneBinaryReaderImpl& impl, const KeywordHeader& header, std::vector<T>& out, std::int64_t first,
              std::int64_t last)
{
    checkType<T>(header);
    impl.readVector(header, out, first, last);
    return true;
}

} // namespace

MorvaneBinaryReader::MorvaneBinaryReader() : impl_(std::make_unique<MorvaneBinaryReaderImpl>(*this)) {}

MorvaneBinaryReader::~MorvaneBinaryReader() = default;

bool MorvaneBinaryReader::eof()
{
    return impl_->eof();
}

bool MorvaneBinaryReader::setFilename(const std::string& fileName)
{
    // The argument may be what getFileName gave, so the stored name goes last.
    const bool isOpen = impl_->open(fileName);
    storeFileName(isOpen ? fileName : std::string());
    return isOpen;
}

void MorvaneBinaryReader::setCurrentHeader(KeywordHeader& header)
{
    impl_->setCurrent(header);
}

bool MorvaneBinaryReader::readNextSingleKeywordHeader(KeywordHeader& header)
{
    return impl_->readNext(header);
}

bool MorvaneBinaryReader::isValidHeader(const KeywordHeader& header)
{
    try {
        impl_->seekToDataAnew(header);
        return true;
    } catch (const MrlIOException&) {
        return false;
    }
}

std::uint64_t MorvaneBinaryReader::computeKeywordStorageSize(ValueType::Enum type, std::uint64_t count)
{
    constexpr std::uint64_t header = 24;
    constexpr std::uint64_t framing = 8;
    if (count == 0)
        return header;
    if (type < ValueType::DOUB || type > ValueType::CHAR)
        fail<MrlIOException>("Kvt::Mrl::MrlIO::MorvaneBinaryReader::computeKeywordStorageSize", ": unhandled type");
    const ValueTypeLayout& layout = valueTypeLayout(type);
    // The last record is counted even if it is empty: kept, since callers allow for it.
    const std::uint64_t records = count / static_cast<std::uint64_t>(layout.blockLength) + 1;
    return count * static_cast<std::uint64_t>(layout.readWidth) + records * framing + header;
}

bool MorvaneBinaryReader::readArray(const KeywordHeader& header, std::string* out, std::int64_t first,
                                    std::int64_t last)
{
    return readInto(*impl_, header, out, first, last);
}

bool MorvaneBinaryReader::readArray(const KeywordHeader& header, float* out, std::int64_t first, std::int64_t last)
{
    return readInto(*impl_, header, out, first, last);
}

bool MorvaneBinaryReader::readArray(const KeywordHeader& header, double* out, std::int64_t first, std::int64_t last)
{
    return readInto(*impl_, header, out, first, last);
}

bool MorvaneBinaryReader::readArray(const KeywordHeader& header, int* out, std::int64_t first, std::int64_t last)
{
    return readInto(*impl_, header, out, first, last);
}

bool MorvaneBinaryReader::readVector(const KeywordHeader& header, std::vector<std::string>& out, std::int64_t first,
                                     std::int64_t last)
{
    return readInto(*impl_, header, out, first, last);
}

bool MorvaneBinaryReader::readVector(const KeywordHeader& header, std::vector<float>& out, std::int64_t first,
                                     std::int64_t last)
{
    return readInto(*impl_, header, out, first, last);
}

bool MorvaneBinaryReader::readVector(const KeywordHeader& header, std::vector<double>& out, std::int64_t first,
                                     std::int64_t last)
{
    return readInto(*impl_, header, out, first, last);
}

bool MorvaneBinaryReader::readVector(const KeywordHeader& header, std::vector<int>& out, std::int64_t first,
                                     std::int64_t last)
{
    return readInto(*impl_, header, out, first, last);
}

bool MorvaneBinaryReader::readKeywordHeader(KeywordHeader& header)
{
    return impl_->readHeader(header);
}

void MorvaneBinaryReader::seekToStartOfData(const KeywordHeader& header)
{
    impl_->seekToData(header);
}

} // namespace Kvt::Mrl::MrlIO
