#pragma once

#include "wellresults/Indexers.h"
#include "wellresults/ReaderState.h"

#include <mrlio/service/Namespaces.h>
#include <mrlio/service/YearMonthDay.h>

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace Kvt::Mrl::MrlIO {

/// What a reader of a file of dated reports holds. A Derived that keeps more of its own calls forgetDates() in its
/// forgetAnswers().
template <class Derived, class Index, class Loader>
class DatedReaderState : public ReaderState<Derived, Index, Loader>
{
public:
    const std::vector<std::string>& wells()
    {
        if (!wells_) {
            std::vector<std::string> names;
            for (const auto& [name, well] : this->index().wells())
                names.push_back(name);
            wells_ = std::move(names);
        }
        return *wells_;
    }

    /// What ask(index) answers for a date; `unknown` if there is no such date.
    template <class Answer, class Ask>
    Answer atDate(const Service::YearMonthDay& date, Answer unknown, Ask&& ask)
    {
        if (!dates_)
            dates_.emplace(this->index().dates());
        const std::int64_t index = dates_->index(date);
        return index < 0 ? unknown : ask(static_cast<std::size_t>(index));
    }

    void forgetDates()
    {
        dates_.reset();
        wells_.reset();
    }

    void forgetAnswers() { forgetDates(); }

private:
    std::optional<DateIndexer> dates_;
    std::optional<std::vector<std::string>> wells_;
};

} // namespace Kvt::Mrl::MrlIO
