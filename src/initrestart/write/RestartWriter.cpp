#include <mrlio/RestartWriter.h>

#include "initrestart/write/SectionWriterImpl.h"

namespace Kvt::Mrl::MrlIO {

RestartWriter::RestartWriter(const std::string& directory, const std::string& rootName,
                             const Service::YearMonthDay& date, const Service::HourMinuteSecondMillisecond& time,
                             bool formatted, const MrlWriterDefaultParams& params, bool skipChecks)
    : impl_(
          std::make_unique<SectionWriterImpl>(RestartWriterSetup{.directory = directory,
                                                                 .rootName = rootName,
                                                                 .startDate = date,
                                                                 .startTime = time,
                                                                 .formatted = formatted,
                                                                 .params = params,
                                                                 .skipChecks = skipChecks,
                                                                 .isRestart = true,
                                                                 .openName = "RestartWriter",
                                                                 .replacesSteps = true},
                                              "Unable to get solution writer: the RestartWriter must be opened first."))
{}

RestartWriter::~RestartWriter() = default;

void RestartWriter::addGridSpec(const GridSpec& spec)
{
    impl_->core().addGridSpec(spec);
}

void RestartWriter::setRestartHeaderInfoCallback(const IRestartHeaderInfo* headerInfo)
{
    impl_->core().setHeaderInfo(headerInfo);
}

void RestartWriter::open(int reportStep, double elapsedTime)
{
    impl_->core().openStep(reportStep, elapsedTime);
}

void RestartWriter::close(int bufferSize)
{
    impl_->close(bufferSize);
}

IGridPropertyWriter& RestartWriter::getSolutionWriter(const IGridPropertyArray<float>& porv) const
{
    return getSolutionWriter(std::string(), porv, countActiveCells);
}

IGridPropertyWriter& RestartWriter::getSolutionWriter(const IGridPropertyArray<float>& porv,
                                                      const IGridPropertyArray<float>& rockv) const
{
    return getSolutionWriter(std::string(), porv, rockv);
}

IGridPropertyWriter& RestartWriter::getSolutionWriter(const std::string& gridName,
                                                      const IGridPropertyArray<float>& porv, int activeCount) const
{
    return impl_->gridWriter(gridName, {.porv = porv}, activeCount);
}

IGridPropertyWriter& RestartWriter::getSolutionWriter(const std::string& gridName,
                                                      const IGridPropertyArray<float>& porv,
                                                      const IGridPropertyArray<float>& rockv) const
{
    return impl_->gridWriter(gridName, {.porv = porv, .rockv = &rockv}, countActiveCells);
}

void RestartWriter::writeWellDataArray(const std::string& name, WellType::Enum type, WellStatus::Enum status,
                                       const IWellConnectionArray& connections)
{
    impl_->core().addWell(name, type, status, connections, nullptr);
}

void RestartWriter::writeWellDataArray(const std::string& name, WellType::Enum type, WellStatus::Enum status,
                                       const IWellConnectionArray& connections, const IMSWSegmentData* segments)
{
    impl_->core().addWell(name, type, status, connections, segments);
}

} // namespace Kvt::Mrl::MrlIO
