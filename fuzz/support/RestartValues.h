#pragma once

#include "support/Fuzzing.h"

#include <mrlio/InitReader.h>
#include <mrlio/RestartReader.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <iterator>
#include <string>
#include <vector>

namespace MrlIOFuzz {

using Kvt::Mrl::MrlIO::ArrayInfo;
using Kvt::Mrl::MrlIO::BasicArrayInfo;
using Kvt::Mrl::MrlIO::ICellActivitiesInfo;
using Kvt::Mrl::MrlIO::ICellCoarsenInfo;
using Kvt::Mrl::MrlIO::InitReader;
using Kvt::Mrl::MrlIO::IPropertyDataAccess;
using Kvt::Mrl::MrlIO::IRawDataAccess;
using Kvt::Mrl::MrlIO::RestartReader;
using Kvt::Mrl::MrlIO::SpecStatsData;
using Kvt::Mrl::MrlIO::ValueType;

/// The global grid and the first local ones.
template <class Reader>
std::vector<std::string> gridsOf(Reader& reader)
{
    constexpr std::size_t most = 4;
    std::vector<std::string> grids{""};
    succeeds([&] {
        const auto& locals = reader.LGRs();
        grids.insert(grids.end(), locals.begin(), locals.begin() + std::min(std::ssize(locals), std::ptrdiff_t{most}));
    });
    return grids;
}

/// Asks a reader of any init or restart data for everything it can be asked for, and checks what comes out.
class RestartCheck
{
public:
    /// mostElements     how many an array can hold: nothing is allocated for what a file doesn't hold
    /// knowsExtrema     whether the extrema come from the data, and not from an index of any content or in few digits
    RestartCheck(std::size_t mostElements, bool knowsExtrema) : mostElements_(mostElements), knowsExtrema_(knowsExtrema)
    {}

    void run(RestartReader& reader) const
    {
        require(reader.minIndex() <= reader.maxIndex(), "the smallest step isn't above the largest");
        require(!reader.isValidIndex(reader.maxIndex() + 1), "there is no step above the largest");
        const std::vector<std::string> grids = gridsOf(reader);
        // Numbers of steps may have gaps of any size between them.
        int seen = 0;
        for (int index = reader.minIndex(); index <= reader.maxIndex() && seen < mostSteps; ++index, ++seen) {
            if (!reader.isValidIndex(index)) {
                require(reader.rawData(index) == nullptr && reader.propertyData(index) == nullptr, "no step, no data");
                continue;
            }
            succeeds([&] { reader.date(index), reader.time(index); });
            for (const std::string& grid : grids) {
                checkRaw(reader.rawData(index), grid);
                checkProperties(reader, reader.propertyData(index), grid);
            }
        }
        checkCase(reader, grids);
    }

    void run(InitReader& reader) const
    {
        const std::vector<std::string> grids = gridsOf(reader);
        for (const std::string& grid : grids) {
            checkRaw(reader.rawData(), grid);
            checkProperties(reader, reader.propertyData(), grid);
        }
        succeeds([&] {
            for (const auto& [first, second] : reader.LGRPairs()) {
                require(first <= second, "the names of a pair are sorted");
                checkRaw(reader.rawData(), second, first);
            }
        });
        succeeds([&] { reader.date(), reader.time(); });
        checkCase(reader, grids);
    }

private:
    static constexpr int mostSteps = 16;
    static constexpr std::size_t mostArrays = 24;
    static constexpr int mostCells = 1 << 20;

    template <class Reader>
    void checkCase(Reader& reader, const std::vector<std::string>& grids) const
    {
        succeeds([&] { reader.isDualPorosity(), reader.phases(), reader.unitSystem(); });
        for (const std::string& grid : grids) {
            succeeds([&] {
                int nx = 0, ny = 0, nz = 0;
                const bool isKnown = reader.gridDimension(nx, ny, nz, grid);
                const std::int64_t cells = reader.numCells(grid);
                require(cells == (isKnown ? std::int64_t{nx} * ny * nz : -1), "the cells fill the dimensions");
            });
            succeeds([&] { checkActivities(reader.getCellActivitiesInfo(grid), reader.numCells(grid)); });
            succeeds([&] { checkCoarsening(reader.getCellCoarsenInfo(grid)); });
        }
    }

    void checkActivities(const ICellActivitiesInfo& info, int cells) const
    {
        for (const bool fracture : {false, true}) {
            const int active = info.numActive(fracture);
            if (cells > mostCells || active > mostCells) // the flags are made when they are asked for
                continue;
            const std::vector<bool>& flags = info.activeCells(fracture);
            require(active == std::count(flags.begin(), flags.end(), true), "active cells are counted");
        }
    }

