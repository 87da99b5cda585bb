#pragma once

#include "summary/SummaryContentIndex.h"

#include <mrlio/KeywordHeader.h>
#include <mrlio/MorvaneReader.h>

#include <cstddef>
#include <memory>
#include <optional>
#include <utility>
#include <vector>

namespace Kvt::Mrl::MrlIO {

/// The report step behind the first `miniSteps` mini steps, or the end; none if no report step ends there.
std::optional<SummaryReportSteps::const_iterator> findReportStepBehind(const SummaryReportSteps& reportSteps,
                                                                       std::size_t miniSteps);

/// Reads slices of the PARAMS of consecutive report steps into columns, one value of each per mini step. What stands
/// side by side in the file goes to one column each, so that mini steps are gathered and handed on many at a time.
class ParamsColumns
{
public:
    using Slices = std::vector<std::pair<int, int>>; // first and last place, both inclusive
    using Columns = std::vector<std::vector<float>*>;
    using StepIterator = SummaryReportSteps::const_iterator;

    /// columns  one for each place of the slices in order; all of the same length
    /// failure  how the text of a failure begins; the name of the file follows
    ParamsColumns(const SummaryContentIndex& index, const Slices& slices, Columns columns, const char* failure);

    /// Appends the values of the report steps from `from` on to all columns.
    /// throws  SummaryReaderException if something can't be read; the columns hold whole report steps only then
    void append(StepIterator from);

private:
    /// Columns that are read in one pass, and the slices that they come from. One group unless there are very many.
    struct Group
    {
        Slices slices; // those that nearly touch are one, with what stands between them
        std::size_t firstColumn = 0;
        std::vector<std::size_t> places; // of the columns' values in a row
        std::size_t rowWidth = 0;
    };

    void splitIntoGroups(const Slices& slices);
    static int addSlice(Group& group, int first, int last);
    void readGroup(const Group& group, StepIterator from);
    void readReportStep(const Group& group, const SummaryReportStepInfo& reportStep);
    bool readRow(const Group& group, float* row);
    void handOnRows(const Group& group);
    void cutBack();
    void open(const Service::FileName& file);
    std::size_t rowCapacity(const Group& group) const;

    const SummaryContentIndex& index_;
    Columns columns_;
    const char* failure_;
    std::vector<Group> groups_;
    std::vector<float> rows_; // of gathered mini steps
    std::size_t rowCount_ = 0;
    std::size_t wholeLength_ = 0; // of the columns at the end of the last whole report step
    KeywordHeader params_;
    std::unique_ptr<MorvaneReader> reader_;
    const Service::FileName* openFile_ = nullptr;
};

} // namespace Kvt::Mrl::MrlIO
