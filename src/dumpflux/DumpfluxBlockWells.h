#pragma once

#include <mrlio/IDumpfluxWellDataArray.h>
#include <mrlio/KeywordWriter.h>

#include <string>
#include <vector>

namespace Kvt::Mrl::MrlIO {

/// The wells of one block, fetched from the caller and checked.
class DumpfluxBlockWells
{
public:
    /// componentsPerWell   how many components each well must have; 0 or less if none are asked for
    /// throws              std::invalid_argument for wells that the file can't take; whatever the array throws
    DumpfluxBlockWells(const IDumpfluxWellDataArray& wells, int componentsPerWell);

    /// WELLNAME, WELLFLOW, and WELLCOMP if there are components; nothing without wells.
    void write(KeywordWriter& out) const;

private:
    /// What the checks look at, of one well.
    struct Supply
    {
        bool hasFlowData = false;
        bool hasComponents = false;
        int componentCount = 0;
    };

    Supply fetch(const DumpfluxWellData& well);
    void fetchComponents(const IDumpfluxWellComponentsArray& components);
    void checkNames() const;
    void checkSupply(const std::string& name, const Supply& supply) const;

    int componentsPerWell_;
    std::vector<std::string> names_;
    std::vector<double> flowRates_;
    std::vector<double> componentRates_;
};

} // namespace Kvt::Mrl::MrlIO
