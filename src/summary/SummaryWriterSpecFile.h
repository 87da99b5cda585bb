#pragma once

#include "summary/SummaryWriterSpecContent.h"

#include <mrlio/service/FileName.h>
#include <mrlio/service/Namespaces.h>

#include <cstdint>
#include <string_view>

namespace Kvt::Mrl::MrlIO {

/// The spec file as a thing that is replaced whole.
class SummaryWriterSpecFile
{
public:
    SummaryWriterSpecFile(const Service::FileName& file, bool formatted) : file_(file), formatted_(formatted) {}

    /// throws   std::runtime_error if the file can't be written
    void write(const SummaryCaseFacts& summaryCase, const SummaryRunFacts& run, const SummaryWriterVectors& vectors);

private:
    void replace(std::string_view content);

    Service::FileName file_;
    bool formatted_;
    std::int64_t ownLength_ = -1; // of the content that this writer put there last; -1 for none
};

} // namespace Kvt::Mrl::MrlIO
