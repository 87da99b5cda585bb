#pragma once

#include <mrlio/DumpfluxFlowData.h>
#include <mrlio/Export.h>
#include <mrlio/IDumpfluxWellComponentsArray.h>

#include <string>

namespace Kvt::Mrl::MrlIO {

/// One well in one time range: its name, and where its rates are found. A plain value, checked at construction.
class MRLIO_EXPORT DumpfluxWellData
{
public:
    /// name             1 to 8 characters
    /// flowData         not null
    /// componentArray   null if there are no rates of components
    /// throws           std::invalid_argument for null flow data, then for another name
    ///
    /// Neither of the two objects is owned. A writer that got this value from an IDumpfluxWellDataArray asks them
    /// before it asks the array for another well, so that one pair of objects can serve all wells.
    DumpfluxWellData(const std::string& name, const DumpfluxFlowData* flowData,
                     const IDumpfluxWellComponentsArray* componentArray);

    const std::string& getName() const { return name_; }

    const DumpfluxFlowData* getFlowData() const { return flowData_; }

    const IDumpfluxWellComponentsArray* getWellComponentArray() const { return wellComponentArray_; }

private:
    std::string name_;
    const DumpfluxFlowData* flowData_;
    const IDumpfluxWellComponentsArray* wellComponentArray_;
};

} // namespace Kvt::Mrl::MrlIO
