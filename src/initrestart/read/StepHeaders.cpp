#include "initrestart/read/StepHeaders.h"

#include <mrlio/MorvaneReaderUtils.h>
#include <mrlio/RestartKeywordAccess.h>
#include <mrlio/service/FileName.h>

#include <algorithm>
#include <iterator>
#include <memory>
#include <utility>

namespace Kvt::Mrl::MrlIO {

/// Gathers the headers while it is led through the keywords of the step.
class StepHeaders::Walk
{
public:
    explicit Walk(const SpecIndexData& index) : index_(index) {}

    /// False when nothing more is wanted.
    bool visit(MorvaneReader& reader, const KeywordHeader& header)
    {
        const std::string& name = header.name();
        if (name == "LGR")
            enterLocalGrid(reader, header);
        else if (name == "ENDLGR" || name == "LGRSGONE")
            grid_.clear();
        else if (name == "INTEHEAD")
            take(reader, header, &GridHeaders::intehead);
        else if (name == "LOGIHEAD" && grid_.empty())
            take(reader, header, &GridHeaders::logihead);
        else if (name == "DOUBHEAD" && grid_.empty())
            take(reader, header, &GridHeaders::doubhead);
        else
            return true;
        return !isComplete();
    }

    Found found;

private:
    void enterLocalGrid(MorvaneReader& reader, const KeywordHeader& header)
    {
        std::vector<std::string> names;
        reader.readDataVector(header, names);
        grid_ = RestartKeywordAccess::getLGRNAME(names);
    }

    /// Of several arrays of one name the first one counts, as in an index.
    template <class T>
    void take(MorvaneReader& reader, const KeywordHeader& header, std::optional<std::vector<T>> GridHeaders::*array)
    {
        std::optional<std::vector<T>>& values = found[grid_].*array;
        if (values)
            return;
        std::vector<T> read;
        reader.readDataVector(header, read);
        values = std::move(read);
    }

    bool isComplete() const
    {
        const auto global = found.find({});
        if (global == found.end() || !global->second.intehead || !global->second.logihead || !global->second.doubhead)
            return false;
        return std::ranges::all_of(index_.lgrNames, [this](const std::string& lgr) {
            const auto local = found.find(lgr);
            return local != found.end() && local->second.intehead;
        });
    }

    const SpecIndexData& index_;
    std::string grid_; // empty for the global one
};

StepHeaders::StepHeaders(const SpecIndexData& index, const IRawDataAccess& rawData, StepPlace place, bool lacksHeaders)
    : index_(index),
      rawData_(rawData),
      place_(std::move(place)),
      lacksHeaders_(lacksHeaders)
{}

bool StepHeaders::needsSubstitute(const std::vector<int>& substitute) const
{
    return !substitute.empty() && !Service::FileName(place_.file).IsFile();
}

bool StepHeaders::caseIntehead(std::vector<int>& out, const std::vector<int>& substitute)
{
    if (!needsSubstitute(substitute))
        return intehead(out, {});
    out = substitute;
    return true;
}

const StepHeaders::GridHeaders* StepHeaders::walked(const std::string& lgr)
{
    if (!lacksHeaders_)
        return nullptr;
    if (!found_) {
        Walk walk(index_);
        if (const auto reader = MorvaneReaderUtils::createAndInitReader(place_.file, place_.formatted))
            walkStep(*reader, place_.findRange(),
                     [&walk](MorvaneReader& file, const KeywordHeader& header) { return walk.visit(file, header); });
        found_ = std::move(walk.found);
    }
    const auto grid = found_->find(lgr);
    return grid == found_->end() ? nullptr : &grid->second;
}

bool StepHeaders::intehead(std::vector<int>& out, const std::string& lgr)
{
    out.clear();
    if (rawData_.hasArray("INTEHEAD", lgr))
        return rawData_.getAnyArray("INTEHEAD", out, lgr);
    const GridHeaders* headers = walked(lgr);
    if (headers == nullptr || !headers->intehead)
        return false;
    out = *headers->intehead;
    return true;
}

bool StepHeaders::logihead(std::vector<bool>& out)
{
    out.clear();
    if (rawData_.hasArray("LOGIHEAD"))
        return rawData_.getAnyArray("LOGIHEAD", out);
    const GridHeaders* headers = walked({});
    if (headers == nullptr || !headers->logihead)
        return false;
    std::ranges::transform(*headers->logihead, std::back_inserter(out), [](int value) { return value != 0; });
    return true;
}

bool StepHeaders::doubhead(std::vector<double>& out)
{
    out.clear();
    if (rawData_.hasArray("DOUBHEAD"))
        return rawData_.getAnyArray("DOUBHEAD", out);
    const GridHeaders* headers = walked({});
    if (headers == nullptr || !headers->doubhead)
        return false;
    out = *headers->doubhead;
    return true;
}

} // namespace Kvt::Mrl::MrlIO
