#pragma once

#include "initrestart/write/GridContent.h"
#include "initrestart/write/RestartWriterCore.h"
#include "initrestart/write/SolutionArray.h"

#include <mrlio/IGridPropertyArray.h>
#include <mrlio/IGridPropertyWriter.h>

#include <cstdint>
#include <memory>
#include <optional>
#include <string>

namespace Kvt::Mrl::MrlIO {

/// The order of calls by which the sequential writers put grids and arrays straight into the data file.
class SequentialRestartWriterImpl
{
public:
    explicit SequentialRestartWriterImpl(const RestartWriterSetup& setup) : core_(setup) {}

    SequentialRestartWriterImpl(const SequentialRestartWriterImpl&) = delete;
    SequentialRestartWriterImpl& operator=(const SequentialRestartWriterImpl&) = delete;
    ~SequentialRestartWriterImpl();

    RestartWriterCore& core() { return core_; }

    void openInit(int bufferSize);
    void openStep(int reportStep, double elapsedDays, int bufferSize);
    void close();

    /// Begins a pass over the grids, or over their connections.
    void start();

    void startGrid(const std::string& name, const GridVolumes& volumes, int activeCount);
    void startGrid(const std::string& name, const GridLayout& layout);
    void endGrid();

    void startConnections(const std::string& name);
    void endConnections();

    /// Null outside a grid and where the grid has no volumes.
    IGridPropertyWriter* gridWriter() const { return grid_ ? grid_->content->writer.get() : nullptr; }

    template <class T>
    void startArray(const std::string& name, int count)
    {
        beginArray(name, count, makeSolutionArray<T>(core_.form().formatted));
    }

    template <class T>
    void writeValues(const IGridPropertyArray<T>& values)
    {
        arrayUnderWay().write(core_.output().data(), values);
    }

    void endArray();

    template <class T>
    void writeArray(const std::string& name, const IGridPropertyArray<T>& array)
    {
        startArray<T>(name, solutionArrayCount(name, array));
        try {
            writeValues(array);
            endArray();
        } catch (...) {
            giveArrayUp();
            throw;
        }
    }

private:
    enum class Pass
    {
        Grids,
        Connections
    };

    struct CurrentGrid
    {
        std::string name;
        Pass pass = Pass::Grids;
        std::unique_ptr<GridContent> content;
    };

    const GridSpec& checkedGrid(const std::string& name) const;
    void endGrid(Pass pass);
    void beginArray(const std::string& name, int count, std::unique_ptr<IStreamOutSolutionArray> array);
    IStreamOutSolutionArray& arrayUnderWay() const;
    void giveArrayUp();
    void forgetGrid();

    RestartWriterCore core_;
    int bufferSize_ = 0;
    std::optional<CurrentGrid> grid_;
    std::unique_ptr<IStreamOutSolutionArray> array_;
    std::string arrayName_;
    std::int64_t arrayPosition_ = 0;
};

} // namespace Kvt::Mrl::MrlIO
