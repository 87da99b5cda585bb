#pragma once

#include <mrlio/ISummaryDataLoader.h>

#include <memory>

namespace Kvt::Mrl::MrlIO {

/// A loader from the factory that SummaryReaderEnvironment holds. The factory lives until the loader is made, even if
/// another thread replaces it meanwhile.
/// throws  SummaryReaderException if the factory gives none
std::unique_ptr<ISummaryDataLoader> makeDataLoader(const SummarySpecData& spec, const SummaryContentIndex& index);

} // namespace Kvt::Mrl::MrlIO
