#include <mrlio/DumpfluxWriter.h>

#include "dumpflux/DumpfluxWriterImpl.h"

namespace Kvt::Mrl::MrlIO {

DumpfluxWriter::DumpfluxWriter() : impl_(std::make_unique<DumpfluxWriterImpl>()) {}

DumpfluxWriter::~DumpfluxWriter() = default;

void DumpfluxWriter::open(const std::string& directory, const std::string& rootName, const DumpfluxHeaderData& header,
                          const GridSpec& grid, const IDumpfluxConnectionArray& connections, bool formatted)
{
    impl_->open(directory, rootName, {header, grid, connections}, formatted);
}

void DumpfluxWriter::write(const DumpfluxTimeSpec& timeSpec, const IDumpfluxPropertiesArray& properties,
                           const IDumpfluxWellDataArray& wells)
{
    impl_->write(timeSpec, properties, wells);
}

void DumpfluxWriter::close()
{
    impl_->close();
}

} // namespace Kvt::Mrl::MrlIO
