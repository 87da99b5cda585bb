#include <mrlio/MorvaneAsciiWriter.h>
#include <mrlio/MorvaneBinaryWriter.h>
#include <mrlio/MorvaneWriterCreator.h>

namespace Kvt::Mrl::MrlIO {

std::unique_ptr<MorvaneWriter> MorvaneWriterCreator::create(const char* fileName, FileType type)
{
    std::unique_ptr<MorvaneWriter> writer;
    if (type == Formatted)
        writer = std::make_unique<MorvaneAsciiWriter>();
    else
        writer = std::make_unique<MorvaneBinaryWriter>();
    if (fileName == nullptr || !writer->setFilename(fileName, false))
        return nullptr;
    return writer;
}

} // namespace Kvt::Mrl::MrlIO
