#pragma once

#include <mrlio/GRFTParameter.h>

#include <cstddef>
#include <string>
#include <vector>

namespace Kvt::Mrl::MrlIO {

/// Gives the arrays of a file of history match data. The order of the operations is part of the interface.
class IHMDDataLoader
{
public:
    virtual ~IHMDDataLoader() = default;

    /// Replaces `values` by an array of a report, or of the preamble for the largest index; false, with `values` empty,
    /// if there is none.
    /// name     of a well or a group
    /// throws   MrlIOException if the types don't convert or the report can't be read
    virtual bool getArray(const std::string& array, const HMDParameter& parameter, const std::string& name,
                          std::size_t timeIndex, std::vector<double>& values) = 0;
    virtual bool getArray(const std::string& array, const HMDParameter& parameter, const std::string& name,
                          std::size_t timeIndex, std::vector<float>& values) = 0;
    virtual bool getArray(const std::string& array, const HMDParameter& parameter, const std::string& name,
                          std::size_t timeIndex, std::vector<std::string>& values) = 0;
    virtual bool getArray(const std::string& array, const HMDParameter& parameter, const std::string& name,
                          std::size_t timeIndex, std::vector<int>& values) = 0;

    /// The same for an array of the preamble.
    virtual bool getArray(const std::string& array, std::vector<std::string>& values) = 0;
    virtual bool getArray(const std::string& array, std::vector<int>& values) = 0;
};

} // namespace Kvt::Mrl::MrlIO
