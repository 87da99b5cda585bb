#include <mrlio/DumpfluxReader.h>

#include "core/Fail.h"
#include "dumpflux/DumpfluxReaderImpl.h"

#include <mrlio/FileIdentifiers.h>
#include <mrlio/MrlIOException.h>

#include <cstdint>

namespace Kvt::Mrl::MrlIO {

DumpfluxReader::DumpfluxReader() : impl_(std::make_unique<DumpfluxReaderImpl>()) {}

DumpfluxReader::~DumpfluxReader() = default;

void DumpfluxReader::read(const std::string& fileName)
{
    impl_->read(fileName);
}

Service::FileName DumpfluxReader::file() const
{
    return impl_->file();
}

bool DumpfluxReader::formatted() const
{
    return !FileIdentifiers::Dumpflux::isUnformatted(impl_->file().GetFullName());
}

Keywords::SimulatorType::Enum DumpfluxReader::simulatorType() const
{
    return impl_->index().simulatorType;
}

DumpfluxBoundaryType::Enum DumpfluxReader::boundaryType() const
{
    return impl_->index().boundaryType;
}

UnitSystemType::Enum DumpfluxReader::unitSystem() const
{
    return impl_->index().unitSystem;
}

int DumpfluxReader::simulatorVersion() const
{
    return impl_->index().simulatorVersion;
}

int DumpfluxReader::numComponents() const
{
    return impl_->index().numComponents;
}

int DumpfluxReader::maximumNumberWells() const
{
    return impl_->index().maximumNumberWells;
}

std::string DumpfluxReader::restartName() const
{
    return impl_->index().restartName;
}

int DumpfluxReader::restartNumber() const
{
    return impl_->index().restartNumber;
}

bool DumpfluxReader::radialGeometry() const
{
    return impl_->index().isRadial;
}

void DumpfluxReader::gridDimension(int& nx, int& ny, int& nz) const
{
    const auto& index = impl_->index();
    nx = index.nx;
    ny = index.ny;
    nz = index.nz;
}

int DumpfluxReader::numCells() const
{
    const auto& index = impl_->index();
    if (index.nx == -1 || index.ny == -1 || index.nz == -1)
        return -1;
    std::int64_t cells = 0;
    const bool isTooBig = __builtin_mul_overflow(std::int64_t{index.nx} * index.ny, std::int64_t{index.nz}, &cells);
    if (isTooBig || cells != static_cast<int>(cells))
        fail<MrlIOException>("DumpfluxReader::numCells", ": too many cells in a grid of ", index.nx, " x ", index.ny,
                             " x ", index.nz);
    return static_cast<int>(cells);
}

int DumpfluxReader::numConnections() const
{
    return impl_->connections().numConnections();
}

const std::vector<double>& DumpfluxReader::startTimes() const
{
    return impl_->index().startTimes;
}

const std::vector<double>& DumpfluxReader::endTimes() const
{
    return impl_->index().endTimes;
}

const std::vector<double>& DumpfluxReader::averageReservoirPressure() const
{
    return impl_->index().averagePressure;
}

const std::vector<double>& DumpfluxReader::averageReservoirRs() const
{
    return impl_->index().averageRs;
}

const std::vector<double>& DumpfluxReader::averageReservoirRv() const
{
    return impl_->index().averageRv;
}

const std::vector<int>& DumpfluxReader::reportNumbers() const
{
    return impl_->index().reportNumbers;
}

const std::set<std::string>& DumpfluxReader::dataArrayNames() const
{
    return impl_->index().dataArrayNames;
}

const std::set<std::string>& DumpfluxReader::wellDataArrayNames() const
{
    return impl_->index().wellDataArrayNames;
}

const std::set<std::string>& DumpfluxReader::wellNames() const
{
    return impl_->index().wellNames;
}

const std::set<int>& DumpfluxReader::regions() const
{
    return impl_->connections().regions();
}

bool DumpfluxReader::getArray(const std::string& arrayName, double time, std::vector<double>& values,
                              std::vector<int>& first, std::vector<int>& second) const
{
    return impl_->array(arrayName, time, values, first, second);
}

bool DumpfluxReader::getArray(const std::string& arrayName, double time, std::vector<double>& values, Cells& first,
                              Cells& second) const
{
    return impl_->array(arrayName, time, values, first, second);
}

bool DumpfluxReader::getArray(const std::string& arrayName, double time, std::vector<double>& values,
                              std::vector<int>& outer, std::vector<int>& inner, int region) const
{
    return impl_->array(arrayName, time, values, outer, inner, region);
}

bool DumpfluxReader::getArray(const std::string& arrayName, double time, std::vector<double>& values, Cells& outer,
                              Cells& inner, int region) const
{
    return impl_->array(arrayName, time, values, outer, inner, region);
}

bool DumpfluxReader::getWellArray(const std::string& wellName, const std::string& arrayName, double time,
                                  std::vector<double>& values) const
{
    return impl_->wellArray(wellName, arrayName, time, values);
}

bool DumpfluxReader::getRawIndxFluxData(std::vector<int>& first, std::vector<int>& second, std::vector<int>& direction,
                                        std::vector<int>& firstRegion, std::vector<int>& secondRegion,
                                        std::vector<bool>& required) const
{
    return impl_->connections().rawData(first, second, direction, firstRegion, secondRegion, required);
}

bool DumpfluxReader::getRawIndxFluxData(Cells& first, Cells& second, std::vector<int>& direction,
                                        std::vector<int>& firstRegion, std::vector<int>& secondRegion,
                                        std::vector<bool>& required) const
{
    return impl_->connections().rawData(first, second, direction, firstRegion, secondRegion, required);
}

} // namespace Kvt::Mrl::MrlIO
