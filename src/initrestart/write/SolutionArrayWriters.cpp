#include "initrestart/write/SolutionArrayWriters.h"

#include "core/KeywordEncoder.h"
#include "core/UnformattedEncoder.h"
#include "core/ValueTypeLayout.h"

#include <ostream>

namespace Kvt::Mrl::MrlIO {

bool AsciiSolutionArrayWriter::start(std::ostream& stream, const std::string& name, std::int32_t count,
                                     ValueType::Enum type)
{
    const ValueTypeLayout& layout = valueTypeLayout(type);
    encoder_.emplace(stream, layout.itemsPerLine, layout.blockLength);
    return writeFormattedHeader(stream, name, count, typeText(ValueTypeInfo(type, -1)));
}

bool BinarySolutionArrayWriter::start(std::ostream& stream, const std::string& name, std::int32_t count,
                                      ValueType::Enum type)
{
    stream_ = &stream;
    return writeUnformattedHeader(stream, name, count, typeText(ValueTypeInfo(type, -1)));
}

bool BinarySolutionArrayWriter::write(std::span<const int> values)
{
    return writeIntegerRecords(*stream_, values, 0);
}

bool BinarySolutionArrayWriter::write(std::span<const float> values)
{
    return writeRealRecords(*stream_, values);
}

bool BinarySolutionArrayWriter::write(std::span<const double> values)
{
    return writeDoubleRecords(*stream_, values);
}

bool BinarySolutionArrayWriter::write(std::span<const std::string> values)
{
    return writeStringRecords(*stream_, values, charWidth);
}

bool BinarySolutionArrayWriter::finish()
{
    return stream_->good();
}

} // namespace Kvt::Mrl::MrlIO
