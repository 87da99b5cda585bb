#include "summary/DataFileWalk.h"

#include "core/ValueTypeLayout.h"
#include "summary/UnfinishedLine.h"

#include <mrlio/FileIdentifiers.h>
#include <mrlio/MorvaneReaderUtils.h>
#include <mrlio/MrlIOException.h>
#include <mrlio/ValueType.h>

#include <cstdint>

namespace Kvt::Mrl::MrlIO {

namespace {

constexpr auto noType = static_cast<ValueType::Enum>(8);

/// Bytes of all elements, modulo 8: all that counts behind a header of 24 bytes and records that are framed by 8.
std::int64_t dataBytesModulo8(const KeywordHeader& header)
{
    const ValueTypeLayout* layout = findValueTypeLayout(header.valueType());
    if (!layout)
        return 0;
    const int width = layout->readWidth == elementWidthVaries ? header.valueTypeInfo().intData() : layout->readWidth;
    return (header.size() % 8) * (width % 8) % 8;
}

} // namespace

DataFileWalk::DataFileWalk(const Service::FileName& file)
    : file_(file),
      isFormatted_(FileIdentifiers::Summary::isFormatted(file.GetFileName())),
      reader_(MorvaneReaderUtils::createReader(file.GetFullName(), isFormatted_))
{}

bool DataFileWalk::next()
{
    if (isOver_)
        return false;
    KeywordHeader& tried = headers_[1 - current_];
    tried.name({});
    try {
        if (reader_->readNextKeywordHeader(tried)) {
            current_ = 1 - current_;
            return true;
        }
        const bool hasFirstOfTwoRecords = !tried.name().empty();
        isCut_ = hasFirstOfTwoRecords || endsInsideHeader();
    } catch (const MrlIOException& fault) {
        if (!isCutOff(fault.what()))
            throw;
        isCut_ = true;
    }
    isOver_ = true;
    return false;
}

/// A walk ends quietly too where only one to three bytes, or the beginning of a line, are left.
bool DataFileWalk::endsInsideHeader() const
{
    if (isFormatted_)
        return startOfUnfinishedLine(reader_->getFileName()) >= 0;
    if (!reader_->eof())
        return false;
    const std::int64_t fromLastHeader = file_.FileLength() - header().second_keywordLargePos();
    return (fromLastHeader - dataBytesModulo8(header())) % 8 != 0;
}

bool DataFileWalk::isCutOff(const std::string& failure)
{
    if (reader_->eof())
        return true;
    if (!isFormatted_)
        return false;
    const std::int64_t lastLine = startOfUnfinishedLine(reader_->getFileName());
    if (lastLine < 0)
        return false;
    // The text names the line of the fault, so that the last line gives the same one only if the fault lies there.
    KeywordHeader beforeLastLine({}, -1, noType, lastLine);
    reader_->setCurrentHeader(beforeLastLine);
    try {
        KeywordHeader header;
        reader_->readNextKeywordHeader(header);
    } catch (const MrlIOException& fault) {
        return failure == fault.what();
    }
    return false;
}

DataFileWalk::Outcome DataFileWalk::readIntegers(std::vector<int>& values, std::string& failure)
{
    try {
        const bool isRead = reader_->readDataVector(header(), values);
        // A formatted number that touches the end of the file may have lost digits.
        isCut_ = isFormatted_ && reader_->eof();
        if (!isCut_)
            return isRead ? Outcome::Read : Outcome::Failed;
    } catch (const MrlIOException& fault) {
        isCut_ = reader_->eof();
        if (!isCut_) {
            failure = fault.what();
            return Outcome::Failed;
        }
    }
    isOver_ = true;
    return Outcome::Cut;
}

bool DataFileWalk::isWhole(const KeywordHeader& keyword)
{
    if (!isFormatted_ && !isCut_)
        return true;
    switch (keyword.valueType()) {
    case ValueType::DOUB:
        return canRead<double>(keyword);
    case ValueType::REAL:
        return canRead<float>(keyword);
    case ValueType::INTE:
    case ValueType::LOGI:
        return canRead<int>(keyword);
    default:
        return canRead<std::string>(keyword);
    }
}

template <class T>
bool DataFileWalk::canRead(const KeywordHeader& keyword)
{
    // Unformatted, the last element and the mark behind it stand for all: the walk has counted the records before.
    const std::int64_t first = isFormatted_ || keyword.size() == 0 ? -1 : keyword.size() - 1;
    try {
        std::vector<T> values;
        return reader_->readDataVector(keyword, values, first, -1) && !(isFormatted_ && reader_->eof());
    } catch (const MrlIOException&) {
        return false;
    }
}

} // namespace Kvt::Mrl::MrlIO
