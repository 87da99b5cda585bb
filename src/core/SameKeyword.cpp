#include "core/SameKeyword.h"

#include "core/Fail.h"

#include <mrlio/MrlIOException.h>

#include <cstdint>

namespace Kvt::Mrl::MrlIO {

namespace {

/// Of a double header, the record before the data holds the remainder only. A size of -1, or one without remainder,
/// passes.
bool sizesMatch(const KeywordHeader& wanted, const KeywordHeader& found)
{
    if (wanted.valueType() == ValueType::X231)
        return wanted.size() < 1 || wanted.size() == found.size();
    const std::int64_t remainder = wanted.second_size();
    return remainder < 1 || remainder == found.second_size();
}

} // namespace

void requireSameKeyword(const char* where, const KeywordHeader& wanted, const KeywordHeader& found)
{
    if (wanted.name() != found.name())
        fail<MrlIOException>(where, ": keyword header name does not match");
    if (wanted.valueType() != found.valueType())
        fail<MrlIOException>(where, ": keyword header value type does not match");
    if (!sizesMatch(wanted, found))
        fail<MrlIOException>(where, ": keyword header size does not match");
}

} // namespace Kvt::Mrl::MrlIO
