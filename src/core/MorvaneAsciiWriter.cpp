#include <mrlio/MorvaneAsciiWriter.h>

#include "core/FormattedEncoder.h"
#include "core/KeywordFileOutput.h"

namespace Kvt::Mrl::MrlIO {

MorvaneAsciiWriter::MorvaneAsciiWriter() : output_(std::make_unique<KeywordFileOutput>(true)) {}

MorvaneAsciiWriter::~MorvaneAsciiWriter() = default;

bool MorvaneAsciiWriter::setFilename(const std::string& name, bool append)
{
    return output_->open(name, append);
}

const std::string& MorvaneAsciiWriter::getFileName() const
{
    return output_->name();
}

bool MorvaneAsciiWriter::endWrite()
{
    return output_->close();
}

bool MorvaneAsciiWriter::writeKeyword(KeywordTmpl<6>& keyword)
{
    return output_->writeStrings(keyword);
}

bool MorvaneAsciiWriter::writeKeyword(KeywordTmpl<3>& keyword)
{
    return output_->write(keyword);
}

bool MorvaneAsciiWriter::writeKeyword(KeywordCHAR& keyword)
{
    return output_->write(keyword);
}

bool MorvaneAsciiWriter::writeKeyword(KeywordTmpl<1>& keyword)
{
    return output_->write(keyword);
}

bool MorvaneAsciiWriter::writeKeyword(KeywordTmpl<0>& keyword)
{
    return output_->write(keyword);
}

bool MorvaneAsciiWriter::writeKeyword(KeywordINTE& keyword)
{
    return output_->write(keyword);
}

void MorvaneAsciiWriter::setStrict(bool strict) noexcept
{
    setStrictMode(strict);
}

bool MorvaneAsciiWriter::isStrict() noexcept
{
    return strictMode();
}

} // namespace Kvt::Mrl::MrlIO
