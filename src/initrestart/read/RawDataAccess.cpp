#include "initrestart/read/RawDataAccess.h"

#include "core/Fail.h"
#include "core/HeaderAt.h"
#include "initrestart/SpecIndexFile.h"

#include <mrlio/ArrayConverter.h>
#include <mrlio/MorvaneReaderUtils.h>
#include <mrlio/MrlIOException.h>

#include <algorithm>
#include <cstdint>
#include <type_traits>
#include <utility>

namespace Kvt::Mrl::MrlIO {

namespace {

constexpr const char* inGetAnyArray = "Kvt::Mrl::MrlIO::RawDataAccess::getAnyArray";
constexpr const char* inLgrPairs = "Kvt::Mrl::MrlIO::RawDataAccess::lgrPairs";

/// The first row of that name.
std::optional<std::size_t> findRow(const SpecStatsData* rows, const std::string& name)
{
    if (rows == nullptr)
        return std::nullopt;
    const auto found = std::find(rows->names.begin(), rows->names.end(), name);
    if (found == rows->names.end())
        return std::nullopt;
    return static_cast<std::size_t>(found - rows->names.begin());
}

/// An index says of strings that they have a width of their own, but not which: that stands in the file only.
void completeWidth(MorvaneReader& reader, KeywordHeader& header)
{
    KeywordHeader found;
    if (headerAt(reader, header.keywordLargePos(), found) && found.valueType() == ValueType::C0nn)
        header.valueTypeInfo(found.valueTypeInfo());
}

/// The header that a row describes, for the reader to check against the file.
KeywordHeader headerOf(const SpecStatsData& rows, std::size_t row, MorvaneReader& reader)
{
    const std::int64_t position = rowPosition(rows, row);
    if (position < 0 || rows.numbers[row] < 0)
        fail<MrlIOException>(inGetAnyArray, ": index holds a negative position or number of elements");
    KeywordHeader header(rows.names[row], rows.numbers[row], static_cast<ValueType::Enum>(rows.types[row]), position);
    if (header.valueType() == ValueType::C0nn)
        completeWidth(reader, header);
    return header;
}

[[noreturn]] void failRead(const std::string& array, const Service::FileName& file, const std::string& cause)
{
    fail<RestartReaderException>(inGetAnyArray, ": fails to read array ", array, " from ", file.GetFullName(), cause);
}

/// Runs what the reader does. Its complaints come in the words of the access, the reader's own behind them.
template <class Read>
auto translated(const std::string& array, const Service::FileName& file, Read read)
try {
    return read();

} catch (const MrlIOException& cause) {
    failRead(array, file, std::string("\n") + cause.what());
}

} // namespace

ArrayInfo arrayInfoOf(const SpecStatsData& rows, std::size_t row)
{
    ArrayInfo info;
    info.setName(rows.names[row]);
    info.setType(static_cast<ValueType::Enum>(rows.types[row]));
    info.setSize(rows.numbers[row]);
    info.setMin(rows.minima[row]);
    info.setMax(rows.maxima[row]);
    return info;
}

RawDataAccess::RawDataAccess(const Service::FileName& file, const SpecIndexData& index, bool formatted,
                             StepRangeSource findRange)
    : file_(file),
      index_(index),
      formatted_(formatted),
      findRange_(std::move(findRange))
{}

const SpecStatsData& RawDataAccess::arrays(const std::string& lgr, const std::string& lgr2) const
{
    static const SpecStatsData ofUnknownGrids;
    const SpecStatsData* const rows = find(lgr, lgr2);
    return rows != nullptr ? *rows : ofUnknownGrids;
}

bool RawDataAccess::hasArray(const std::string& name, const std::string& lgr, const std::string& lgr2) const
{
    return findRow(find(lgr, lgr2), name).has_value();
}

bool RawDataAccess::getArrayInfo(const std::string& name, ArrayInfo& out, const std::string& lgr,
                                 const std::string& lgr2) const
{
    const SpecStatsData* const rows = find(lgr, lgr2);
    const auto row = findRow(rows, name);
    if (!row)
        return false;
    out = arrayInfoOf(*rows, *row);
    return true;
}

bool RawDataAccess::getAnyArray(const std::string& name, std::vector<std::string>& out, const std::string& lgr,
                                const std::string& lgr2) const
{
    return getArray(name, out, lgr, lgr2);
}

bool RawDataAccess::getAnyArray(const std::string& name, std::vector<bool>& out, const std::string& lgr,
                                const std::string& lgr2) const
{
    return getArray(name, out, lgr, lgr2);
}

bool RawDataAccess::getAnyArray(const std::string& name, std::vector<int>& out, const std::string& lgr,
                                const std::string& lgr2) const
{
    return getArray(name, out, lgr, lgr2);
}

bool RawDataAccess::getAnyArray(const std::string& name, std::vector<float>& out, const std::string& lgr,
                                const std::string& lgr2) const
{
    return getArray(name, out, lgr, lgr2);
}

bool RawDataAccess::getAnyArray(const std::string& name, std::vector<double>& out, const std::string& lgr,
                                const std::string& lgr2) const
{
    return getArray(name, out, lgr, lgr2);
}

std::shared_ptr<MorvaneReader> RawDataAccess::createReader()
{
    return openReader();
}

const LgrPairMap& RawDataAccess::lgrPairs() const
{
    if (!pairs_) {
        const auto reader = openReader();
        if (reader == nullptr)
            fail<RestartReaderException>(inLgrPairs, ": fails to open file ", file_.GetFullName());
        pairs_ = readLgrPairs(*reader, findRange_());
    }
    return *pairs_;
}

template <class T>
bool RawDataAccess::getArray(const std::string& name, std::vector<T>& out, const std::string& lgr,
                             const std::string& lgr2) const
try {
    const SpecStatsData* const rows = find(lgr, lgr2);
    const auto row = findRow(rows, name);
    // What stands in the vector isn't cleared, since the reader writes over it faster.
    if (row)
        readRow(*rows, *row, out);
    else
        out.clear();
    return row.has_value();

} catch (...) {
    out.clear();
    throw;
}

template <class T>
void RawDataAccess::readRow(const SpecStatsData& rows, std::size_t row, std::vector<T>& out) const
{
    const auto reader = translated(rows.names[row], file_, [this] { return openReader(); });
    if (reader == nullptr)
        fail<RestartReaderException>(inGetAnyArray, ": fails to open file ", file_.GetFullName());
    switch (static_cast<ValueType::Enum>(rows.types[row])) {
    case ValueType::DOUB:
        return readAs<double>(*reader, rows, row, out);
    case ValueType::REAL:
        return readAs<float>(*reader, rows, row, out);
    case ValueType::INTE:
    case ValueType::LOGI:
        return readAs<int>(*reader, rows, row, out);
    case ValueType::CHAR:
    case ValueType::MESS:
    case ValueType::C0nn:
        return readAs<std::string>(*reader, rows, row, out);
    default:
        fail<RestartReaderException>(inGetAnyArray, ": unhandled data type ", rows.types[row]);
    }
}

/// S   the element type of the file
template <class S, class T>
void RawDataAccess::readAs(MorvaneReader& reader, const SpecStatsData& rows, std::size_t row, std::vector<T>& out) const
{
    if constexpr (std::is_same_v<S, T>) {
        readStored(reader, rows, row, out);
    } else {
        std::vector<S> stored;
        readStored(reader, rows, row, stored);
        ArrayConverter::convert(stored, out);
    }
}

template <class S>
void RawDataAccess::readStored(MorvaneReader& reader, const SpecStatsData& rows, std::size_t row,
                               std::vector<S>& out) const
{
    const std::string& name = rows.names[row];
    if (!translated(name, file_, [&] { return reader.readDataVector(headerOf(rows, row, reader), out); }))
        failRead(name, file_, "");
}

/// Null if there is no such grid.
const SpecStatsData* RawDataAccess::find(const std::string& lgr, const std::string& lgr2) const
{
    if (lgr.empty() || lgr2.empty())
        return index_.find(lgr);
    const LgrPairMap& pairs = lgrPairs();
    const auto found = pairs.find(pairKey(lgr, lgr2));
    return found != pairs.end() ? found->second.get() : nullptr;
}

std::unique_ptr<MorvaneReader> RawDataAccess::openReader() const
{
    return MorvaneReaderUtils::createAndInitReader(file_.GetFullName(), formatted_);
}

} // namespace Kvt::Mrl::MrlIO
