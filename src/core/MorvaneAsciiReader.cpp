#include <mrlio/MorvaneAsciiReader.h>

#include "core/MorvaneAsciiReaderImpl.h"

#include <mrlio/MrlIOException.h>
#include <mrlio/ValueType.h>

namespace Kvt::Mrl::MrlIO {

namespace {

constexpr const char* inReadArray = "Kvt::Mrl::MrlIO::MorvaneAsciiReader::readArrayImpl";

constexpr bool isKnownType(ValueType::Enum type)
{
    return type >= ValueType::DOUB && type <= ValueType::C0nn;
}

/// An array of another type than the caller's buffer, or of no type that has data.
[[noreturn]] void failType(const MorvaneAsciiReaderImpl& impl, const KeywordHeader& header)
{
    if (isKnownType(header.valueType()))
        impl.failRead(MorvaneAsciiReaderImpl::inReadData, ": header and data type mismatch", header);
    impl.failRead(inReadArray, ": unhandled type", header);
}

/// Calls read with the kind of text that holds int, float, double or string elements of the header's type.
template <class Read>
bool withKind(const MorvaneAsciiReaderImpl& impl, const KeywordHeader& header, const int*, Read read)
{
    if (header.valueType() == ValueType::INTE)
        read(IntegerText());
    else if (header.valueType() == ValueType::LOGI)
        read(LogicalText());
    else
        failType(impl, header);
    return true;
}

template <class Read>
bool withKind(const MorvaneAsciiReaderImpl& impl, const KeywordHeader& header, const float*, Read read)
{
    if (header.valueType() != ValueType::REAL)
        failType(impl, header);
    read(RealText());
    return true;
}

template <class Read>
bool withKind(const MorvaneAsciiReaderImpl& impl, const KeywordHeader& header, const double*, Read read)
{
    if (header.valueType() != ValueType::DOUB)
        failType(impl, header);
    read(DoubleText());
    return true;
}

template <class Read>
bool withKind(const MorvaneAsciiReaderImpl& impl, const KeywordHeader& header, const std::string*, Read read)
{
    if (header.valueType() != ValueType::CHAR && header.valueType() != ValueType::MESS &&
        header.valueType() != ValueType::C0nn)
        failType(impl, header);
    read(StringText());
    return true;
}

template <class T>
bool readInto(MorvaneAsciiReaderImpl& impl, const KeywordHeader& header, T* out, std::int64_t first, std::int64_t last)
{
    return withKind(impl, header, out, [&](auto kind) { impl.readArray<decltype(kind)>(header, out, first, last); });
}

template <class T>
bool readInto(MorvaneAsciiReaderImpl& impl, const KeywordHeader& header, std::vector<T>& out, std::int64_t first,
              std::int64_t last)
{
    return withKind(impl, header, out.data(),
                    [&](auto kind) { impl.readVector<decltype(kind)>(header, out, first, last); });
}

} // namespace

MorvaneAsciiReader::MorvaneAsciiReader() : impl_(std::make_unique<MorvaneAsciiReaderImpl>()) {}

MorvaneAsciiReader::~MorvaneAsciiReader() = default;

bool MorvaneAsciiReader::eof()
{
    return impl_->eof();
}

bool MorvaneAsciiReader::setFilename(const std::string& fileName)
{
    // The argument may be what getFileName gave, so the stored name goes last.
    const bool isOpen = impl_->open(fileName);
    storeFileName(isOpen ? fileName : std::string());
    return isOpen;
}

void MorvaneAsciiReader::setCurrentHeader(KeywordHeader& header)
{
    impl_->setCurrent(header);
}

bool MorvaneAsciiReader::readNextSingleKeywordHeader(KeywordHeader& header)
{
    return impl_->readNext(header);
}

bool MorvaneAsciiReader::isValidHeader(const KeywordHeader& header)
{
    try {
        seekToStartOfData(header);
        return true;
    } catch (const MrlIOException&) {
        return false;
    }
}

bool MorvaneAsciiReader::readArray(const KeywordHeader& header, std::string* out, std::int64_t first, std::int64_t last)
{
    return readInto(*impl_, header, out, first, last);
}

bool MorvaneAsciiReader::readArray(const KeywordHeader& header, float* out, std::int64_t first, std::int64_t last)
{
    return readInto(*impl_, header, out, first, last);
}

bool MorvaneAsciiReader::readArray(const KeywordHeader& header, double* out, std::int64_t first, std::int64_t last)
{
    return readInto(*impl_, header, out, first, last);
}

bool MorvaneAsciiReader::readArray(const KeywordHeader& header, int* out, std::int64_t first, std::int64_t last)
{
    return readInto(*impl_, header, out, first, last);
}

bool MorvaneAsciiReader::readVector(const KeywordHeader& header, std::vector<std::string>& out, std::int64_t first,
                                    std::int64_t last)
{
    return readInto(*impl_, header, out, first, last);
}

bool MorvaneAsciiReader::readVector(const KeywordHeader& header, std::vector<float>& out, std::int64_t first,
                                    std::int64_t last)
{
    return readInto(*impl_, header, out, first, last);
}

bool MorvaneAsciiReader::readVector(const KeywordHeader& header, std::vector<double>& out, std::int64_t first,
                                    std::int64_t last)
{
    return readInto(*impl_, header, out, first, last);
}

bool MorvaneAsciiReader::readVector(const KeywordHeader& header, std::vector<int>& out, std::int64_t first,
                                    std::int64_t last)
{
    return readInto(*impl_, header, out, first, last);
}

void MorvaneAsciiReader::parseKeywordHeaderLine(KeywordHeader& header, std::string& line, std::int64_t position)
{
    impl_->parseHeaderLine(header, line, position);
}

bool MorvaneAsciiReader::readKeywordHeader(KeywordHeader& header)
{
    impl_->readHeaderLine(header);
    return true;
}

void MorvaneAsciiReader::seekToStartOfData(const KeywordHeader& header)
{
    impl_->seekToData(header);
}

bool MorvaneAsciiReader::skipBlanksAndNumericLinesToFindNextHeaderLine(std::string& line, std::int64_t& position)
{
    return impl_->findHeaderLine(line, position);
}

bool MorvaneAsciiReader::skipBlanksAndNumericLinesToFindNextHeaderLine(const KeywordHeader& header, std::string& line,
                                                                       std::int64_t& position)
{
    impl_->seekToData(header);
    return impl_->findHeaderLine(line, position);
}

} // namespace Kvt::Mrl::MrlIO
