#pragma once

#include "Simulator.h"

#include <mrlio/MrlIO.h>

#include <vector>

namespace waterflood {

using Integers = Kvt::Mrl::MrlIO::KeywordINTE;
using Reals = Kvt::Mrl::MrlIO::KeywordTmpl<Kvt::Mrl::MrlIO::ValueType::REAL>;
using Words = Kvt::Mrl::MrlIO::KeywordCHAR;

/// Begins what a file tells of a well at a date: the time, the well and its units, and the cells that it goes through,
/// which are those of the local grid where it is completed there.
void beginWellBlock(Kvt::Mrl::MrlIO::KeywordWriter& writer, const Simulator& simulator, std::size_t well);

/// A value of each connection of a well.
template <class Value>
Reals perConnection(const char* name, const WellState& state, const Value& value)
{
    std::vector<float> values;
    for (const ConnectionFlow& connection : state.connections)
        values.push_back(static_cast<float>(value(connection)));
    return {name, values};
}

} // namespace waterflood
