#pragma once

#include <cstddef>
#include <string>
#include <utility>
#include <vector>

namespace casereport {

/// Values along a well at one time.
struct Profile
{
    std::size_t number = 0;                        ///< of its name among those of the picture
    std::vector<std::pair<double, double>> points; ///< value, depth
};

struct ProfilePanel
{
    std::string title;
    std::string units;
    std::vector<Profile> profiles;
};

/// Panels side by side with one scale of depths.
struct ProfileChart
{
    std::string title;
    std::string subtitle;
    std::string depthUnits;
    std::vector<std::string> names; ///< of the profiles, as the legend shows them
    std::vector<ProfilePanel> panels;
};

/// An SVG document: depth downwards, a line through the points of each profile, a legend.
std::string drawProfiles(const ProfileChart& chart);

} // namespace casereport
