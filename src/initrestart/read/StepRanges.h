#pragma once

#include "initrestart/read/SpecData.h"
#include "initrestart/read/StepWalk.h"

/// \file
/// Where the steps of a case stand in their files, as far as the index tells it.

namespace Kvt::Mrl::MrlIO {

/// For a file that holds nothing but the step, or what a run left there before it.
StepRange rangeInOwnFile(const SpecIndexData& step);

/// For a step of a unified file: behind what the index lists of the step before, or from the file's start where that
/// doesn't stand before it. A step of which the index lists no array gets an empty range: it begins at -1, where no
/// keyword stands.
/// cost   a look at the rows of the two steps
StepRange rangeInUnifiedFile(const RestartSpecData& index, int step);

} // namespace Kvt::Mrl::MrlIO