    void checkCoarsening(const ICellCoarsenInfo* info) const
    {
        if (info == nullptr)
            return;
        std::vector<int> groups;
        info->groups(groups);
        require(std::ssize(groups) == info->numGroups(), "groups are counted");
        require(std::is_sorted(groups.begin(), groups.end()), "groups are sorted");
        for (const int group : groups) {
            std::vector<int> cells;
            int representative = -1;
            require(info->cellsOfGroup(group, cells) && !cells.empty(), "a listed group has cells");
            require(info->representative(group, representative) && representative >= 0, "and one that stands for it");
            require(static_cast<std::size_t>(cells.back()) < mostElements_, "cells come out of the file");
        }
    }

    /// Listing the arrays between two grids reads data, which may be damaged.
    void checkRaw(const IRawDataAccess* access, const std::string& lgr, const std::string& lgr2 = {}) const
    {
        if (access == nullptr)
            return;
        const SpecStatsData& rows = access->arrays(lgr, lgr2);
        require(rows.types.size() == rows.names.size() && rows.numbers.size() == rows.names.size() &&
                    rows.pointers.size() == rows.names.size() && rows.pointersB.size() == rows.names.size() &&
                    rows.minima.size() == rows.names.size() && rows.maxima.size() == rows.names.size(),
                "columns have one length");
        for (std::size_t row = 0; row < std::min(rows.names.size(), mostArrays); ++row) {
            const std::string& name = rows.names[row];
            ArrayInfo info;
            require(access->hasArray(name, lgr, lgr2) && access->getArrayInfo(name, info, lgr, lgr2),
                    "a listed array is there");
            require(info.getName() == name, "an array has the name that it was asked for by");
            readAs<std::string>(*access, info, lgr, lgr2);
            readAs<int>(*access, info, lgr, lgr2);
            checkExtrema(info, readAs<double>(*access, info, lgr, lgr2));
        }
    }

    /// Not-a-numbers count in the first place alone.
    void checkExtrema(const ArrayInfo& info, const std::vector<double>& values) const
    {
        const bool isNumeric =
            info.getType() == ValueType::INTE || info.getType() == ValueType::REAL || info.getType() == ValueType::DOUB;
        if (!knowsExtrema_ || !isNumeric || values.empty() || std::isnan(values.front()))
            return;
        double low = values.front(), high = low;
        for (const double value : values) {
            low = value < low ? value : low;
            high = value > high ? value : high;
        }
        require(info.getMin() == low && info.getMax() == high, "extrema are those of the values");
    }

    template <class Reader>
    void checkProperties(Reader& reader, const IPropertyDataAccess* access, const std::string& lgr) const
    {
        if (access == nullptr)
            return;
        succeeds([&] {
            const auto& names = access->properties(lgr).names();
            const int cells = reader.numCells(lgr);
            for (std::size_t i = 0; i < std::min(names.size(), mostArrays); ++i) {
                require(access->hasProperty(names[i], lgr), "a listed property is there");
                for (const bool fracture : {false, true}) {
                    checkProperty<double>(*access, names[i], lgr, fracture, cells);
                    checkProperty<std::string>(*access, names[i], lgr, fracture, cells);
                }
            }
        });
    }

    template <class T>
    void checkProperty(const IPropertyDataAccess& access, const std::string& name, const std::string& lgr,
                       bool fracture, int cells) const
    {
        BasicArrayInfo info;
        const bool isThere = access.getArrayInfo(name, info, lgr, fracture);
        require(!isThere || (info.getName() == name && info.getSize() == cells), "a property has the size of its grid");
        std::vector<T> values(1);
        bool isRead = false;
        succeeds([&] { isRead = access.getAnyArray(name, values, lgr, fracture); });
        require(!isRead || isThere, "only a property that is there can be read");
        require(isRead ? std::ssize(values) == cells : values.empty(), "one value per cell, or none");
        ArrayInfo statistics;
        succeeds([&] { access.getArrayInfo(name, statistics, lgr, fracture); });
    }

    template <class T>
    std::vector<T> readAs(const IRawDataAccess& access, const ArrayInfo& info, const std::string& lgr,
                          const std::string& lgr2) const
    {
        std::vector<T> values(1);
        const bool isRead = succeeds([&] { access.getAnyArray(info.getName(), values, lgr, lgr2); });
        require(isRead ? std::ssize(values) == info.getSize() : values.empty(), "an array is read whole or not at all");
        require(values.size() <= mostElements_, "an array comes out of the file");
        return values;
    }

    std::size_t mostElements_;
    bool knowsExtrema_;
};

} // namespace MrlIOFuzz
