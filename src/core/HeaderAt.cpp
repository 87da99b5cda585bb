#include "core/HeaderAt.h"

#include "core/Fail.h"

#include <mrlio/MrlIOException.h>
#include <mrlio/ValueType.h>

namespace Kvt::Mrl::MrlIO {

bool headerAt(MorvaneReader& reader, std::int64_t position, KeywordHeader& header)
{
    header = KeywordHeader();
    if (position < 0)
        return false;
    // A current keyword without a type has no data to pass: the walk goes on right at its position.
    KeywordHeader place;
    place.keywordLargePos(position);
    reader.setCurrentHeader(place);
    return reader.readNextKeywordHeader(header) && header.keywordLargePos() == position;
}

KeywordHeader headerAt(MorvaneReader& reader, const std::string& name, std::int64_t position)
{
    KeywordHeader header;
    if (!headerAt(reader, position, header))
        fail<MrlIOException>("Kvt::Mrl::MrlIO::headerAt", ": no keyword header\nFile  : ", reader.getFileName(),
                             "\nOffset: ", position);
    if (header.name() != name)
        fail<MrlIOException>("Kvt::Mrl::MrlIO::headerAt",
                             ": keyword header name does not match\nFile  : ", reader.getFileName(),
                             "\nOffset: ", position);
    return header;
}

} // namespace Kvt::Mrl::MrlIO
