#include <mrlio/LibProperties.h>

#include <array>
#include <cstddef>

// The build sets these two; the others are the project's own.
#ifndef MRLIO_FILE_VERSION
#define MRLIO_FILE_VERSION "5.2026.0.0"
#endif
#ifndef MRLIO_PRODUCT_VERSION
#define MRLIO_PRODUCT_VERSION "Main/0"
#endif

namespace Kvt::Mrl::MrlIO {

namespace {

struct LibProperty
{
    const char* key;
    const char* value;
};

constexpr const char* dottedName = "Kvt.Mrl.MrlIO";

constexpr std::array<LibProperty, 7> libProperties{{
    {"CompanyName", "MrlIO developers"},
    {"FileVersion", MRLIO_FILE_VERSION},
    {"FileDescription", "File input and output of reservoir simulators"},
    {"ProductVersion", MRLIO_PRODUCT_VERSION},
    {"InternalName", dottedName},
    {"LegalCopyright", "Copyright (c) MrlIO developers"},
    {"OriginalFilename", dottedName},
}};

} // namespace

int getNumLibProperties()
{
    return static_cast<int>(libProperties.size());
}

void getLibProperty(int index, const char*& key, const char*& value)
{
    constexpr LibProperty none{"", ""};
    const bool exists = index >= 0 && index < getNumLibProperties();
    const LibProperty& property = exists ? libProperties[static_cast<std::size_t>(index)] : none;
    key = property.key;
    value = property.value;
}

} // namespace Kvt::Mrl::MrlIO
