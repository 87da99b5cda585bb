#include <mrlio/MorvaneBinaryWriter.h>

#include "core/KeywordFileOutput.h"

namespace Kvt::Mrl::MrlIO {

MorvaneBinaryWriter::MorvaneBinaryWriter() : output_(std::make_unique<KeywordFileOutput>(false)) {}

MorvaneBinaryWriter::~MorvaneBinaryWriter() = default;

bool MorvaneBinaryWriter::setFilename(const std::string& name, bool append)
{
    return output_->open(name, append);
}

const std::string& MorvaneBinaryWriter::getFileName() const
{
    return output_->name();
}

bool MorvaneBinaryWriter::endWrite()
{
    return output_->close();
}

bool MorvaneBinaryWriter::writeKeyword(KeywordTmpl<6>& keyword)
{
    return output_->writeStrings(keyword);
}

bool MorvaneBinaryWriter::writeKeyword(KeywordTmpl<3>& keyword)
{
    return output_->write(keyword);
}

bool MorvaneBinaryWriter::writeKeyword(KeywordCHAR& keyword)
{
    return output_->write(keyword);
}

bool MorvaneBinaryWriter::writeKeyword(KeywordTmpl<1>& keyword)
{
    return output_->write(keyword);
}

bool MorvaneBinaryWriter::writeKeyword(KeywordTmpl<0>& keyword)
{
    return output_->write(keyword);
}

bool MorvaneBinaryWriter::writeKeyword(KeywordINTE& keyword)
{
    return output_->write(keyword);
}

} // namespace Kvt::Mrl::MrlIO
