#include <mrlio/InitWriter.h>

#include "initrestart/write/SectionWriterImpl.h"

namespace Kvt::Mrl::MrlIO {

InitWriter::InitWriter(const std::string& directory, const std::string& rootName, const Service::YearMonthDay& date,
                       const Service::HourMinuteSecondMillisecond& time, bool formatted,
                       const MrlWriterDefaultParams& params, bool skipChecks)
    : impl_(std::make_unique<SectionWriterImpl>(RestartWriterSetup{.directory = directory,
                                                                   .rootName = rootName,
                                                                   .startDate = date,
                                                                   .startTime = time,
                                                                   .formatted = formatted,
                                                                   .params = params,
                                                                   .skipChecks = skipChecks,
                                                                   .isRestart = false,
                                                                   .openName = "InitWriter"},
                                                "Unable to get property writer: the InitWriter must be opened first."))
{}

InitWriter::~InitWriter() = default;

void InitWriter::addGridSpec(const GridSpec& spec)
{
    impl_->core().addGridSpec(spec);
}

void InitWriter::setRestartHeaderInfoCallback(const IRestartHeaderInfo* headerInfo)
{
    impl_->core().setHeaderInfo(headerInfo);
}

void InitWriter::open()
{
    impl_->core().openInit();
}

void InitWriter::close(int bufferSize)
{
    impl_->close(bufferSize);
}

IGridPropertyWriter& InitWriter::getPropertyWriter(const IGridPropertyArray<float>& porv) const
{
    return getPropertyWriter(std::string(), porv);
}

IGridPropertyWriter& InitWriter::getPropertyWriter(const IGridPropertyArray<float>& porv,
                                                   const IGridPropertyArray<float>& rockv) const
{
    return getPropertyWriter(std::string(), porv, rockv);
}

IGridPropertyWriter& InitWriter::getPropertyWriter(const std::string& gridName,
                                                   const IGridPropertyArray<float>& porv) const
{
    return impl_->gridWriter(gridName, {.porv = porv}, countActiveCells);
}

IGridPropertyWriter& InitWriter::getPropertyWriter(const std::string& gridName, const IGridPropertyArray<float>& porv,
                                                   const IGridPropertyArray<float>& rockv) const
{
    return impl_->gridWriter(gridName, {.porv = porv, .rockv = &rockv}, countActiveCells);
}

IGridPropertyWriter& InitWriter::getNNCPropertyWriter(const std::string& gridName) const
{
    return impl_->connectionWriter(gridName);
}

} // namespace Kvt::Mrl::MrlIO
