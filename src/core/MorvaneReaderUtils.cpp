#include <mrlio/MorvaneReaderUtils.h>

#include <mrlio/MorvaneAsciiReader.h>
#include <mrlio/MorvaneBinaryReader.h>

namespace Kvt::Mrl::MrlIO {

namespace {

std::unique_ptr<MorvaneReader> makeReader(bool formatted)
{
    if (formatted)
        return std::make_unique<MorvaneAsciiReader>();
    return std::make_unique<MorvaneBinaryReader>();
}

} // namespace

std::unique_ptr<MorvaneReader> MorvaneReaderUtils::createReader(const std::string& fileName, bool formatted)
{
    if (fileName.empty())
        return nullptr;
    auto reader = makeReader(formatted);
    return reader->setFilename(fileName) ? std::move(reader) : nullptr;
}

std::unique_ptr<MorvaneReader> MorvaneReaderUtils::createAndInitReader(const std::string& fileName, bool formatted)
{
    auto reader = createReader(fileName, formatted);
    KeywordHeader firstHeader;
    if (!reader || !reader->readNextKeywordHeader(firstHeader))
        return nullptr;
    KeywordHeader start;
    reader->setCurrentHeader(start);
    return reader;
}

} // namespace Kvt::Mrl::MrlIO
