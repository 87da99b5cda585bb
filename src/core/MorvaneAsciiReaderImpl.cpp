#include "core/MorvaneAsciiReaderImpl.h"

#include "core/Fail.h"
#include "core/SameKeyword.h"
#include "core/TextHeaderLine.h"
#include "service/FileUtils.h"

#include <mrlio/MorvaneReader.h>
#include <mrlio/MrlIOException.h>
#include <mrlio/ValueType.h>
#include <mrlio/service/EnumInfo.h>
#include <mrlio/service/FileName.h>

namespace Kvt::Mrl::MrlIO {

namespace {

constexpr const char* inReadKeywordHeader = "Kvt::Mrl::MrlIO::MorvaneAsciiReader::readKeywordHeader";
constexpr const char* inReadNext = "Kvt::Mrl::MrlIO::MorvaneAsciiReader::readNextSingleKeywordHeader";
constexpr const char* inSeekToStartOfData = "Kvt::Mrl::MrlIO::MorvaneAsciiReader::seekToStartOfData";

/// There is no current keyword; only a position counts.
constexpr auto noType = static_cast<ValueType::Enum>(8);

/// The first character of a line that makes it a header line; lines of numbers and blank lines begin otherwise.
constexpr bool beginsHeaderLine(char c)
{
    return c == '\'' || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
}

} // namespace

bool MorvaneAsciiReaderImpl::open(const std::string& fileName)
{
    current_ = KeywordHeader();
    fileName_.clear();
    file_.reset();
    auto file = std::make_unique<Service::TextFileReader>(fileName);
    if (file->fail())
        return false;
    file_ = std::move(file);
    fileName_ = fileName;
    return true;
}

void MorvaneAsciiReaderImpl::setCurrent(const KeywordHeader& header)
{
    current_ = header;
    if (file_) {
        file_->clear();
        file_->seekg(current_.keywordLargePos());
    }
}

bool MorvaneAsciiReaderImpl::readNext(KeywordHeader& header)
{
    if (!file_)
        fail<MrlIOException>(inReadNext, ": no file open");
    if (current_.valueType() == ValueType::X231) {
        // The second half follows at once. Should it be missing yet, the walk starts again in front of the first.
        current_ = KeywordHeader("", -1, noType, current_.keywordLargePos());
    } else {
        passCurrentData();
    }
    std::string line;
    std::int64_t position = 0;
    if (!file_->findLine(beginsHeaderLine, line, position))
        return false;
    // Of a line that fails here, the end bit tells whether it is cut by the end of the file.
    parseHeaderLine(header, line, position);
    file_->clear();
    current_ = header;
    return true;
}

/// Leaves the file behind the header line, or somewhere in or behind the data, of the current keyword. Lines of numbers
/// are left to the scan; other values could look like header lines and are passed one by one.
void MorvaneAsciiReaderImpl::passCurrentData()
{
    switch (current_.valueType()) {
    case ValueType::DOUB:
    case ValueType::REAL:
    case ValueType::INTE:
        return seekToData(current_);
    case ValueType::LOGI:
        return passData<LogicalText>(current_);
    case ValueType::CHAR:
    case ValueType::MESS:
    case ValueType::C0nn:
        return passData<StringText>(current_);
    default:
        if (current_.valueType() != noType)
            fail<MrlIOException>(inReadNext, ": unhandled type");
        file_->clear();
        file_->seekg(current_.keywordLargePos());
    }
}

/// Reads all values into one place: damaged values are reported as a reading of them would do.
template <class Kind>
void MorvaneAsciiReaderImpl::passData(const KeywordHeader& header)
{
    std::int64_t first = -1;
    std::int64_t last = -1;
    MorvaneReader::validateAndSetIndex(header, first, last);
    seekToData(header);
    if (header.size() == 0)
        return;
    typename Kind::Value scratch{};
    check(readTextValues<Kind>(
              *file_, header.size(), [&scratch](std::int64_t) -> auto& { return scratch; }),
          header);
    finishSlice(header, last);
}

void MorvaneAsciiReaderImpl::readHeaderLine(KeywordHeader& header)
{
    if (!file_)
        failRead(inReadKeywordHeader, ": no file open", header);
    if (!file_->good())
        failRead(inReadKeywordHeader, ": error reading file", header);
    const std::int64_t position = file_->tellg();
    std::string line;
    if (!file_->getline(line))
        failRead(inReadKeywordHeader, ": failed to get line", header);
    parseHeaderLine(header, line, position);
}

void MorvaneAsciiReaderImpl::parseHeaderLine(KeywordHeader& header, std::string& line, std::int64_t position) const
{
    parseTextHeaderLine(header, line, position, fileName_);
}

void MorvaneAsciiReaderImpl::seekToData(const KeywordHeader& header)
{
    if (!file_)
        fail<MrlIOException>(inSeekToStartOfData, ": no file open");
    file_->clear();
    file_->seekg(header.second_keywordLargePos());
    if (file_->fail())
        fail<MrlIOException>(inSeekToStartOfData, ": error seeking in file");
    KeywordHeader found;
    readHeaderLine(found);
    requireSameKeyword(inSeekToStartOfData, header, found);
}

bool MorvaneAsciiReaderImpl::findHeaderLine(std::string& line, std::int64_t& position)
{
    if (!file_ || !file_->findLine(beginsHeaderLine, line, position))
        return false;
    file_->clear();
    return true;
}

/// Behind the last value the rest of its line is passed, so that the next line read is a new one.
void MorvaneAsciiReaderImpl::finishSlice(const KeywordHeader& header, std::int64_t last)
{
    if (last == header.size() - 1 && file_->good())
        file_->ignoreThrough('\n');
}

/// How many values the rest of the file can hold: a value takes a character and one of white space.
std::int64_t MorvaneAsciiReaderImpl::mostValuesAhead() const
{
    return file_->bytesLeft() / 2 + 1;
}

void MorvaneAsciiReaderImpl::check(TextArrayResult result, const KeywordHeader& header) const
{
    if (result == TextArrayResult::EndedEarly)
        failRead(inReadData, ": array terminated early", header);
    if (result == TextArrayResult::Unreadable)
        failRead(inReadData, ": data cannot be read", header);
}

/// Goes to the first value. False if there is none.
bool MorvaneAsciiReaderImpl::goToData(const KeywordHeader& header)
{
    if (!file_)
        failRead(inReadData, ": no file open", header);
    seekToData(header);
    return header.size() != 0;
}

void MorvaneAsciiReaderImpl::failRead(const char* where, const char* message, const KeywordHeader& header) const
{
    const std::int64_t line = Service::FileUtils::ComputeLineNumber(Service::FileName(fileName_), header.keywordPos());
    std::string label;
    Service::findLabel<ValueType>(header.valueType(), label);
    fail<MrlIOException>(where, message, "\nFile  : ", fileName_, "\nLine  : ", line, "\nVector: ", header.name(),
                         "\nType  : ", label);
}

} // namespace Kvt::Mrl::MrlIO
