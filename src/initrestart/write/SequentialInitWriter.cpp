#include <mrlio/SequentialInitWriter.h>

#include "initrestart/write/SequentialRestartWriterImpl.h"

namespace Kvt::Mrl::MrlIO {

SequentialInitWriter::SequentialInitWriter(const std::string& directory, const std::string& rootName,
                                           const Service::YearMonthDay& date,
                                           const Service::HourMinuteSecondMillisecond& time, bool formatted,
                                           const MrlWriterDefaultParams& params, bool skipChecks)
    : impl_(std::make_unique<SequentialRestartWriterImpl>(
          RestartWriterSetup{.directory = directory,
                             .rootName = rootName,
                             .startDate = date,
                             .startTime = time,
                             .formatted = formatted,
                             .params = params,
                             .skipChecks = skipChecks,
                             .isRestart = false,
                             .openName = "RestartWriter"})) // one text for both sequential writers; it is kept
{}

SequentialInitWriter::~SequentialInitWriter() = default;

void SequentialInitWriter::addGridSpec(const GridSpec& spec)
{
    impl_->core().addGridSpec(spec);
}

void SequentialInitWriter::setRestartHeaderInfoCallback(const IRestartHeaderInfo* headerInfo)
{
    impl_->core().setHeaderInfo(headerInfo);
}

void SequentialInitWriter::open(int bufferSize)
{
    impl_->openInit(bufferSize);
}

void SequentialInitWriter::close()
{
    impl_->close();
}

void SequentialInitWriter::sequenceStart()
{
    impl_->start();
}

void SequentialInitWriter::sequenceEnd()
{
    // The streams end with the writer, and everything else with its grid.
}

void SequentialInitWriter::sequenceStartGrid(const std::string& name, const IGridPropertyArray<float>& porv,
                                             int activeCount)
{
    impl_->startGrid(name, {.porv = porv}, activeCount);
}

void SequentialInitWriter::sequenceStartGrid(const std::string& name, const IGridPropertyArray<float>& porv,
                                             const IGridPropertyArray<float>* rockv, int activeCount)
{
    impl_->startGrid(name, {.porv = porv, .rockv = rockv}, activeCount);
}

void SequentialInitWriter::sequenceStartGrid(const std::string& name, bool dualPorosity, int activeCount)
{
    impl_->startGrid(name, {.activeCount = activeCount, .dualPorosity = dualPorosity});
}

void SequentialInitWriter::sequenceEndGrid()
{
    impl_->endGrid();
}

void SequentialInitWriter::sequenceStartSolutionArray(const std::string& name, int count,
                                                      const IGridPropertyArray<int>& /*typeTag*/,
                                                      bool /*rememberPosition*/)
{
    impl_->startArray<int>(name, count);
}

void SequentialInitWriter::sequenceStartSolutionArray(const std::string& name, int count,
                                                      const IGridPropertyArray<float>& /*typeTag*/,
                                                      bool /*rememberPosition*/)
{
    impl_->startArray<float>(name, count);
}

void SequentialInitWriter::sequenceStartSolutionArray(const std::string& name, int count,
                                                      const IGridPropertyArray<double>& /*typeTag*/,
                                                      bool /*rememberPosition*/)
{
    impl_->startArray<double>(name, count);
}

void SequentialInitWriter::sequenceStartSolutionArray(const std::string& name, int count,
                                                      const IGridPropertyArray<std::string>& /*typeTag*/,
                                                      bool /*rememberPosition*/)
{
    impl_->startArray<std::string>(name, count);
}

void SequentialInitWriter::sequenceWriteSolutionValues(const IGridPropertyArray<int>& values)
{
    impl_->writeValues(values);
}

void SequentialInitWriter::sequenceWriteSolutionValues(const IGridPropertyArray<float>& values)
{
    impl_->writeValues(values);
}

void SequentialInitWriter::sequenceWriteSolutionValues(const IGridPropertyArray<double>& values)
{
    impl_->writeValues(values);
}

void SequentialInitWriter::sequenceWriteSolutionValues(const IGridPropertyArray<std::string>& values)
{
    impl_->writeValues(values);
}

void SequentialInitWriter::sequenceEndSolutionArray()
{
    impl_->endArray();
}

void SequentialInitWriter::sequenceWriteSolutionArray(const std::string& name, const IGridPropertyArray<int>& array,
                                                      bool /*rememberPosition*/)
{
    impl_->writeArray(name, array);
}

void SequentialInitWriter::sequenceWriteSolutionArray(const std::string& name, const IGridPropertyArray<float>& array,
                                                      bool /*rememberPosition*/)
{
    impl_->writeArray(name, array);
}

void SequentialInitWriter::sequenceWriteSolutionArray(const std::string& name, const IGridPropertyArray<double>& array,
                                                      bool /*rememberPosition*/)
{
    impl_->writeArray(name, array);
}

void SequentialInitWriter::sequenceWriteSolutionArray(const std::string& name,
                                                      const IGridPropertyArray<std::string>& array,
                                                      bool /*rememberPosition*/)
{
    impl_->writeArray(name, array);
}

IGridPropertyWriter* SequentialInitWriter::sequenceGetCurrentGridWriter() const
{
    return impl_->gridWriter();
}

void SequentialInitWriter::sequenceNNCStart()
{
    impl_->start();
}

void SequentialInitWriter::sequenceNNCStartGrid(const std::string& name)
{
    impl_->startConnections(name);
}

void SequentialInitWriter::sequenceNNCEndGrid()
{
    impl_->endConnections();
}

void SequentialInitWriter::sequenceNNCEnd()
{
    // As sequenceEnd.
}

} // namespace Kvt::Mrl::MrlIO
