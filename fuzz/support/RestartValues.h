#pragma once

#include "support/Fuzzing.h"

#include <mrlio/InitReader.h>
#include <mrlio/RestartReader.h>

#include <string>
#include <vector>

namespace MrlIOFuzz {

using Kvt::Mrl::MrlIO::ArrayInfo;
using Kvt::Mrl::MrlIO::InitReader;
using Kvt::Mrl::MrlIO::IPropertyDataAccess;
using Kvt::Mrl::MrlIO::IRawDataAccess;
using Kvt::Mrl::MrlIO::RestartReader;
using Kvt::Mrl::MrlIO::SpecStatsData;
using Kvt::Mrl::MrlIO::ValueType;

/// Asks a reader of any init or restart data for everything it can be asked for, and checks what comes out.
class RestartCheck
{
public:
    /// mostBytes   an array can't hold more elements than the file has bytes: nothing is allocated for what a file doesn't hold
    explicit RestartCheck(std::size_t mostBytes) : mostBytes_(mostBytes) {}

    void run(RestartReader& reader) const
    {
        require(reader.minIndex() <= reader.maxIndex(), "the smallest step isn't above the largest");
        require(!reader.isValidIndex(reader.maxIndex() + 1), "there is no step above the largest");
        // Numbers of steps may have gaps of any size between them.
        int seen = 0;
        for (int index = reader.minIndex(); index <= reader.maxIndex() && seen < mostSteps; ++index, ++seen) {
            if (!reader.isValidIndex(index))
                continue;
            succeeds([&] { reader.date(index), reader.time(index); });
            checkRaw(reader.rawData(index));
            succeeds([&] { checkProperties(reader.propertyData(index), reader.numCells()); });
        }
        succeeds([&] { reader.LGRs(), reader.isDualPorosity(), reader.phases(), reader.unitSystem(); });
        succeeds([&] { reader.getCellActivitiesInfo(); });
    }

    void checkRaw(const IRawDataAccess* access) const
    {
        if (access == nullptr)
            return;
        const SpecStatsData& rows = access->arrays();
        require(rows.types.size() == rows.names.size() && rows.numbers.size() == rows.names.size() &&
                    rows.pointers.size() == rows.names.size() && rows.pointersB.size() == rows.names.size() &&
                    rows.minima.size() == rows.names.size() && rows.maxima.size() == rows.names.size(),
                "columns have one length");
        for (const std::string& name : rows.names) {
            ArrayInfo info;
            require(access->hasArray(name) && access->getArrayInfo(name, info), "a listed array is there");
            readAs<int>(*access, info);
            readAs<float>(*access, info);
            readAs<double>(*access, info);
            readAs<std::string>(*access, info);
        }
    }

    static void checkProperties(const IPropertyDataAccess* access, int cells)
    {
        if (access == nullptr)
            return;
        for (const std::string& name : access->properties().names()) {
            require(access->hasProperty(name), "a listed property is there");
            std::vector<double> values;
            const bool isRead = succeeds([&] { access->getAnyArray(name, values); });
            require(!isRead || std::ssize(values) == cells, "a property has a value for each cell");
            require(isRead || values.empty(), "a failed read leaves nothing");
        }
    }

private:
    static constexpr int mostSteps = 64;

    template <class T>
    void readAs(const IRawDataAccess& access, const ArrayInfo& info) const
    {
        std::vector<T> values;
        const bool isRead = succeeds([&] { access.getAnyArray(info.getName(), values); });
        require(isRead ? std::ssize(values) == info.getSize() : values.empty(), "an array is read whole or not at all");
        require(values.size() <= mostBytes_, "an array comes out of the file");
    }

    std::size_t mostBytes_;
};

} // namespace MrlIOFuzz
