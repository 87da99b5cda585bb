#pragma once

#include "initrestart/HeaderPositions.h"
#include "initrestart/write/RestartClock.h"
#include "initrestart/write/WellRegistry.h"

#include <mrlio/GridSpec.h>
#include <mrlio/IRestartHeaderInfo.h>
#include <mrlio/KeywordWriter.h>

#include <string>
#include <vector>

/// \file
/// The keywords with which each grid starts in init and restart files.

namespace Kvt::Mrl::MrlIO {

/// What is known of a grid when its writing starts.
struct GridLayout
{
    int activeCount = 0;
    bool dualPorosity = false;
};

/// What the header arrays of a grid are made from.
struct HeaderSource
{
    std::string gridName;
    const GridSpec* grid = nullptr; ///< null for a grid that nobody declared
    GridLayout layout{};
    WellCounts wells{}; ///< of this grid
    const RestartClock& clock;
    int simulatorValue = HeaderPositions::unsetWord;
    bool isRestart = false;
    const IRestartHeaderInfo* info = nullptr; ///< the client's own entries, or null
};

struct GridHeaders
{
    std::vector<int> integers;   ///< INTEHEAD
    std::vector<int> logicals;   ///< LOGIHEAD, 1 for true
    std::vector<double> doubles; ///< DOUBHEAD
};

/// Fills all three arrays, so that a fault in one of them shows before any is written.
/// throws   std::runtime_error if there is no GridSpec, for units without a code, and for an entry of the client's in a
///          word that the library fills; std::invalid_argument for an entry below 0 or above 4194303, and for layers
///          that can't be doubled; whatever the client's interface throws
GridHeaders makeGridHeaders(const HeaderSource& source);

/// LGR, LGRHEADI, LGRHEADQ, LGRHEADD, which open a local grid, in front of its headers.
void writeLgrBlock(KeywordWriter& writer, const std::string& gridName);

/// INTEHEAD, LOGIHEAD, DOUBHEAD.
void writeGridHeaders(KeywordWriter& writer, const GridHeaders& headers);

} // namespace Kvt::Mrl::MrlIO
