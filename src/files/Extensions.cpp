#include "files/Extensions.h"

namespace Kvt::Mrl::MrlIO::extensions {
namespace {

std::string withoutDot(std::string_view extension)
{
    return std::string(extension.substr(1));
}

} // namespace

std::string ofNewFile(const PlainKind& kind, bool formatted)
{
    return withoutDot(formatted ? kind.formatted[0] : kind.unformatted[0]);
}

std::string ofNewUnifiedFile(const SteppedKind& kind, bool formatted)
{
    return withoutDot(formatted ? kind.formattedUnified[0] : kind.unformattedUnified[0]);
}

} // namespace Kvt::Mrl::MrlIO::extensions
