#pragma once

#include "initrestart/read/ITimeInvariantData.h"

#include <mrlio/ICellActivitiesInfo.h>

#include <memory>
#include <string>

namespace Kvt::Mrl::MrlIO {

/// A way to find out the active cells of a grid. The sources outlive it.
class Populator
{
public:
    /// lgr   the local grid, empty for the global grid
    virtual void populate(std::shared_ptr<ICellActivitiesInfo>& out, const std::string& lgr) = 0;

    virtual ~Populator() = default;
};

/// Takes the word of the calling program.
class PopulatorFromSource final : public Populator
{
public:
    PopulatorFromSource(const ICellActivitiesSource& source, ITimeInvariantDataSource& timeInvariantData);

    void populate(std::shared_ptr<ICellActivitiesInfo>& out, const std::string& lgr) override;

private:
    const ICellActivitiesSource& source_;
    ITimeInvariantDataSource& timeInvariantData_;
};

/// Goes by the pore and rock volumes of the init file.
class PopulatorFromINIT final : public Populator
{
public:
    PopulatorFromINIT(const IPORVSource& porv, const IROCKVSource& rockv, ITimeInvariantDataSource& timeInvariantData);

    /// throws   RestartReaderException if the grid has inactive cells and its volumes can't be had
    void populate(std::shared_ptr<ICellActivitiesInfo>& out, const std::string& lgr) override;

private:
    const IPORVSource& porv_;
    const IROCKVSource& rockv_;
    ITimeInvariantDataSource& timeInvariantData_;
};

} // namespace Kvt::Mrl::MrlIO
