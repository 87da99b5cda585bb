#pragma once

#include <mrlio/Export.h>

namespace Kvt::Mrl::MrlIO {

/// The rates of one well over a time range, in the units of the grid. A plain value, unchecked.
class MRLIO_EXPORT DumpfluxFlowData
{
public:
    DumpfluxFlowData(double oilFlowRate, double waterFlowRate, double gasFlowRate, double reservoirVolumeFlowRate,
                     double energyProductionRate)
        : oilFlowRate_(oilFlowRate),
          waterFlowRate_(waterFlowRate),
          gasFlowRate_(gasFlowRate),
          reservoirVolumeFlowRate_(reservoirVolumeFlowRate),
          energyProductionRate_(energyProductionRate)
    {}

    double getOilFlowRate() const { return oilFlowRate_; }

    double getWaterFlowRate() const { return waterFlowRate_; }

    double getGasFlowRate() const { return gasFlowRate_; }

    /// The spelling is kept so.
    double getReservoirVolmueFlowRate() const { return reservoirVolumeFlowRate_; }

    double getEnergyProductionRate() const { return energyProductionRate_; }

private:
    double oilFlowRate_;
    double waterFlowRate_;
    double gasFlowRate_;
    double reservoirVolumeFlowRate_;
    double energyProductionRate_;
};

} // namespace Kvt::Mrl::MrlIO
