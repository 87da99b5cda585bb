#pragma once

#include "initrestart/read/LgrPairs.h"
#include "initrestart/read/SpecIndexData.h"
#include "initrestart/read/StepWalk.h"

#include <mrlio/IMorvaneReaderSource.h>
#include <mrlio/IRawDataAccess.h>
#include <mrlio/service/FileName.h>
#include <mrlio/service/Namespaces.h>

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace Kvt::Mrl::MrlIO {

/// What a row of an index says of its array.
ArrayInfo arrayInfoOf(const SpecStatsData& rows, std::size_t row);

/// The arrays of one step, found through the index and read by a seek. The file is open only while an array is read, so
/// that a case of thousands of steps holds no file handles.
class RawDataAccess final : public IRawDataAccess, public IMorvaneReaderSource
{
public:
    /// index       of the step; must outlive the access
    /// findRange   where the step's keywords stand, for what the index doesn't know: arrays between local grids. Must
    ///             not be empty.
    RawDataAccess(
        const Service::FileName& file, const SpecIndexData& index, bool formatted,
        StepRangeSource findRange = [] { return StepRange(); });

    const SpecStatsData& arrays(const std::string& lgr = {}, const std::string& lgr2 = {}) const override;
    bool hasArray(const std::string& name, const std::string& lgr = {}, const std::string& lgr2 = {}) const override;
    bool getArrayInfo(const std::string& name, ArrayInfo& out, const std::string& lgr = {},
                      const std::string& lgr2 = {}) const override;
    bool getAnyArray(const std::string& name, std::vector<std::string>& out, const std::string& lgr = {},
                     const std::string& lgr2 = {}) const override;
    bool getAnyArray(const std::string& name, std::vector<bool>& out, const std::string& lgr = {},
                     const std::string& lgr2 = {}) const override;
    bool getAnyArray(const std::string& name, std::vector<int>& out, const std::string& lgr = {},
                     const std::string& lgr2 = {}) const override;
    bool getAnyArray(const std::string& name, std::vector<float>& out, const std::string& lgr = {},
                     const std::string& lgr2 = {}) const override;
    bool getAnyArray(const std::string& name, std::vector<double>& out, const std::string& lgr = {},
                     const std::string& lgr2 = {}) const override;

    std::shared_ptr<MorvaneReader> createReader() override;

    /// The arrays between local grids. The first question walks the headers of the step.
    /// throws   RestartReaderException if the file can't be opened, MrlIOException if it is damaged
    const LgrPairMap& lgrPairs() const;

private:
    template <class T>
    bool getArray(const std::string& name, std::vector<T>& out, const std::string& lgr, const std::string& lgr2) const;
    template <class T>
    void readRow(const SpecStatsData& rows, std::size_t row, std::vector<T>& out) const;
    template <class S, class T>
    void readAs(MorvaneReader& reader, const SpecStatsData& rows, std::size_t row, std::vector<T>& out) const;
    template <class S>
    void readStored(MorvaneReader& reader, const SpecStatsData& rows, std::size_t row, std::vector<S>& out) const;

    const SpecStatsData* find(const std::string& lgr, const std::string& lgr2) const;
    std::unique_ptr<MorvaneReader> openReader() const;

    Service::FileName file_;
    const SpecIndexData& index_;
    bool formatted_;
    StepRangeSource findRange_;
    mutable std::optional<LgrPairMap> pairs_; // filled on first use
};

} // namespace Kvt::Mrl::MrlIO
