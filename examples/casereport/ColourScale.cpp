#include "ColourScale.h"

#include "SvgParts.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>

namespace casereport {

namespace {

using Colour = std::array<double, 3>;

/// Even to the eye from end to end, and told apart by people with any kind of colour vision.
constexpr std::array<Colour, 9> general{{{68, 1, 84},
                                         {71, 44, 122},
                                         {59, 81, 139},
                                         {44, 113, 142},
                                         {33, 144, 141},
                                         {39, 173, 129},
                                         {92, 200, 99},
                                         {170, 220, 50},
                                         {253, 231, 37}}};
constexpr std::array<Colour, 9> water{{{253, 240, 200},
                                       {233, 236, 185},
                                       {199, 228, 186},
                                       {140, 205, 190},
                                       {83, 178, 196},
                                       {46, 142, 189},
                                       {35, 101, 168},
                                       {34, 64, 140},
                                       {10, 31, 92}}};

constexpr double leastSpan = 1e-6; ///< of the values' size; less is the noise of a float

} // namespace

ColourScale::ColourScale(double low, double high, bool logarithmic, Palette palette)
    : low_(low),
      high_(high),
      logarithmic_(logarithmic && low > 0.0),
      palette_(palette)
{
    const double size = std::max(std::abs(low), std::abs(high));
    if (high - low <= leastSpan * size) {
        const double room = size > 0.0 ? 0.1 * size : 0.5;
        low_ -= room;
        high_ += room;
    }
}

double ColourScale::fraction(double value) const
{
    const double inside = std::clamp(value, low_, high_);
    return logarithmic_ ? std::log(inside / low_) / std::log(high_ / low_) : (inside - low_) / (high_ - low_);
}

std::string ColourScale::colourAt(double fraction) const
{
    const std::array<Colour, 9>& anchors = palette_ == Palette::Water ? water : general;
    const double place = std::clamp(fraction, 0.0, 1.0) * static_cast<double>(anchors.size() - 1);
    const std::size_t below = std::min(static_cast<std::size_t>(place), anchors.size() - 2);
    const double part = place - static_cast<double>(below);
    unsigned mixed[3];
    for (std::size_t n = 0; n < 3; ++n)
        mixed[n] = static_cast<unsigned>(std::lround(anchors[below][n] * (1.0 - part) + anchors[below + 1][n] * part));
    char text[8];
    std::snprintf(text, sizeof text, "#%02x%02x%02x", mixed[0] & 0xffU, mixed[1] & 0xffU, mixed[2] & 0xffU);
    return text;
}

std::vector<ColourScale::Tick> ColourScale::ticks() const
{
    return logarithmic_ && high_ > 5.0 * low_ ? logarithmicTicks() : evenTicks();
}

std::vector<ColourScale::Tick> ColourScale::evenTicks() const
{
    const double step = roundStep(high_ - low_, 7);
    std::vector<Tick> found;
    for (double n = std::ceil(low_ / step - 1e-9); n * step <= high_ + 1e-9 * step; ++n)
        found.push_back({fraction(n * step), numberText(n * step, step)});
    return found;
}

/// 1, 2 and 5 of each power of ten.
std::vector<ColourScale::Tick> ColourScale::logarithmicTicks() const
{
    std::vector<Tick> found;
    for (double power = std::pow(10.0, std::floor(std::log10(low_))); power <= high_; power *= 10.0)
        for (const double factor : {1.0, 2.0, 5.0})
            if (factor * power >= low_ && factor * power <= high_)
                found.push_back({fraction(factor * power), numberText(factor * power, power)});
    return found;
}

} // namespace casereport
