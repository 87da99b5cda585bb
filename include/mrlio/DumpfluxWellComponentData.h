#pragma once

#include <mrlio/Export.h>

namespace Kvt::Mrl::MrlIO {

/// The molar rates of one component in one well over a time range: in all, in the liquid and in the vapour. A plain
/// value, unchecked.
class MRLIO_EXPORT DumpfluxWellComponentData
{
public:
    DumpfluxWellComponentData(double molarRate, double liquidRate, double vapourRate)
        : molarRate_(molarRate),
          liquidRate_(liquidRate),
          vapourRate_(vapourRate)
    {}

    double getMolarRate() const { return molarRate_; }

    double getLiquidRate() const { return liquidRate_; }

    double getVapourRate() const { return vapourRate_; }

private:
    double molarRate_;
    double liquidRate_;
    double vapourRate_;
};

} // namespace Kvt::Mrl::MrlIO
