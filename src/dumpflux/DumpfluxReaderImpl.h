#pragma once

#include "dumpflux/DumpfluxContentIndex.h"
#include "dumpflux/DumpfluxRegionManager.h"
#include "dumpflux/IDumpfluxDataLoader.h"

#include <mrlio/service/FileName.h>
#include <mrlio/service/Namespaces.h>

#include <memory>
#include <string>
#include <vector>

namespace Kvt::Mrl::MrlIO {

/// The parts of a reader, each made when it is first needed.
class DumpfluxReaderImpl
{
public:
    void read(const std::string& fileName);

    const Service::FileName& file() const { return file_; }

    const DumpfluxContentIndex& index();
    DumpfluxRegionManager& connections();

    bool wellArray(const std::string& well, const std::string& array, double time, std::vector<double>& values);

    /// CellList is the form that cells are wanted in.
    template <class CellList>
    bool array(const std::string& array, double time, std::vector<double>& values, CellList& first, CellList& second)
    {
        const bool hasValues = allValues(array, time, values);
        return connections().cells(first, second) && hasValues;
    }

    template <class CellList>
    bool array(const std::string& array, double time, std::vector<double>& values, CellList& outer, CellList& inner,
               int region)
    {
        const bool hasValues = regionValues(array, time, values, region);
        return connections().cells(region, outer, inner) && hasValues;
    }

private:
    void clear();
    IDumpfluxDataLoader& loader();
    bool allValues(const std::string& array, double time, std::vector<double>& values);
    bool regionValues(const std::string& array, double time, std::vector<double>& values, int region);

    Service::FileName file_;
    std::unique_ptr<const DumpfluxContentIndex> index_;
    std::unique_ptr<DumpfluxRegionManager> connections_;
    std::unique_ptr<IDumpfluxDataLoader> loader_;
};

} // namespace Kvt::Mrl::MrlIO
