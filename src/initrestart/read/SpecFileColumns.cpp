#include "initrestart/read/SpecFileColumns.h"

#include "initrestart/HeaderPositions.h"
#include "initrestart/read/SpecDataArrays.h"

#include <mrlio/RestartKeywordAccess.h>
#include <mrlio/ValueType.h>
#include <mrlio/service/EnumInfo.h>

#include <algorithm>
#include <cstddef>
#include <span>

namespace Kvt::Mrl::MrlIO {

namespace {

/// A table's first piece, mostly its only one, goes straight into the column.
template <class T>
void appendArray(MorvaneReader& reader, const KeywordHeader& header, std::vector<T>& column)
{
    if (column.empty())
        return readNeededArray(reader, header, column);
    std::vector<T> values;
    readNeededArray(reader, header, values);
    column.insert(column.end(), values.begin(), values.end());
}

void appendExtrema(MorvaneReader& reader, const KeywordHeader& header, std::vector<double>& column)
{
    if (header.valueType() != ValueType::REAL)
        return appendArray(reader, header, column);
    std::vector<float> values;
    readNeededArray(reader, header, values);
    column.insert(column.end(), values.begin(), values.end());
}

/// A position that was never set stands for the file's first 2 GiB.
void appendUpperPointers(MorvaneReader& reader, const KeywordHeader& header, std::vector<int>& column)
{
    const std::size_t known = column.size();
    appendArray(reader, header, column);
    std::ranges::replace(std::span(column).subspan(known), HeaderPositions::unsetWord, 0);
}

/// A text that is no label stands for the first type.
ValueType::Enum typeOf(const std::string& label)
{
    auto type = ValueType::DOUB;
    Service::findEnum<ValueType>(label, type);
    return type;
}

} // namespace

void SpecFileColumns::take(MorvaneReader& reader, const KeywordHeader& header)
{
    SpecStatsData& rows = *data_.currentStats();
    const std::string& name = header.name();
    if (name == "NAME")
        appendArray(reader, header, rows.names);
    else if (name == "TYPE")
        takeTypes(reader, header, rows.types);
    else if (name == "NUMBER")
        appendArray(reader, header, rows.numbers);
    else if (name == "POINTER")
        appendArray(reader, header, rows.pointers);
    else if (name == "POINTERB")
        appendUpperPointers(reader, header, rows.pointersB);
    else if (name == "ARRAYMIN")
        appendExtrema(reader, header, rows.minima);
    else if (name == "ARRAYMAX")
        appendExtrema(reader, header, rows.maxima);
    else if (name == "LGRNAME")
        takeLgrName(reader, header);
    else if (name == "LGRSGONE")
        data_.setCurrentStats(nullptr);
}

void SpecFileColumns::takeTypes(MorvaneReader& reader, const KeywordHeader& header, std::vector<int>& types)
{
    readNeededArray(reader, header, texts_);
    types.reserve(types.size() + texts_.size());
    for (const std::string& text : texts_)
        types.push_back(typeOf(text));
}

void SpecFileColumns::takeLgrName(MorvaneReader& reader, const KeywordHeader& header)
{
    try {
        if (!reader.readDataVector(header, texts_))
            return;
    } catch (const MrlIOException&) {
        // The rows go on belonging to the grid before: kept. The walk meets a damaged keyword again.
        return;
    }
    if (!texts_.empty())
        data_.setCurrentStats(&data_.currentIndex()->local(RestartKeywordAccess::getLGRNAME(texts_)));
}

} // namespace Kvt::Mrl::MrlIO
