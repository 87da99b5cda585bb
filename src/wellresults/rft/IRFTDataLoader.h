#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

namespace Kvt::Mrl::MrlIO {

/// Gives the arrays of a file of well test results. The order of the operations is part of the interface.
class IRFTDataLoader
{
public:
    virtual ~IRFTDataLoader() = default;

    /// Replaces `values` by an array of a well at a date; false, with `values` empty, if there is none.
    /// throws   MrlIOException if the types don't convert or the date can't be read
    virtual bool getArray(const std::string& array, const std::string& well, std::size_t dateIndex,
                          std::vector<bool>& values) = 0;
    virtual bool getArray(const std::string& array, const std::string& well, std::size_t dateIndex,
                          std::vector<std::string>& values) = 0;
    virtual bool getArray(const std::string& array, const std::string& well, std::size_t dateIndex,
                          std::vector<int>& values) = 0;
    virtual bool getArray(const std::string& array, const std::string& well, std::size_t dateIndex,
                          std::vector<float>& values) = 0;
    virtual bool getArray(const std::string& array, const std::string& well, std::size_t dateIndex,
                          std::vector<double>& values) = 0;

    /// The array without a copy; `values` becomes null if there is none.
    /// throws   RFTReaderException if it is of another type, MrlIOException if the date can't be read
    virtual void getArrayOfType(const std::string& array, const std::string& well, std::size_t dateIndex,
                                std::shared_ptr<std::vector<float>>& values) = 0;
    virtual void getArrayOfType(const std::string& array, const std::string& well, std::size_t dateIndex,
                                std::shared_ptr<std::vector<int>>& values) = 0;
};

} // namespace Kvt::Mrl::MrlIO
