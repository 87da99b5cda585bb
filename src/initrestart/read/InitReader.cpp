#include <mrlio/InitReader.h>

#include "initrestart/read/InitReaderImpl.h"

#include <mrlio/service/FileName.h>

namespace Kvt::Mrl::MrlIO {

InitReader::InitReader(int propertyCacheLimit) : impl_(std::make_unique<InitReaderImpl>(propertyCacheLimit)) {}

InitReader::~InitReader() = default;

std::shared_ptr<InitReader> InitReader::create(int propertyCacheLimit)
{
    return std::shared_ptr<InitReader>(new InitReader(propertyCacheLimit));
}

void InitReader::read(const std::string& initFile, bool formatted, const std::string& specFile,
                      const std::string& gridFile)
{
    impl_->read(initFile, formatted, specFile, gridFile);
}

const IPropertyDataAccess* InitReader::propertyData()
{
    return impl_->propertyData();
}

const IRawDataAccess* InitReader::rawData()
{
    return impl_->rawData();
}

bool InitReader::gridDimension(int& nx, int& ny, int& nz, const std::string& lgr)
{
    return impl_->getTimeInvariantData().gridDimension(nx, ny, nz, lgr);
}

int InitReader::numCells(const std::string& lgr)
{
    return impl_->getTimeInvariantData().numCells(lgr);
}

bool InitReader::isDualPorosity()
{
    return impl_->getTimeInvariantData().isDualPorosity();
}

PhaseType::Enum InitReader::phases()
{
    return impl_->getTimeInvariantData().phases();
}

UnitSystemType::Enum InitReader::unitSystem()
{
    return impl_->getTimeInvariantData().unitSystem();
}

const std::vector<std::string>& InitReader::LGRs()
{
    return impl_->lgrNames();
}

std::vector<std::pair<std::string, std::string>> InitReader::LGRPairs()
{
    return impl_->lgrPairs();
}

Service::YearMonthDay InitReader::date()
{
    return impl_->start().date;
}

Service::HourMinuteSecondMillisecond InitReader::time()
{
    return impl_->start().time;
}

std::string InitReader::caseName() const
{
    return Service::FileName(impl_->initFile()).GetRootName();
}

std::string InitReader::getInitFile() const
{
    return impl_->initFile();
}

std::string InitReader::getSpecFile() const
{
    return impl_->specFile();
}

bool InitReader::specFileExists() const
{
    return impl_->specFileExists();
}

const ICellActivitiesInfo& InitReader::getCellActivitiesInfo(const std::string& lgr)
{
    return impl_->getCellActivitiesInfo(lgr);
}

const ICellCoarsenInfo* InitReader::getCellCoarsenInfo(const std::string& lgr)
{
    return impl_->getCellCoarsenInfo(lgr);
}

} // namespace Kvt::Mrl::MrlIO
