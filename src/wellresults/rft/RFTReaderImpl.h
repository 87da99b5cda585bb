#pragma once

#include "wellresults/DatedReaderState.h"
#include "wellresults/rft/RFTContentIndex.h"
#include "wellresults/rft/RFTDataLoaderIncremental.h"

#include <mrlio/service/Namespaces.h>
#include <mrlio/service/YearMonthDay.h>

#include <cstddef>
#include <string>

namespace Kvt::Mrl::MrlIO {

/// The file of a reader, and what the questions about it have brought up.
class RFTReaderImpl : public DatedReaderState<RFTReaderImpl, RFTContentIndex, RFTDataLoaderIncremental>
{
public:
    template <class T>
    bool getArray(const std::string& array, const std::string& well, std::size_t index, std::vector<T>& values)
    {
        return loader().getArray(array, well, index, values);
    }

    template <class T>
    bool getArray(const std::string& array, const std::string& well, const Service::YearMonthDay& date,
                  std::vector<T>& values)
    {
        return atDate(date, false, [&](std::size_t index) { return getArray(array, well, index, values); });
    }

    int getNCON(const std::string& well, std::size_t index);
    int getNREA(const std::string& well, std::size_t index);
    int getNSEG(const std::string& well, std::size_t index);

private:
    template <class T>
    int sizeOf(const char* array, const std::string& well, std::size_t index);
};

} // namespace Kvt::Mrl::MrlIO
