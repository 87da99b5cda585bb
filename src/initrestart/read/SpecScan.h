#pragma once

#include "initrestart/read/SpecData.h"
#include "initrestart/read/SpecDataArrays.h"

#include <cstddef>
#include <string>
#include <vector>

namespace Kvt::Mrl::MrlIO {

/// Works an index out from data files: a row for each keyword, with the smallest and largest value of its array.
class SpecScan
{
public:
    /// data       gets the steps; its read is not finished here
    /// intehead   becomes the first INTEHEAD of all files
    SpecScan(SpecData& data, std::vector<int>& intehead) : data_(data), firstIntehead_(intehead) {}

    /// One more file, formatted or not by its name, which tells the step if no SEQNUM does.
    /// throws   RestartReaderException, or the reader's MrlIOException for a damaged file
    void scan(const std::string& fileName);

private:
    void takeKeyword(MorvaneReader& reader, const KeywordHeader& header);
    Extrema takeArray(MorvaneReader& reader, const KeywordHeader& header);
    Extrema takeSeqnum(MorvaneReader& reader, const KeywordHeader& header);
    Extrema takeIntehead(MorvaneReader& reader, const KeywordHeader& header);
    Extrema takeDoubhead(MorvaneReader& reader, const KeywordHeader& header);
    Extrema takeLgr(MorvaneReader& reader, const KeywordHeader& header);
    void takeTimeOfDay(SpecIndexData& step);
    void takeStepFromName(const std::string& fileName);
    void startHeaders();
    void reserveRows(SpecStatsData& rows) const;

    SpecData& data_;
    std::vector<int>& firstIntehead_;
    bool hasSeqnum_ = false;
    // Only the first of each counts in a step: those of the global grid.
    bool wantsIntehead_ = true;
    bool wantsDoubhead_ = true;

    std::size_t latestRowCount_ = 0; // of the table that grew last

    ArrayExtrema arrayExtrema_;
    std::vector<int> integers_;
    std::vector<double> doubles_;
    std::vector<std::string> texts_;
};

/// An array's row.
/// throws   RestartReaderException "Cannot handle size of " and the keyword's name for a count beyond int
void appendRow(SpecStatsData& rows, const KeywordHeader& header, const Extrema& extrema);
int checkedCount(const KeywordHeader& header);

} // namespace Kvt::Mrl::MrlIO
