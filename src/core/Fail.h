#pragma once

#include <locale>
#include <sstream>

/// \file
/// The one place where the text of an exception is put together.

namespace Kvt::Mrl::MrlIO {

/// Throws an E whose text is `where` and the parts in order, with nothing between them: the first part of a message
/// brings its own ": ". Numbers stand in the default stream format of the classic locale.
///
///     fail<MrlIOException>(where, ": error reading ", name);
template <class E, class... Parts>
[[noreturn]] void fail(const char* where, const Parts&... parts)
{
    std::ostringstream text;
    text.imbue(std::locale::classic());
    text << where;
    ((text << parts), ...);
    throw E(text.str());
}

} // namespace Kvt::Mrl::MrlIO
