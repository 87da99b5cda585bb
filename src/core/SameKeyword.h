#pragma once

#include <mrlio/KeywordHeader.h>

namespace Kvt::Mrl::MrlIO {

/// Compares the header that a caller holds with the one that stands at its position now: a header is a checked
/// reference, so that one of a file that was rewritten since is refused.
/// where    the function that the texts name
/// throws   MrlIOException if name, type or size differ; the width of C0nn doesn't count
void requireSameKeyword(const char* where, const KeywordHeader& wanted, const KeywordHeader& found);

} // namespace Kvt::Mrl::MrlIO
