#include "core/TextArray.h"

#include "core/Fail.h"
#include "service/Text.h"

#include <mrlio/MrlIOException.h>

namespace Kvt::Mrl::MrlIO {

namespace {

constexpr const char* inReadString = "`anonymous-namespace'::readString";
constexpr const char* inSkipNextString = "`anonymous-namespace'::skipNextString";

/// A quoted text of this length or more, with a line break in it, has lost a quote.
constexpr std::size_t implausibleLength = 9;

/// The first character of a value.
char firstCharacter(Service::TextFileReader& file, const char* where)
{
    char c = '\0';
    if (!file.skipWhiteSpace() || !file.peek(c))
        fail<MrlIOException>(where, ": failed to skip whitespace");
    return c;
}

} // namespace

bool StringText::read(Service::TextFileReader& file, std::string& value)
{
    if (firstCharacter(file, inReadString) != '\'')
        return file.readToken(value);
    file.advance();
    if (!file.getline(value, '\''))
        fail<MrlIOException>(inReadString, ": failed to get line");
    if (value.size() >= implausibleLength && value.find('\n') != std::string::npos)
        fail<MrlIOException>(inReadString, ": improperly quoted string \"", value, "\"");
    Service::StringTrimBlank(value, true, true);
    return true;
}

void StringText::skip(Service::TextFileReader& file, std::int64_t count)
{
    for (; count > 0 && file.good(); --count) {
        if (firstCharacter(file, inSkipNextString) == '\'') {
            file.advance();
            file.ignoreThrough('\'');
        } else {
            file.skipTokens(1);
        }
    }
}

} // namespace Kvt::Mrl::MrlIO
