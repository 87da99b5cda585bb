#pragma once

#include "summary/SummaryWriterSpecContent.h"

#include <mrlio/service/FileName.h>
#include <mrlio/service/Namespaces.h>

#include <string_view>

namespace Kvt::Mrl::MrlIO {

/// The spec file as a thing that is replaced whole: whoever opens it finds the old content or the new one, never a part
/// or a mixture of the two, whatever happens to this process or to the space on the disk.
class SummaryWriterSpecFile
{
public:
    SummaryWriterSpecFile(const Service::FileName& file, bool formatted) : file_(file), formatted_(formatted) {}

    /// throws   std::runtime_error if the file can't be written; the old one stays then
    void write(const SummaryCaseFacts& summaryCase, const SummaryRunFacts& run,
               const SummaryWriterVectors& vectors) const;

private:
    void replace(std::string_view content) const;

    Service::FileName file_;
    bool formatted_;
};

} // namespace Kvt::Mrl::MrlIO
