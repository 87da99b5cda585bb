#include <mrlio/SeqStreamWrapper.h>

namespace Kvt::Mrl::MrlIO {

SeqStreamWrapper::SeqStreamWrapper(std::ostream* stream, const std::string& sectionName, bool formatted)
    : StreamSection(Service::FileName(), sectionName, formatted),
      stream_(stream)
{}

SeqStreamWrapper::~SeqStreamWrapper() = default;

void SeqStreamWrapper::close() {}

std::ostream& SeqStreamWrapper::stream()
{
    return *stream_;
}

void SeqStreamWrapper::remove() {}

} // namespace Kvt::Mrl::MrlIO
