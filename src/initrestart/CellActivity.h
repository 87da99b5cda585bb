#pragma once

#include "service/MathHelpers.h"

/// \file
/// The one rule by which a cell is active, for readers and writers.

namespace Kvt::Mrl::MrlIO {

/// Whether a pore or rock volume counts as none.
inline bool isNoVolume(float volume)
{
    return Core::Service::Math::EqF(volume, 0.0f, 1e-5f, 1e-30f);
}

/// A cell is active when it has pore volume, or else, in thermal runs, rock volume.
/// rockv   null where there are no rock volumes
inline bool isActiveCell(float porv, const float* rockv)
{
    return !isNoVolume(porv) || (rockv != nullptr && !isNoVolume(*rockv));
}

} // namespace Kvt::Mrl::MrlIO
