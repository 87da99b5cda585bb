#pragma once

#include <mrlio/KeywordHeader.h>
#include <mrlio/MorvaneReader.h>

#include <cstdint>
#include <string>

namespace Kvt::Mrl::MrlIO {

/// The header that stands at a byte offset, with the width of its strings, which an index lacks. It becomes the
/// reader's current keyword, so that a walk goes on behind it.
/// False, with `header` and the current keyword changed, if none stands there.
/// throws   MrlIOException if the header is damaged
bool headerAt(MorvaneReader& reader, std::int64_t position, KeywordHeader& header);

/// The same for a keyword whose name is known.
/// throws   MrlIOException, too, if there is no header or it has another name
KeywordHeader headerAt(MorvaneReader& reader, const std::string& name, std::int64_t position);

} // namespace Kvt::Mrl::MrlIO
