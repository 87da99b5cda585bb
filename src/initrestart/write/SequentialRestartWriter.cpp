#include <mrlio/SequentialRestartWriter.h>

#include "initrestart/write/SequentialRestartWriterImpl.h"

namespace Kvt::Mrl::MrlIO {

SequentialRestartWriter::SequentialRestartWriter(const std::string& directory, const std::string& rootName,
                                                 const Service::YearMonthDay& date,
                                                 const Service::HourMinuteSecondMillisecond& time, bool formatted,
                                                 const MrlWriterDefaultParams& params, bool skipChecks,
                                                 bool /*ignored*/)
    : impl_(std::make_unique<SequentialRestartWriterImpl>(RestartWriterSetup{.directory = directory,
                                                                             .rootName = rootName,
                                                                             .startDate = date,
                                                                             .startTime = time,
                                                                             .formatted = formatted,
                                                                             .params = params,
                                                                             .skipChecks = skipChecks,
                                                                             .isRestart = true,
                                                                             .openName = "RestartWriter"}))
{}

SequentialRestartWriter::~SequentialRestartWriter() = default;

void SequentialRestartWriter::addGridSpec(const GridSpec& spec)
{
    impl_->core().addGridSpec(spec);
}

void SequentialRestartWriter::setRestartHeaderInfoCallback(const IRestartHeaderInfo* headerInfo)
{
    impl_->core().setHeaderInfo(headerInfo);
}

void SequentialRestartWriter::open(int reportStep, double elapsedTime, int bufferSize)
{
    impl_->openStep(reportStep, elapsedTime, bufferSize);
}

void SequentialRestartWriter::close()
{
    impl_->close();
}

void SequentialRestartWriter::writeWellDataArray(const std::string& name, WellType::Enum type, WellStatus::Enum status,
                                                 const IWellConnectionArray& connections)
{
    impl_->core().addWell(name, type, status, connections, nullptr);
}

void SequentialRestartWriter::writeWellDataArray(const std::string& name, WellType::Enum type, WellStatus::Enum status,
                                                 const IWellConnectionArray& connections,
                                                 const IMSWSegmentData* segments)
{
    impl_->core().addWell(name, type, status, connections, segments);
}

void SequentialRestartWriter::sequenceStart()
{
    impl_->start();
}

void SequentialRestartWriter::sequenceEnd()
{
    // The streams end with the writer, and everything else with its grid.
}

void SequentialRestartWriter::sequenceStartGrid(const std::string& name, const IGridPropertyArray<float>& porv,
                                                int activeCount)
{
    impl_->startGrid(name, {.porv = porv}, activeCount);
}

void SequentialRestartWriter::sequenceStartGrid(const std::string& name, bool dualPorosity, int activeCount)
{
    impl_->startGrid(name, {.activeCount = activeCount, .dualPorosity = dualPorosity});
}

void SequentialRestartWriter::sequenceEndGrid()
{
    impl_->endGrid();
}

void SequentialRestartWriter::sequenceStartSolutionArray(const std::string& name, int count,
                                                         const IGridPropertyArray<int>& /*typeTag*/,
                                                         bool /*rememberPosition*/)
{
    impl_->startArray<int>(name, count);
}

void SequentialRestartWriter::sequenceStartSolutionArray(const std::string& name, int count,
                                                         const IGridPropertyArray<float>& /*typeTag*/,
                                                         bool /*rememberPosition*/)
{
    impl_->startArray<float>(name, count);
}

void SequentialRestartWriter::sequenceStartSolutionArray(const std::string& name, int count,
                                                         const IGridPropertyArray<double>& /*typeTag*/,
                                                         bool /*rememberPosition*/)
{
    impl_->startArray<double>(name, count);
}

void SequentialRestartWriter::sequenceStartSolutionArray(const std::string& name, int count,
                                                         const IGridPropertyArray<std::string>& /*typeTag*/,
                                                         bool /*rememberPosition*/)
{
    impl_->startArray<std::string>(name, count);
}

void SequentialRestartWriter::sequenceWriteSolutionValues(const IGridPropertyArray<int>& values)
{
    impl_->writeValues(values);
}

void SequentialRestartWriter::sequenceWriteSolutionValues(const IGridPropertyArray<float>& values)
{
    impl_->writeValues(values);
}

void SequentialRestartWriter::sequenceWriteSolutionValues(const IGridPropertyArray<double>& values)
{
    impl_->writeValues(values);
}

void SequentialRestartWriter::sequenceWriteSolutionValues(const IGridPropertyArray<std::string>& values)
{
    impl_->writeValues(values);
}

void SequentialRestartWriter::sequenceEndSolutionArray()
{
    impl_->endArray();
}

void SequentialRestartWriter::sequenceWriteSolutionArray(const std::string& name, const IGridPropertyArray<int>& array,
                                                         bool /*rememberPosition*/)
{
    impl_->writeArray(name, array);
}

void SequentialRestartWriter::sequenceWriteSolutionArray(const std::string& name,
                                                         const IGridPropertyArray<float>& array,
                                                         bool /*rememberPosition*/)
{
    impl_->writeArray(name, array);
}

void SequentialRestartWriter::sequenceWriteSolutionArray(const std::string& name,
                                                         const IGridPropertyArray<double>& array,
                                                         bool /*rememberPosition*/)
{
    impl_->writeArray(name, array);
}

void SequentialRestartWriter::sequenceWriteSolutionArray(const std::string& name,
                                                         const IGridPropertyArray<std::string>& array,
                                                         bool /*rememberPosition*/)
{
    impl_->writeArray(name, array);
}

IGridPropertyWriter* SequentialRestartWriter::sequenceGetCurrentGridWriter() const
{
    return impl_->gridWriter();
}

} // namespace Kvt::Mrl::MrlIO
