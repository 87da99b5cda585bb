#pragma once

#include "MessageFile.h"

#include <iosfwd>

namespace casereport {

/// How many messages of each kind there are, what they warn of, and the last words of the run; in all no more than rows.
void printMessages(std::ostream& out, const MessageFile& file, int mostRows);

} // namespace casereport
