#pragma once

#include "initrestart/read/SpecIndexData.h"

#include <mrlio/MorvaneReader.h>
#include <mrlio/service/FileName.h>
#include <mrlio/service/Namespaces.h>

#include <map>
#include <memory>
#include <string>
#include <vector>

namespace Kvt::Mrl::MrlIO {

/// The index of an init file or of all report steps of a case, read from the index file beside the data or worked out
/// from the data themselves. After a failed read it holds no steps.
///
/// While it is read there is a current step and, in it, a current table of rows: that of the global grid or of a local
/// one. Both come to life when they are first asked for.
class SpecData
{
public:
    SpecData() = default;
    SpecData(const SpecData&) = delete;
    SpecData& operator=(const SpecData&) = delete;
    virtual ~SpecData() = default;

    /// Reads an index file, formatted or not by its name. One that ends inside a keyword, as while it is written, is
    /// read up to there.
    /// throws   RestartReaderException, or the reader's MrlIOException for a damaged file
    void read(const Service::FileName& specFile);

    /// Scans the data files: all their content passes through memory, an array at a time.
    /// throws   as above, for a file that ends inside a keyword, too
    void read(const std::vector<std::string>& dataFiles);

    /// The first INTEHEAD of the index file or of the data files; empty if there was none.
    const std::vector<int>& inteheadData() const { return inteheadData_; }

    /// Takes from an index file what belongs to a step as a whole. False for other keywords, which are left to the
    /// tables.
    virtual bool processIndexFileKeywordHeader(MorvaneReader& reader, const KeywordHeader& header) = 0;
    virtual SpecStatsData* currentStats() = 0;
    /// Null for the global grid of the current step.
    virtual void setCurrentStats(SpecStatsData* stats) = 0;
    virtual SpecIndexData* currentIndex() = 0;
    virtual void startStep() = 0;
    virtual void finishRead() = 0;
    virtual void clear() = 0;

private:
    template <class Read>
    void readWhole(Read read);
    bool readSpecKeywords(MorvaneReader& reader);
    void takeIntehead(MorvaneReader& reader, const KeywordHeader& header);

    std::vector<int> inteheadData_;
};

/// The one index of an init file.
class InitSpecData final : public SpecData
{
public:
    /// Null before anything was read.
    const SpecIndexData* index() const { return index_.get(); }

    bool processIndexFileKeywordHeader(MorvaneReader& reader, const KeywordHeader& header) override;
    SpecStatsData* currentStats() override;
    void setCurrentStats(SpecStatsData* stats) override;
    SpecIndexData* currentIndex() override;
    void startStep() override;
    void finishRead() override;
    void clear() override;

private:
    std::shared_ptr<SpecIndexData> index_;
    SpecStatsData* currentStats_ = nullptr;
};

/// Steps stand under their report step numbers where these increase through the case, else under their places in it.
class RestartSpecData final : public SpecData
{
public:
    /// -1 without steps.
    int minIndex() const { return minIndex_; }

    int maxIndex() const { return maxIndex_; }

    /// Null where there is no step.
    const SpecIndexData* step(int index) const;

    /// The steps that are there, by ascending index.
    const std::map<int, std::shared_ptr<SpecIndexData>>& steps() const { return steps_; }

    bool processIndexFileKeywordHeader(MorvaneReader& reader, const KeywordHeader& header) override;
    SpecStatsData* currentStats() override;
    void setCurrentStats(SpecStatsData* stats) override;
    SpecIndexData* currentIndex() override;
    void startStep() override;
    void finishRead() override;
    void clear() override;

private:
    void readTime(MorvaneReader& reader, const KeywordHeader& header);
    void readItime(MorvaneReader& reader, const KeywordHeader& header);

    std::vector<std::shared_ptr<SpecIndexData>> stepsRead_; // in file order, while reading
    SpecIndexData* currentStep_ = nullptr;
    SpecStatsData* currentStats_ = nullptr;
    std::vector<double> timeWords_; // what TIME and ITIME held last, kept for their memory
    std::vector<int> itimeWords_;

    std::map<int, std::shared_ptr<SpecIndexData>> steps_;
    int minIndex_ = -1;
    int maxIndex_ = -1;
};

} // namespace Kvt::Mrl::MrlIO
