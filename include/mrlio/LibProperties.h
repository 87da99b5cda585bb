#pragma once

#include <mrlio/Export.h>

/// \file
/// What the library tells about itself.

namespace Kvt::Mrl::MrlIO {

/// The number of properties: 7.
MRLIO_EXPORT int getNumLibProperties();

/// Gives key and value of one property: CompanyName, FileVersion (as "5.2026.0.0"), FileDescription, ProductVersion
/// (branch and number of the build), InternalName, LegalCopyright, OriginalFilename. Empty strings for an index outside
/// 0 to 6. The strings stay valid for the life of the process.
MRLIO_EXPORT void getLibProperty(int index, const char*& key, const char*& value);

} // namespace Kvt::Mrl::MrlIO
