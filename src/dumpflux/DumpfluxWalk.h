#pragma once

#include "wellresults/KeywordScan.h"

#include <mrlio/FileIdentifiers.h>
#include <mrlio/MrlIOException.h>
#include <mrlio/service/FileName.h>
#include <mrlio/service/Namespaces.h>

namespace Kvt::Mrl::MrlIO {

/// A walk over the keywords of a dump.
using DumpfluxWalk = KeywordScan<DumpfluxReaderException>;

/// Starts one, with the texts that KeywordScan tells. The extension tells the form of the file: any but that of a
/// formatted dump stands for an unformatted one.
inline DumpfluxWalk walkDumpflux(const char* where, const Service::FileName& file, const char* openingWhere = nullptr)
{
    return DumpfluxWalk(where, file, FileIdentifiers::Dumpflux::isFormatted(file.GetFullName()), openingWhere);
}

} // namespace Kvt::Mrl::MrlIO
