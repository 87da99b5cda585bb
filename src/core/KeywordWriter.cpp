#include <mrlio/KeywordWriter.h>

#include "core/KeywordEncoder.h"

#include <ostream>
#include <stdexcept>

namespace Kvt::Mrl::MrlIO {

namespace {

constexpr std::size_t longestName = 8;

} // namespace

KeywordWriter::KeywordWriter(std::ostream& stream, bool formatted, const Service::FileName& file)
    : stream_(stream),
      formatted_(formatted),
      file_(file)
{}

void KeywordWriter::validateKeywordName(const std::string& name)
{
    if (name.empty())
        throw std::invalid_argument("Blank keywords are not supported");
    if (name.size() > longestName)
        throw std::invalid_argument("Invalid keyword name: " + name + ".  Keyword names longer than " +
                                    std::to_string(longestName) + " characters are not supported.");
}

bool KeywordWriter::writeKw(const KeywordTmpl<0>& keyword)
{
    return KeywordEncoder(stream_, formatted_).write(keyword);
}

bool KeywordWriter::writeKw(const KeywordTmpl<1>& keyword)
{
    return KeywordEncoder(stream_, formatted_).write(keyword);
}

bool KeywordWriter::writeKw(const KeywordTmpl<3>& keyword)
{
    return KeywordEncoder(stream_, formatted_).write(keyword);
}

bool KeywordWriter::writeKw(const KeywordTmpl<5>& keyword)
{
    return KeywordEncoder(stream_, formatted_).write(keyword);
}

bool KeywordWriter::writeKw(const KeywordTmpl<6>& keyword)
{
    return KeywordEncoder(stream_, formatted_).write(keyword);
}

bool KeywordWriter::writeKw(const KeywordCHAR& keyword)
{
    return KeywordEncoder(stream_, formatted_).write(keyword);
}

bool KeywordWriter::writeKw(const KeywordINTE& keyword)
{
    return KeywordEncoder(stream_, formatted_).write(keyword);
}

void KeywordWriter::failWrite(const std::string& name)
{
    throw std::runtime_error("A problem was encountered writing the keyword " + name + " to file.");
}

} // namespace Kvt::Mrl::MrlIO
