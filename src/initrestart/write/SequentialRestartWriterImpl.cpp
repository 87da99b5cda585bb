#include "initrestart/write/SequentialRestartWriterImpl.h"

#include "core/Fail.h"

#include <mrlio/KeywordWriter.h>
#include <mrlio/SeqStreamWrapper.h>

#include <stdexcept>
#include <utility>

namespace Kvt::Mrl::MrlIO {

SequentialRestartWriterImpl::~SequentialRestartWriterImpl()
{
    forgetGrid();
    core_.abandon();
}

void SequentialRestartWriterImpl::openInit(int bufferSize)
{
    core_.openInit();
    bufferSize_ = bufferSize;
}

void SequentialRestartWriterImpl::openStep(int reportStep, double elapsedDays, int bufferSize)
{
    core_.openStep(reportStep, elapsedDays);
    bufferSize_ = bufferSize;
}

void SequentialRestartWriterImpl::close()
{
    forgetGrid();
    core_.close();
}

/// A grid or an array that was left without its end is given up.
void SequentialRestartWriterImpl::start()
{
    if (!core_.isOpen())
        throw std::invalid_argument("Cannot start a sequence: the writer must be opened first.");
    core_.startSequence(bufferSize_);
    forgetGrid();
}

void SequentialRestartWriterImpl::startGrid(const std::string& name, const GridVolumes& volumes, int activeCount)
{
    const GridSpec& spec = checkedGrid(name);
    auto section = std::make_shared<SeqStreamWrapper>(&core_.output().data(), name, core_.form().formatted);
    auto content = makeGridContent(spec, volumes, activeCount, std::move(section), core_.form());
    core_.beginGrid(name, content->layout);
    grid_ = CurrentGrid{name, Pass::Grids, std::move(content)};
}

void SequentialRestartWriterImpl::startGrid(const std::string& name, const GridLayout& layout)
{
    checkedGrid(name);
    core_.beginGrid(name, layout);
    grid_ = CurrentGrid{name, Pass::Grids, std::make_unique<GridContent>()};
}

void SequentialRestartWriterImpl::endGrid()
{
    endGrid(Pass::Grids);
}

void SequentialRestartWriterImpl::startConnections(const std::string& name)
{
    checkedGrid(name);
    core_.beginConnections(name);
    grid_ = CurrentGrid{name, Pass::Connections, std::make_unique<GridContent>()};
}

void SequentialRestartWriterImpl::endConnections()
{
    endGrid(Pass::Connections);
}

/// The grid is over even if its end can't be written: a part of the end may stand in the files.
void SequentialRestartWriterImpl::endGrid(Pass pass)
{
    if (!grid_ || grid_->pass != pass)
        throw std::invalid_argument("Cannot end a grid: none has been started.");
    if (array_ != nullptr)
        fail<std::invalid_argument>("Cannot end the grid: array ", arrayName_, " has not been ended.");
    const CurrentGrid grid = *std::exchange(grid_, std::nullopt);
    core_.endGrid(grid.name, grid.content->rows);
}

void SequentialRestartWriterImpl::endArray()
{
    arrayUnderWay().finish(core_.output().data(), grid_->content->rows);
    array_.reset();
}

/// The declared grid of that name, if one may be started now.
const GridSpec& SequentialRestartWriterImpl::checkedGrid(const std::string& name) const
{
    if (!core_.isSequenceStarted())
        throw std::invalid_argument("Cannot start a grid: the sequence must be started first.");
    if (grid_)
        fail<std::invalid_argument>("Cannot start grid: \"", name, "\". Grid \"", grid_->name,
                                    "\" has not been ended.");
    return core_.declared(name, "Cannot get writer for grid: ");
}

void SequentialRestartWriterImpl::beginArray(const std::string& name, int count,
                                             std::unique_ptr<IStreamOutSolutionArray> array)
{
    if (!grid_)
        fail<std::invalid_argument>("Cannot start array ", name, ": no grid has been started.");
    if (array_ != nullptr)
        fail<std::invalid_argument>("Cannot start array ", name, ": array ", arrayName_, " has not been ended.");
    if (!core_.form().skipChecks)
        KeywordWriter::validateKeywordName(name);
    if (count < 0)
        fail<std::invalid_argument>(name.c_str(), ": invalid number of values: ", count, ".");
    arrayName_ = name;
    arrayPosition_ = core_.output().data().tellp();
    array_ = std::move(array);
    try {
        array_->start(core_.output().data(), name, static_cast<unsigned>(count));
    } catch (...) {
        giveArrayUp();
        throw;
    }
}

IStreamOutSolutionArray& SequentialRestartWriterImpl::arrayUnderWay() const
{
    if (array_ == nullptr)
        throw std::invalid_argument("Cannot write or end an array: none has been started.");
    return *array_;
}

/// Takes what there is of the array out of the file again, so that the grid may go on without it.
void SequentialRestartWriterImpl::giveArrayUp()
{
    array_.reset();
    core_.output().cutDataBack(arrayPosition_);
}

void SequentialRestartWriterImpl::forgetGrid()
{
    array_.reset();
    grid_.reset();
}

} // namespace Kvt::Mrl::MrlIO
