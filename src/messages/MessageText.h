#pragma once

/// \file
/// The pieces of text that a message file consists of. Nothing here depends on the process's locale.

#include <mrlio/service/Namespaces.h>
#include <mrlio/service/Time.h>

#include <string>
#include <string_view>

namespace Kvt::Mrl::MrlIO {

/// What stands in the element of one message, as it is to be seen: date and time come from dateText and timeText.
struct MessageElement
{
    std::string_view tag;
    std::string_view text;
    std::string_view date;
    std::string_view time;
    std::string_view name;
    std::string_view typeName;
    std::string_view guid;
};

/// The element's three lines. The text is escaped, the attributes are not; those of name, type and guid are left out
/// when they are empty.
std::string elementText(const MessageElement& element);

/// "15/3/2017": the start and the whole days of the elapsed ones. Empty without a start, for NaN and where the calendar
/// ends.
std::string dateText(const Service::Time& start, double elapsedDays);

/// The elapsed days with 14 decimals. Empty without a start and at 0 exactly.
std::string timeText(const Service::Time& start, double elapsedDays);

} // namespace Kvt::Mrl::MrlIO
