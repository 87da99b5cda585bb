#include "initrestart/SpecIndexFile.h"

#include "core/ValueTypeLayout.h"

#include <mrlio/KeywordHeader.h>
#include <mrlio/service/EnumInfo.h>
#include <mrlio/service/Namespaces.h>

namespace Kvt::Mrl::MrlIO {

namespace {

/// The labels, C0nn included: a text with the width in it would not be known again.
std::vector<std::string> typeLabels(const std::vector<int>& types)
{
    std::vector<std::string> labels(types.size());
    for (std::size_t i = 0; i < types.size(); ++i)
        Service::findLabel<ValueType>(static_cast<ValueType::Enum>(types[i]), labels[i]);
    return labels;
}

} // namespace

void writeSpecSection(KeywordWriter& writer, const std::string& lgrName, const SpecStatsData& rows)
{
    if (!lgrName.empty())
        writeGridName(writer, "LGRNAME", lgrName);
    writer.write(KeywordCHAR("NAME", rows.names));
    writer.write(KeywordCHAR("TYPE", typeLabels(rows.types)));
    writer.write(KeywordINTE("NUMBER", rows.numbers));
    writer.write(KeywordINTE("POINTER", rows.pointers));
    writer.write(KeywordINTE("POINTERB", rows.pointersB));
    writer.write(KeywordTmpl<ValueType::DOUB>("ARRAYMAX", rows.maxima));
    writer.write(KeywordTmpl<ValueType::DOUB>("ARRAYMIN", rows.minima));
}

void writeEmptyKeyword(KeywordWriter& writer, const std::string& name)
{
    writer.write(KeywordTmpl<ValueType::MESS>(name));
}

void writeGridName(KeywordWriter& writer, const std::string& keyword, const std::string& name)
{
    if (name.size() <= charWidth) {
        writer.write(KeywordCHAR(keyword, {name}));
        return;
    }
    KeywordTmpl<ValueType::C0nn> record(keyword, {name});
    record.valueTypeInfo(ValueTypeInfo(ValueType::C0nn, static_cast<int>(name.size())));
    writer.write(record);
}

void appendRow(SpecStatsData& rows, const std::string& name, int type, int count, std::int64_t position, double min,
               double max)
{
    rows.names.push_back(name);
    rows.types.push_back(type);
    rows.numbers.push_back(count);
    rows.pointers.push_back(KeywordHeader::getRemainderPos(position));
    rows.pointersB.push_back(KeywordHeader::getMultiplierPos(position));
    rows.minima.push_back(min);
    rows.maxima.push_back(max);
}

std::int64_t rowPosition(const SpecStatsData& rows, std::size_t row)
{
    return KeywordHeader::getLargePos(rows.pointers[row], rows.pointersB[row]);
}

void setRowPosition(SpecStatsData& rows, std::size_t row, std::int64_t position)
{
    rows.pointers[row] = KeywordHeader::getRemainderPos(position);
    rows.pointersB[row] = KeywordHeader::getMultiplierPos(position);
}

} // namespace Kvt::Mrl::MrlIO
