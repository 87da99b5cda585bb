#pragma once

#include <cstdint>
#include <string>

namespace Kvt::Mrl::MrlIO {

/// Where the last line of a text file begins if no line end closes it; -1 if one does, or the file is empty or can't be
/// read.
std::int64_t startOfUnfinishedLine(const std::string& path);

} // namespace Kvt::Mrl::MrlIO
