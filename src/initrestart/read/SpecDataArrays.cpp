#include "initrestart/read/SpecDataArrays.h"

#include <span>

namespace Kvt::Mrl::MrlIO {

Extrema ArrayExtrema::read(MorvaneReader& reader, const KeywordHeader& header)
{
    switch (header.valueType()) {
    case ValueType::DOUB:
        return readInto(reader, header, doubles_);
    case ValueType::REAL:
        return readInto(reader, header, floats_);
    case ValueType::INTE:
    case ValueType::LOGI:
        return readInto(reader, header, integers_);
    default:
        return {};
    }
}

template <class T>
Extrema ArrayExtrema::readInto(MorvaneReader& reader, const KeywordHeader& header, std::vector<T>& values)
{
    Extrema extrema;
    try {
        if (reader.readDataVector(header, values))
            extrema.add(std::span<const T>(values));
    } catch (const MrlIOException&) {
        // The walk decides about the file: on its way to the next header it meets a damaged keyword again. But in a
        // text file it looks for a header line only, and would take the end of the file amid numbers for a sound one.
        if (reader.eof())
            throw;
    }
    return extrema;
}

} // namespace Kvt::Mrl::MrlIO
