#include <mrlio/SummaryWriter.h>

#include "summary/SummaryWriterImpl.h"

namespace Kvt::Mrl::MrlIO {

using Service::HourMinuteSecondMillisecond;
using Service::YearMonthDay;

SummaryWriter::SummaryWriter(const std::string& directory, const std::string& rootName, const GridSpec& grid,
                             const YearMonthDay& startDate, bool formatted, const MrlWriterDefaultParams& params,
                             bool writeINTEHEAD)
    : SummaryWriter(directory, rootName, grid, startDate, HourMinuteSecondMillisecond(), nullptr, formatted, params,
                    writeINTEHEAD)
{}

SummaryWriter::SummaryWriter(const std::string& directory, const std::string& rootName, const GridSpec& grid,
                             const YearMonthDay& startDate, const HourMinuteSecondMillisecond& startTime,
                             bool formatted, const MrlWriterDefaultParams& params, bool writeINTEHEAD)
    : SummaryWriter(directory, rootName, grid, startDate, startTime, nullptr, formatted, params, writeINTEHEAD)
{}

SummaryWriter::SummaryWriter(const std::string& directory, const std::string& rootName, const GridSpec& grid,
                             const YearMonthDay& startDate, const RestartSpec* restart, bool formatted,
                             const MrlWriterDefaultParams& params, bool writeINTEHEAD)
    : SummaryWriter(directory, rootName, grid, startDate, HourMinuteSecondMillisecond(), restart, formatted, params,
                    writeINTEHEAD)
{}

SummaryWriter::SummaryWriter(const std::string& directory, const std::string& rootName, const GridSpec& grid,
                             const YearMonthDay& startDate, const HourMinuteSecondMillisecond& startTime,
                             const RestartSpec* restart, bool formatted, const MrlWriterDefaultParams& params,
                             bool writeINTEHEAD)
    : impl_(std::make_unique<SummaryWriterImpl>(SummaryWriterSetup{directory, rootName, grid, startDate, startTime,
                                                                   restart, formatted, params, writeINTEHEAD}))
{}

SummaryWriter::~SummaryWriter() = default;

void SummaryWriter::addArraySpec(const std::string& grid, const ISummaryVectorArraySpec& spec)
{
    impl_->addArraySpec(grid, spec);
}

void SummaryWriter::addArraySpec(const ISummaryVectorArraySpec& spec)
{
    impl_->addArraySpec(std::string(), spec);
}

void SummaryWriter::updateArraySpec(const std::string& grid, const ISummaryVectorArraySpec& spec)
{
    impl_->updateArraySpec(grid, spec);
}

void SummaryWriter::updateArraySpec(const ISummaryVectorArraySpec& spec)
{
    impl_->updateArraySpec(std::string(), spec);
}

int SummaryWriter::writeArray(const std::string& grid, const ISummaryVectorArray& array)
{
    return impl_->writeArray(grid, array);
}

int SummaryWriter::writeArray(const ISummaryVectorArray& array)
{
    return impl_->writeArray(std::string(), array);
}

int SummaryWriter::nextMiniStep(float elapsedDays, bool rewriteSpec)
{
    return impl_->nextMiniStep(elapsedDays, rewriteSpec);
}

void SummaryWriter::endMiniStep()
{
    impl_->endMiniStep();
}

int SummaryWriter::openAtNextReportStep(float elapsedDays)
{
    return impl_->openAtNextReportStep(elapsedDays);
}

void SummaryWriter::close()
{
    impl_->close();
}

int SummaryWriter::getMiniStep() const
{
    return impl_->miniStep();
}

int SummaryWriter::getReportStep() const
{
    return impl_->reportStep();
}

float SummaryWriter::getElapsedTime() const
{
    return impl_->elapsedDays();
}

} // namespace Kvt::Mrl::MrlIO
