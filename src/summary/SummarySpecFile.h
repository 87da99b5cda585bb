#pragma once

#include "summary/SummarySpecDataImpl.h"

#include <string>

namespace Kvt::Mrl::MrlIO {

/// Reads a summary specification file whole. Throws what the constructor of SummarySpecData throws.
SummarySpecDataImpl readSummarySpecFile(const std::string& path);

} // namespace Kvt::Mrl::MrlIO
