#include <mrlio/MorvaneWriter.h>

namespace Kvt::Mrl::MrlIO {

MorvaneWriter::~MorvaneWriter() = default;

bool MorvaneWriter::writeKeyword(KeywordTmpl<6>& /*keyword*/)
{
    return true;
}

} // namespace Kvt::Mrl::MrlIO
