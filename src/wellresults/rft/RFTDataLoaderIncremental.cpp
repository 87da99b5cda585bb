#include "wellresults/rft/RFTDataLoaderIncremental.h"

namespace Kvt::Mrl::MrlIO {

bool RFTDataLoaderIncremental::getArray(const std::string& array, const std::string& well, std::size_t dateIndex,
                                        std::vector<bool>& values)
{
    return copyArray(dateIndex, keyOf(array, well), values);
}

bool RFTDataLoaderIncremental::getArray(const std::string& array, const std::string& well, std::size_t dateIndex,
                                        std::vector<std::string>& values)
{
    return copyArray(dateIndex, keyOf(array, well), values);
}

bool RFTDataLoaderIncremental::getArray(const std::string& array, const std::string& well, std::size_t dateIndex,
                                        std::vector<int>& values)
{
    return copyArray(dateIndex, keyOf(array, well), values);
}

bool RFTDataLoaderIncremental::getArray(const std::string& array, const std::string& well, std::size_t dateIndex,
                                        std::vector<float>& values)
{
    return copyArray(dateIndex, keyOf(array, well), values);
}

bool RFTDataLoaderIncremental::getArray(const std::string& array, const std::string& well, std::size_t dateIndex,
                                        std::vector<double>& values)
{
    return copyArray(dateIndex, keyOf(array, well), values);
}

void RFTDataLoaderIncremental::getArrayOfType(const std::string& array, const std::string& well, std::size_t dateIndex,
                                              std::shared_ptr<std::vector<float>>& values)
{
    values = sharedArray<float>(dateIndex, keyOf(array, well));
}

void RFTDataLoaderIncremental::getArrayOfType(const std::string& array, const std::string& well, std::size_t dateIndex,
                                              std::shared_ptr<std::vector<int>>& values)
{
    values = sharedArray<int>(dateIndex, keyOf(array, well));
}

void RFTDataLoaderIncremental::readReport(Walk& walk, StoredArrays& arrays)
{
    std::string well;
    while (walk.next()) {
        if (walk.name() == WellEtc::keyword)
            well = walk.wellName();
        if (walk.isOpen())
            arrays.store(keyOf(walk.name(), well), readArray(walk));
    }
}

ArrayKey RFTDataLoaderIncremental::keyOf(const std::string& array, const std::string& well)
{
    const int wellId = wells_.index(well);
    return {.array = arrays_.index(array), .well = wellId};
}

} // namespace Kvt::Mrl::MrlIO
