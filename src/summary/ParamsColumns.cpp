#include "summary/ParamsColumns.h"

#include "core/Fail.h"

#include <mrlio/FileIdentifiers.h>
#include <mrlio/MorvaneReaderUtils.h>
#include <mrlio/MrlIOException.h>

#include <algorithm>
#include <array>
#include <utility>

namespace Kvt::Mrl::MrlIO {

namespace {

constexpr std::size_t mostValues = 64 * 1024; // gathered at a time: 256 KiB
constexpr std::size_t mostRows = 256;
constexpr int widestGap = 1000; // values between two slices that cost less to read than another seek

} // namespace

std::optional<SummaryReportSteps::const_iterator> findReportStepBehind(const SummaryReportSteps& reportSteps,
                                                                       std::size_t miniSteps)
{
    std::size_t passed = 0;
    auto reportStep = reportSteps.begin();
    // Compared before it is added to, so that no mini steps lead to the first report step.
    while (passed != miniSteps) {
        if (reportStep == reportSteps.end())
            return std::nullopt;
        passed += (*reportStep)->miniSteps().size();
        ++reportStep;
    }
    return reportStep;
}

ParamsColumns::ParamsColumns(const SummaryContentIndex& index, const Slices& slices, Columns columns,
                             const char* failure)
    : index_(index),
      columns_(std::move(columns)),
      failure_(failure),
      params_("PARAMS", index.numVectors(), ValueType::REAL, std::int64_t{0})
{
    splitIntoGroups(slices);
}

void ParamsColumns::splitIntoGroups(const Slices& slices)
{
    for (auto [first, last] : slices) {
        while (first <= last) {
            if (groups_.empty() || groups_.back().rowWidth == mostValues) {
                const std::size_t before =
                    groups_.empty() ? 0 : groups_.back().firstColumn + groups_.back().places.size();
                groups_.push_back({{}, before, {}, 0});
            }
            first += addSlice(groups_.back(), first, last);
        }
    }
}

/// Adds as much of a slice as the group has room for, and returns how many values that are.
int ParamsColumns::addSlice(Group& group, int first, int last)
{
    const int room = static_cast<int>(mostValues - group.rowWidth);
    const int gap = group.slices.empty() ? 0 : first - group.slices.back().second - 1;
    const bool joins = !group.slices.empty() && gap <= widestGap && gap < room;
    const int skipped = joins ? gap : 0;
    const int count = std::min(last - first + 1, room - skipped);
    if (joins)
        group.slices.back().second = first + count - 1;
    else
        group.slices.emplace_back(first, first + count - 1);
    group.rowWidth += static_cast<std::size_t>(skipped);
    for (int i = 0; i < count; ++i)
        group.places.push_back(group.rowWidth++);
    return count;
}

void ParamsColumns::append(StepIterator from)
{
    for (const Group& group : groups_)
        readGroup(group, from);
}

void ParamsColumns::readGroup(const Group& group, StepIterator from)
{
    wholeLength_ = columns_[group.firstColumn]->size();
    rows_.resize(rowCapacity(group) * group.rowWidth);
    rowCount_ = 0;
    try {
        for (; from != index_.reportSteps().end(); ++from) {
            readReportStep(group, **from);
            wholeLength_ += (*from)->miniSteps().size();
        }
    } catch (...) {
        handOnRows(group);
        cutBack();
        throw;
    }
    handOnRows(group);
}

void ParamsColumns::readReportStep(const Group& group, const SummaryReportStepInfo& reportStep)
{
    open(reportStep.fileName());
    bool isRead = true;
    try {
        for (const auto& miniStep : reportStep.miniSteps()) {
            if (rowCount_ == rowCapacity(group))
                handOnRows(group);
            params_.keywordPos(miniStep->position());
            isRead = readRow(group, rows_.data() + rowCount_ * group.rowWidth);
            if (!isRead)
                break;
            ++rowCount_;
        }
    } catch (const MrlIOException& cause) {
        fail<SummaryReaderException>(failure_, reader_->getFileName(), '\n', cause.what());
    }
    if (!isRead)
        fail<SummaryReaderException>(failure_, reader_->getFileName());
}

bool ParamsColumns::readRow(const Group& group, float* row)
{
    for (const auto& [first, last] : group.slices) {
        if (!reader_->readDataArray(params_, row, first, last))
            return false;
        row += last - first + 1;
    }
    return true;
}

void ParamsColumns::handOnRows(const Group& group)
{
    const std::size_t rowCount = std::exchange(rowCount_, 0);
    std::array<float, mostRows> values;
    for (std::size_t i = 0; i < group.places.size(); ++i) {
        for (std::size_t row = 0; row < rowCount; ++row)
            values[row] = rows_[row * group.rowWidth + group.places[i]];
        std::vector<float>& column = *columns_[group.firstColumn + i];
        column.insert(column.end(), values.begin(), values.begin() + static_cast<std::ptrdiff_t>(rowCount));
    }
}

/// A further request goes on at the report step that failed, or where the columns stood if some were not read yet.
void ParamsColumns::cutBack()
{
    std::size_t length = wholeLength_;
    for (const auto* column : columns_)
        length = std::min(length, column->size());
    for (auto* column : columns_)
        column->resize(length);
}

/// A file stays open for as many report steps as it holds.
void ParamsColumns::open(const Service::FileName& file)
{
    if (openFile_ && (openFile_ == &file || *openFile_ == file))
        return;
    openFile_ = nullptr;
    const std::string name = file.GetFullName();
    try {
        reader_ = MorvaneReaderUtils::createAndInitReader(name, FileIdentifiers::Summary::isFormatted(name));
    } catch (const MrlIOException& cause) {
        fail<SummaryReaderException>(failure_, name, '\n', cause.what());
    }
    if (!reader_)
        fail<SummaryReaderException>(failure_, name);
    openFile_ = &file;
}

std::size_t ParamsColumns::rowCapacity(const Group& group) const
{
    return std::clamp<std::size_t>(mostValues / group.rowWidth, 1, mostRows);
}

} // namespace Kvt::Mrl::MrlIO
