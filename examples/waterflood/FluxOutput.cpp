#include "FluxOutput.h"

#include "WriterSettings.h"

#include <mrlio/MrlIO.h>

#include <algorithm>
#include <filesystem>

namespace waterflood {

namespace {

using namespace Kvt::Mrl::MrlIO;

/// The faces as the writer asks for them. It counts cells and directions from 1.
class Connections : public IDumpfluxConnectionArray
{
public:
    explicit Connections(const std::vector<BoundaryFace>& faces) : faces_(faces) {}

    int size() const override { return static_cast<int>(faces_.size()); }

    DumpfluxConnection get(int n) const override
    {
        const BoundaryFace& face = faces_[static_cast<std::size_t>(n)];
        constexpr bool required = true;
        return {static_cast<int>(face.cell) + 1,
                static_cast<int>(face.neighbour) + 1,
                face.direction + 1,
                face.cellIsInside ? SubRegion::number : SubRegion::surroundings,
                face.cellIsInside ? SubRegion::surroundings : SubRegion::number,
                required};
    }

private:
    const std::vector<BoundaryFace>& faces_;
};

/// What has come through each face, from its cell to the neighbour, as the mean rate over some days.
class FaceRates : public IDumpfluxPropertyArray
{
public:
    FaceRates(std::string name, std::size_t faces) : name_(std::move(name)), volumes_(faces) {}

    void add(std::size_t face, double volume) { volumes_[face] += volume; }

    void setDays(double days) { days_ = days; }

    void clear() { std::fill(volumes_.begin(), volumes_.end(), 0.0); }

    int size() const override { return static_cast<int>(volumes_.size()); }

    double getValue(int n) const override { return volumes_[static_cast<std::size_t>(n)] / days_; }

    std::string getName() const override { return name_; }

private:
    std::string name_;
    std::vector<double> volumes_;
    double days_ = 1.0;
};

class Properties : public IDumpfluxPropertiesArray
{
public:
    Properties(const FaceRates& oil, const FaceRates& water) : oil_(oil), water_(water) {}

    int size() const override { return 2; }

    const IDumpfluxPropertyArray& get(int n) const override { return n == 0 ? oil_ : water_; }

private:
    const FaceRates& oil_;
    const FaceRates& water_;
};

/// The mean rates of the wells since their totals were what they had been; what is injected counts as negative.
class WellRates : public IDumpfluxWellDataArray
{
public:
    WellRates(const Simulator& simulator, const std::vector<Volumes>& earlierTotals, double days)
        : wells_(simulator.reservoir().wells)
    {
        for (std::size_t n = 0; n < wells_.size(); ++n) {
            const double perDay = (wells_[n].injector ? -1.0 : 1.0) / days;
            // The added zero takes the sign off one.
            const double oil = (simulator.wells()[n].oilTotal - earlierTotals[n].oil) * perDay + 0.0;
            const double water = (simulator.wells()[n].waterTotal - earlierTotals[n].water) * perDay + 0.0;
            const double gas = 0.0, energy = 0.0;
            rates_.emplace_back(oil, water, gas, oil + water, energy); // as much in the reservoir as at the surface
        }
    }

    int size() const override { return static_cast<int>(rates_.size()); }

    DumpfluxWellData get(int n) const override
    {
        const auto well = static_cast<std::size_t>(n);
        return {wells_[well].name, &rates_[well], nullptr};
    }

private:
    const std::vector<Well>& wells_;
    std::vector<DumpfluxFlowData> rates_;
};

/// A new file has to be one: the writer replaces none.
void removeEarlierFile(const Options& options)
{
    const auto format = FileIdentifiers::DataFormat::get(options.formatted, options.unified);
    const std::string extension = FileIdentifiers::Dumpflux::defaultDumpfluxFileExtension(format);
    std::filesystem::remove(std::filesystem::path(options.directory) / (options.caseName + "." + extension));
}

DumpfluxHeaderData headerData(const Options& options, int wells)
{
    constexpr auto simulator = Keywords::SimulatorType::MA10;
    constexpr int restartNumber = 0, version = 2026, blackOil = -1;
    return {
        DumpfluxBoundaryType::FLUX, simulator, options.caseName, restartNumber, version, blackOil, wells, simulator};
}

double meanPressure(const Simulator& simulator)
{
    double weighted = 0.0;
    for (std::size_t cell = 0; cell < simulator.pressures().size(); ++cell)
        weighted += simulator.pressures()[cell] * simulator.poreVolume(cell);
    return weighted / (simulator.waterInPlace() + simulator.oilInPlace());
}

std::vector<Volumes> totalsOf(const Simulator& simulator)
{
    std::vector<Volumes> totals;
    for (const WellState& well : simulator.wells())
        totals.push_back({well.oilTotal, well.waterTotal});
    return totals;
}

} // namespace

struct FluxOutput::Impl
{
    Impl(const Simulator& simulator, const SubRegion& region)
        : faces(boundaryFaces(simulator.reservoir().grid, region)),
          wellTotals(totalsOf(simulator))
    {}

    std::vector<BoundaryFace> faces;
    FaceRates oil{"FLUXOIL", faces.size()}, water{"FLUXWAT", faces.size()};
    std::vector<Volumes> wellTotals; ///< at the last report step
    double reportedDays = 0.0;
    DumpfluxWriter writer;
};

FluxOutput::FluxOutput(const Options& options, const Simulator& simulator, const SubRegion& region)
    : impl_(std::make_unique<Impl>(simulator, region))
{
    if (options.overwrite)
        removeEarlierFile(options);
    const Reservoir& reservoir = simulator.reservoir();
    impl_->writer.open(options.directory, options.caseName,
                       headerData(options, static_cast<int>(reservoir.wells.size())),
                       gridSpec(fileGrids(reservoir).front()), Connections(impl_->faces), options.formatted);
}

FluxOutput::~FluxOutput() = default;

void FluxOutput::record(const Simulator& simulator)
{
    for (std::size_t n = 0; n < impl_->faces.size(); ++n) {
        const BoundaryFace& face = impl_->faces[n];
        impl_->oil.add(n, simulator.oilFlux(face.cell, face.direction) * simulator.lastStep());
        impl_->water.add(n, simulator.waterFlux(face.cell, face.direction) * simulator.lastStep());
    }
}

void FluxOutput::endReportStep(const Simulator& simulator, int reportStep)
{
    const double days = simulator.days() - impl_->reportedDays;
    if (days <= 0.0)
        return; // a run of no time at all
    impl_->oil.setDays(days);
    impl_->water.setDays(days);
    const double noGas = 0.0;
    impl_->writer.write({impl_->reportedDays, simulator.days(), reportStep, meanPressure(simulator), noGas, noGas},
                        Properties(impl_->oil, impl_->water), WellRates(simulator, impl_->wellTotals, days));
    impl_->oil.clear();
    impl_->water.clear();
    impl_->wellTotals = totalsOf(simulator);
    impl_->reportedDays = simulator.days();
}

} // namespace waterflood
