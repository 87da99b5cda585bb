#pragma once

#include <string>
#include <vector>

namespace casereport {

enum class Palette
{
    General, ///< dark blue over green to yellow
    Water    ///< pale to deep blue, as water comes
};

/// Colours for the values from low to high; those beyond have the colour of the end.
class ColourScale
{
public:
    /// logarithmic   by the value's order of magnitude, if low is above 0
    ColourScale(double low, double high, bool logarithmic, Palette palette);

    double low() const { return low_; }

    double high() const { return high_; }

    /// Where a value stands between low, 0, and high, 1.
    double fraction(double value) const;

    /// As in #0072b2.
    std::string colourAt(double fraction) const;

    struct Tick
    {
        double fraction;
        std::string label; ///< XML
    };

    /// Round values between low and high.
    std::vector<Tick> ticks() const;

private:
    std::vector<Tick> evenTicks() const;
    std::vector<Tick> logarithmicTicks() const;

    double low_, high_;
    bool logarithmic_;
    Palette palette_;
};

} // namespace casereport
