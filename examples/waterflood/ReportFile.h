#pragma once

#include "Options.h"

#include <mrlio/MrlIO.h>

#include <fstream>
#include <functional>
#include <string>

namespace waterflood {

/// A keyword file that grows by a report at a time. Each report goes to the disk in one piece, so that the file ends
/// behind a whole report for whoever looks at it meanwhile. Throws std::runtime_error if the file can't be written, or
/// is there and may not be replaced.
class ReportFile
{
public:
    /// extensions   of the two forms, with their dots
    ReportFile(const Options& options, const char* unformatted, const char* formatted);

    void append(const std::function<void(Kvt::Mrl::MrlIO::KeywordWriter&)>& writeReport);

private:
    std::string path_;
    bool formatted_;
    std::ofstream file_;
};

/// Where a file of the case lies.
std::string pathOf(const Options& options, const char* extension);

} // namespace waterflood
