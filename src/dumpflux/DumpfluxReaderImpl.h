#pragma once

#include "dumpflux/DumpfluxContentIndex.h"
#include "dumpflux/DumpfluxDataLoaderIncremental.h"
#include "dumpflux/DumpfluxRegionManager.h"
#include "wellresults/ReaderState.h"

#include <memory>
#include <string>
#include <vector>

namespace Kvt::Mrl::MrlIO {

/// The parts of a reader, each made when it is first needed.
class DumpfluxReaderImpl : public ReaderState<DumpfluxReaderImpl, DumpfluxContentIndex, DumpfluxDataLoaderIncremental>
{
public:
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

    void forgetAnswers() { connections_.reset(); }

private:
    bool allValues(const std::string& array, double time, std::vector<double>& values);
    bool regionValues(const std::string& array, double time, std::vector<double>& values, int region);

    std::unique_ptr<DumpfluxRegionManager> connections_;
};

} // namespace Kvt::Mrl::MrlIO
