#include "wellresults/rft/RFTReaderImpl.h"

#include <memory>
#include <vector>

namespace Kvt::Mrl::MrlIO {

namespace {

constexpr int unknownCount = -1;

} // namespace

int RFTReaderImpl::getNCON(const std::string& well, std::size_t index)
{
    int count = sizeOf<int>("CONIPOS", well, index);
    if (count == unknownCount)
        count = sizeOf<float>("DEPTH", well, index);
    if (count == unknownCount)
        count = sizeOf<float>("CONDEPTH", well, index);
    return count;
}

int RFTReaderImpl::getNREA(const std::string& well, std::size_t index)
{
    return sizeOf<float>("READEPTH", well, index);
}

int RFTReaderImpl::getNSEG(const std::string& well, std::size_t index)
{
    return sizeOf<float>("SEGDEPTH", well, index);
}

template <class T>
int RFTReaderImpl::sizeOf(const char* array, const std::string& well, std::size_t index)
{
    std::shared_ptr<std::vector<T>> values;
    loader().getArrayOfType(array, well, index, values);
    return values ? static_cast<int>(values->size()) : unknownCount;
}

} // namespace Kvt::Mrl::MrlIO
