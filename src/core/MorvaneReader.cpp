#include <mrlio/MorvaneReader.h>

#include "core/Fail.h"

#include <mrlio/MrlIOException.h>

namespace Kvt::Mrl::MrlIO {

namespace {

constexpr auto noType = static_cast<ValueType::Enum>(8);

std::int64_t checkedIndex(std::int64_t index, std::int64_t size, std::int64_t standsForNegative)
{
    if (index < 0 && size != 0)
        index = standsForNegative;
    if (index >= 0 && index >= size)
        fail<MrlIOException>("Kvt::Mrl::MrlIO::MorvaneReader::validateAndSetIndex",
                             ": requested index is larger than array size");
    return index;
}

/// In 32 bits that wrap around, since the values come from a file.
void addShift(int* values, std::int64_t count, int shift)
{
    for (std::int64_t i = 0; i < count; ++i)
        values[i] = static_cast<int>(static_cast<std::uint32_t>(values[i]) + static_cast<std::uint32_t>(shift));
}

/// A failed read leaves an empty vector, not half of the old and half of the new values.
template <class T, class Read>
bool emptyOnFailure(std::vector<T>& out, Read read)
{
    try {
        return read();
    } catch (...) {
        out.clear();
        throw;
    }
}

/// The size of the vector for a checked slice. An array of size 0 has the slice -1 to -1.
std::size_t sliceSize(const KeywordHeader& header, std::int64_t first, std::int64_t last)
{
    return header.size() > 0 ? static_cast<std::size_t>(last - first + 1) : 0;
}

} // namespace

MorvaneReader::MorvaneReader(const MorvaneReader& other) = default;

MorvaneReader& MorvaneReader::operator=(const MorvaneReader& other) = default;

MorvaneReader::~MorvaneReader() = default;

const std::string& MorvaneReader::getFileName() const
{
    return fileName_;
}

bool MorvaneReader::readNextKeywordHeader(KeywordHeader& header)
{
    if (!readNextSingleKeywordHeader(header))
        return false;
    if (header.valueType() != ValueType::X231)
        return true;
    // Should the second record be missing yet, no half of a double header is left for the next attempt to complete.
    KeywordHeader whole = header;
    header.valueType(noType);
    if (!readNextSingleKeywordHeader(whole))
        return false;
    header = whole;
    return true;
}

void MorvaneReader::validateAndSetIndex(const KeywordHeader& header, std::int64_t& first, std::int64_t& last)
{
    first = checkedIndex(first, header.size(), 0);
    last = checkedIndex(last, header.size(), header.size() - 1);
    if (last < first)
        fail<MrlIOException>("Kvt::Mrl::MrlIO::MorvaneReader::validateAndSetIndex", ": requested array index invalid");
}

bool MorvaneReader::readData(KeywordCHAR& keyword)
{
    return readDataVector(keyword, keyword.array());
}

bool MorvaneReader::readData(KeywordINTE& keyword)
{
    return readDataVector(keyword, keyword.array());
}

bool MorvaneReader::readDataVector(const KeywordHeader& header, std::vector<int>& out, std::int64_t first,
                                   std::int64_t last)
{
    return readSlice(header, out, first, last);
}

bool MorvaneReader::readDataVector(const KeywordHeader& header, std::vector<float>& out, std::int64_t first,
                                   std::int64_t last)
{
    return readSlice(header, out, first, last);
}

bool MorvaneReader::readDataVector(const KeywordHeader& header, std::vector<double>& out, std::int64_t first,
                                   std::int64_t last)
{
    return readSlice(header, out, first, last);
}

bool MorvaneReader::readDataVector(const KeywordHeader& header, std::vector<std::string>& out, std::int64_t first,
                                   std::int64_t last)
{
    return readSlice(header, out, first, last);
}

bool MorvaneReader::readDataVector(const KeywordINTE& keyword, std::vector<int>& out, std::int64_t first,
                                   std::int64_t last)
{
    const KeywordHeader& header = keyword;
    if (!readSlice(header, out, first, last))
        return false;
    if (const int shift = keyword.getShift(); shift != 0)
        addShift(out.data(), std::ssize(out), shift);
    return true;
}

template <class T>
bool MorvaneReader::readSlice(const KeywordHeader& header, std::vector<T>& out, std::int64_t first, std::int64_t last)
{
    return emptyOnFailure(out, [&] {
        validateAndSetIndex(header, first, last);
        return readVector(header, out, first, last);
    });
}

bool MorvaneReader::readDataArray(const KeywordHeader& header, int* buffer, std::int64_t first, std::int64_t last)
{
    validateAndSetIndex(header, first, last);
    return readArray(header, buffer, first, last);
}

bool MorvaneReader::readDataArray(const KeywordHeader& header, float* buffer, std::int64_t first, std::int64_t last)
{
    validateAndSetIndex(header, first, last);
    return readArray(header, buffer, first, last);
}

bool MorvaneReader::readDataArray(const KeywordHeader& header, double* buffer, std::int64_t first, std::int64_t last)
{
    validateAndSetIndex(header, first, last);
    return readArray(header, buffer, first, last);
}

bool MorvaneReader::readDataArray(const KeywordHeader& header, std::string* buffer, std::int64_t first,
                                  std::int64_t last)
{
    validateAndSetIndex(header, first, last);
    return readArray(header, buffer, first, last);
}

bool MorvaneReader::readDataArray(const KeywordINTE& keyword, int* buffer, std::int64_t first, std::int64_t last)
{
    validateAndSetIndex(keyword, first, last);
    return readArray(keyword, buffer, first, last);
}

bool MorvaneReader::readVector(const KeywordHeader& header, std::vector<std::string>& out, std::int64_t first,
                               std::int64_t last)
{
    out.assign(sliceSize(header, first, last), std::string());
    return readArray(header, out.empty() ? nullptr : out.data(), first, last);
}

bool MorvaneReader::readVector(const KeywordHeader& header, std::vector<float>& out, std::int64_t first,
                               std::int64_t last)
{
    out.assign(sliceSize(header, first, last), 0.0f);
    return readArray(header, out.empty() ? nullptr : out.data(), first, last);
}

bool MorvaneReader::readVector(const KeywordHeader& header, std::vector<double>& out, std::int64_t first,
                               std::int64_t last)
{
    out.assign(sliceSize(header, first, last), 0.0);
    return readArray(header, out.empty() ? nullptr : out.data(), first, last);
}

bool MorvaneReader::readVector(const KeywordHeader& header, std::vector<int>& out, std::int64_t first,
                               std::int64_t last)
{
    out.assign(sliceSize(header, first, last), 0);
    return readArray(header, out.empty() ? nullptr : out.data(), first, last);
}

bool MorvaneReader::readArray(const KeywordINTE& keyword, int* out, std::int64_t first, std::int64_t last)
{
    const KeywordHeader& header = keyword;
    if (!readArray(header, out, first, last))
        return false;
    if (const int shift = keyword.getShift(); shift != 0 && header.size() != 0)
        addShift(out, last - first + 1, shift);
    return true;
}

} // namespace Kvt::Mrl::MrlIO
