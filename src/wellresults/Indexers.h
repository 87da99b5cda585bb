#pragma once

#include "wellresults/NameSequence.h"

#include <mrlio/service/Namespaces.h>
#include <mrlio/service/YearMonthDay.h>

#include <cstddef>
#include <cstdint>
#include <map>
#include <string>
#include <utility>
#include <vector>

namespace Kvt::Mrl::MrlIO {

/// Gives each distinct key a small number, from 0 on in the order of the questions. It remembers the last key, since
/// callers ask for one and the same many times in a row. A question for an unknown key makes it known.
template <class Key>
class Indexer
{
public:
    int index(const Key& key)
    {
        if (last_ && last_->first == key)
            return last_->second;
        const auto place = indexes_.try_emplace(key, static_cast<int>(indexes_.size())).first;
        last_ = &*place; // the places of a map don't move
        return place->second;
    }

private:
    std::map<Key, int> indexes_;
    const std::pair<const Key, int>* last_ = nullptr;
};

/// The same for names, which callers and files mostly go through in one order time and again.
class NameIndexer
{
public:
    int index(const std::string& name) { return static_cast<int>(names_.number(name)); }

private:
    NameSequence names_;
};

/// Finds the index of a date. Of equal dates the last one counts. Since callers walk the dates in order, the place
/// found last and the one after it are tried before the search.
class DateIndexer
{
public:
    /// dates   has to outlive the indexer, unchanged
    explicit DateIndexer(const std::vector<Service::YearMonthDay>& dates);

    /// -1 for an unknown date.
    std::int64_t index(const Service::YearMonthDay& date);

private:
    bool isAt(std::size_t place, const Service::YearMonthDay& date) const;

    const std::vector<Service::YearMonthDay>& dates_;
    std::map<Service::YearMonthDay, std::size_t> places_;
    std::vector<bool> isLastOfDate_; // by place
    std::size_t last_ = 0;
};

} // namespace Kvt::Mrl::MrlIO
