#pragma once

#include "initrestart/read/SpecData.h"

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

/// \file
/// Index files that readers write for cases which have none, from what a scan of the data gave.

namespace Kvt::Mrl::MrlIO {

/// Lengths and times of data files at one moment, to see whether they were written to since.
class DataFileStamps
{
public:
    explicit DataFileStamps(std::vector<std::string> files);

    bool areUpToDate() const;

private:
    struct Stamp
    {
        bool isThere = false;
        std::uintmax_t length = 0;
        std::filesystem::file_time_type time; // finer than a second: a simulator writes many times a second

        bool operator==(const Stamp&) const = default;
    };

    static Stamp take(const std::string& file);

    std::vector<std::string> files_;
    std::vector<Stamp> stamps_;
};

/// Write the index under a temporary name and give it its own one when it is complete and reads back equal. An index
/// whose data changed since `stamps` were taken is not written.
///
/// path        of the index file; the form in which it will be read follows from it
/// formatted   the form in which it is written
/// returns     the path; empty if the file could not be written
std::string writeSpecFile(const std::string& path, bool formatted, const InitSpecData& index,
                          const DataFileStamps& stamps);
std::string writeSpecFile(const std::string& path, bool formatted, const RestartSpecData& index,
                          const DataFileStamps& stamps);

} // namespace Kvt::Mrl::MrlIO
