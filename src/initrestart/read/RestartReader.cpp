#include <mrlio/RestartReader.h>

#include "initrestart/read/RestartReaderImpl.h"

#include <mrlio/service/FileName.h>

#include <utility>

namespace Kvt::Mrl::MrlIO {

RestartReader::RestartReader(int propertyCacheLimit) : impl_(std::make_unique<RestartReaderImpl>(propertyCacheLimit)) {}

RestartReader::~RestartReader() = default;

std::shared_ptr<RestartReader> RestartReader::create(int propertyCacheLimit)
{
    return std::shared_ptr<RestartReader>(new RestartReader(propertyCacheLimit));
}

void RestartReader::read(const std::vector<std::string>& restartFiles, bool formatted, const std::string& specFile,
                         std::shared_ptr<InitReader> initReader, const ICellActivitiesSource* source)
{
    impl_->read(restartFiles, formatted, specFile, std::move(initReader), source);
}

int RestartReader::minIndex() const
{
    return impl_->spec().minIndex();
}

int RestartReader::maxIndex() const
{
    return impl_->spec().maxIndex();
}

bool RestartReader::isValidIndex(int index) const
{
    return impl_->spec().step(index) != nullptr;
}

const IRawDataAccess* RestartReader::rawData(int index)
{
    return impl_->rawData(index);
}

const IPropertyDataAccess* RestartReader::propertyData(int index)
{
    return impl_->propertyData(index);
}

const Service::YearMonthDay& RestartReader::date(int index)
{
    return impl_->date(index);
}

const Service::HourMinuteSecondMillisecond& RestartReader::time(int index)
{
    return impl_->time(index);
}

std::string RestartReader::restartFile(int index) const
{
    const std::string* const file = impl_->fileOf(index);
    return file == nullptr ? std::string() : *file;
}

const std::vector<std::string>& RestartReader::restartFiles() const
{
    return impl_->restartFiles();
}

std::string RestartReader::specFile() const
{
    return impl_->specFile();
}

bool RestartReader::specFileExists() const
{
    return impl_->specFileExists();
}

std::string RestartReader::caseName() const
{
    return restartFiles().empty() ? std::string() : Service::FileName(restartFiles().front()).GetRootName();
}

std::vector<int> RestartReader::INTEHEADData() const
{
    return impl_->spec().inteheadData();
}

bool RestartReader::gridDimension(int& nx, int& ny, int& nz, const std::string& lgr)
{
    return impl_->getTimeInvariantData().gridDimension(nx, ny, nz, lgr);
}

int RestartReader::numCells(const std::string& lgr)
{
    return impl_->getTimeInvariantData().numCells(lgr);
}

const std::vector<std::string>& RestartReader::LGRs()
{
    return impl_->getTimeInvariantData().LGRs();
}

bool RestartReader::isDualPorosity()
{
    return impl_->getTimeInvariantData().isDualPorosity();
}

PhaseType::Enum RestartReader::phases()
{
    return impl_->getTimeInvariantData().phases();
}

UnitSystemType::Enum RestartReader::unitSystem()
{
    return impl_->getTimeInvariantData().unitSystem();
}

const ICellActivitiesInfo& RestartReader::getCellActivitiesInfo(const std::string& lgr)
{
    return impl_->getCellActivitiesInfo(lgr);
}

const ICellCoarsenInfo* RestartReader::getCellCoarsenInfo(const std::string& lgr)
{
    const std::shared_ptr<InitReader>& initReader = impl_->initReader();
    return initReader ? initReader->getCellCoarsenInfo(lgr) : nullptr;
}

std::shared_ptr<InitReader> RestartReader::getInitReader() const
{
    return impl_->initReader();
}

} // namespace Kvt::Mrl::MrlIO
