#pragma once

#include "dumpflux/DumpfluxHeaderKeywords.h"
#include "dumpflux/DumpfluxPropertyRules.h"
#include "dumpflux/DumpfluxTimeRanges.h"
#include "dumpflux/DumpfluxWriterFile.h"

#include <mrlio/DumpfluxTimeSpec.h>
#include <mrlio/IDumpfluxPropertiesArray.h>
#include <mrlio/IDumpfluxWellDataArray.h>

#include <memory>
#include <string>

namespace Kvt::Mrl::MrlIO {

/// The open file of a dumpflux writer, and what its blocks have to agree with. See DumpfluxWriter for what each
/// operation does and throws.
class DumpfluxWriterImpl
{
public:
    DumpfluxWriterImpl() = default;
    DumpfluxWriterImpl(const DumpfluxWriterImpl&) = delete;
    DumpfluxWriterImpl& operator=(const DumpfluxWriterImpl&) = delete;

    ~DumpfluxWriterImpl() { close(); }

    void open(const std::string& directory, const std::string& rootName, const DumpfluxHeaderSource& source,
              bool formatted);
    void write(const DumpfluxTimeSpec& timeSpec, const IDumpfluxPropertiesArray& properties,
               const IDumpfluxWellDataArray& wells);
    void close() noexcept;

private:
    void requireOpen() const;

    std::unique_ptr<DumpfluxWriterFile> file_; // null when closed
    int componentsPerWell_ = 0;                // that the file has rates of
    DumpfluxPropertyRules propertyRules_;
    DumpfluxTimeRanges timeRanges_;
};

} // namespace Kvt::Mrl::MrlIO
