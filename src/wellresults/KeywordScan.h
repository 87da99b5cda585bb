#pragma once

#include "core/Fail.h"
#include "core/HeaderAt.h"
#include "core/HeaderSkimmer.h"
#include "wellresults/NameSequence.h"
#include "wellresults/StoredArray.h"

#include <mrlio/KeywordHeader.h>
#include <mrlio/MorvaneReader.h>
#include <mrlio/MorvaneReaderUtils.h>
#include <mrlio/service/FileName.h>
#include <mrlio/service/Namespaces.h>

#include <cstdint>
#include <limits>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace Kvt::Mrl::MrlIO {

/// A walk over the keywords of one file, with the texts of its failures: it opens the file, and closes it at its end.
/// What the reader of the file throws passes unchanged; E is thrown where the reader says no.
template <class E>
class KeywordScan
{
public:
    /// Stands before the first keyword.
    /// where         the operation that walks; it begins the texts, and has to outlive the walk
    /// openingWhere  begins the text for a file that can't be opened; null means `where`
    /// throws        E if the file can't be opened or doesn't begin with a keyword, MrlIOException if that is damaged
    KeywordScan(const char* where, const Service::FileName& file, bool isFormatted, const char* openingWhere = nullptr)
        : where_(where),
          isFormatted_(isFormatted),
          reader_(MorvaneReaderUtils::createAndInitReader(file.GetFullName(), isFormatted))
    {
        if (!reader_)
            fail<E>(openingWhere ? openingWhere : where, ": reader not initialized");
    }

    /// Goes to a keyword whose place is remembered; next() gives the one behind it. Ends the skimming.
    /// throws   E if another keyword stands there, or none
    void startAt(const char* name, std::int64_t position)
    {
        skimmer_.reset(); // it stands elsewhere
        isHeaderOld_ = false;
        if (!headerAt(*reader_, position, header_) || header_.name() != name)
            failReading(name);
    }

    /// To be called ahead of a walk that passes most keywords unread, which is much faster then.
    void skimHeaders()
    {
        if (!isFormatted_)
            skimmer_ = std::make_unique<HeaderSkimmer>(reader_->getFileName());
    }

    /// Goes on to the next keyword. False at the end of the file, where header() has no name.
    bool next()
    {
        if (!skimmer_ || !skimmer_->next())
            return nextOfReader();
        isHeaderOld_ = true;
        return true;
    }

    const KeywordHeader& header() const
    {
        if (std::exchange(isHeaderOld_, false))
            header_ = skimmer_->header();
        return header_;
    }

    const std::string& name() const { return isHeaderOld_ ? skimmer_->name() : header_.name(); }

    std::int64_t size() const { return isHeaderOld_ ? skimmer_->size() : header_.size(); }

    /// names.number(name()). A walk that skims mostly knows it without a look at the name, so it has to be the same
    /// `names` all the way.
    std::uint32_t number(NameSequence& names)
    {
        if (!skimmer_)
            return names.number(name());
        const std::uint32_t kind = skimmer_->kind();
        if (kind >= numbers_.size())
            numbers_.resize(kind + 1);
        if (!numbers_[kind])
            numbers_[kind] = names.number(name());
        return *numbers_[kind];
    }

    /// The data of the keyword, valid until the next call for the same type. There is no conversion: the type has to
    /// be that of the file.
    const std::vector<int>& integers() { return read(integers_); }

    const std::vector<float>& floats() { return read(floats_); }

    const std::vector<double>& doubles() { return read(doubles_); }

    /// most   so many at most
    const std::vector<std::string>& strings(std::int64_t most = std::numeric_limits<std::int64_t>::max())
    {
        if (skimmer_ && skimmer_->read(strings_, most))
            return strings_;
        if (!reader_->readDataVector(header(), strings_, -1, most < header().size() ? most - 1 : -1))
            failReading(name());
        return strings_;
    }

    /// The data of the keyword, whatever they are.
    /// where   begins the text of a failure
    StoredArray storedArray(const char* where)
    {
        StoredArray array;
        if (!readStoredArray(*reader_, header(), array))
            fail<E>(where, ": error reading ", name());
        return array;
    }

    MorvaneReader& reader() { return *reader_; }

    /// Throws the text for a keyword that can't be read.
    /// detail   stands behind it
    [[noreturn]] void failReading(const std::string& name, const char* detail = "") const
    {
        fail<E>(where_, ": error reading ", name, detail);
    }

private:
    bool nextOfReader()
    {
        header(); // the place from which the reader goes on
        if (skimmer_)
            reader_->setCurrentHeader(header_);
        if (!reader_->readNextKeywordHeader(header_)) {
            header_ = KeywordHeader();
            skimmer_.reset();
            return false;
        }
        if (skimmer_ && !skimmer_->learn(header_))
            skimmer_.reset();
        return true;
    }

    template <class T>
    const std::vector<T>& read(std::vector<T>& values)
    {
        const bool isRead = skimmer_ && skimmer_->read(values);
        if (!isRead && !reader_->readDataVector(header(), values))
            failReading(name());
        return values;
    }

    const char* where_;
    bool isFormatted_;
    std::unique_ptr<MorvaneReader> reader_;
    std::unique_ptr<HeaderSkimmer> skimmer_; // null if the reader takes all steps
    mutable bool isHeaderOld_ = false;       // the skimmer stands at a later one
    mutable KeywordHeader header_;
    std::vector<std::optional<std::uint32_t>> numbers_; // by kind of the skimmer
    std::vector<int> integers_;
    std::vector<float> floats_;
    std::vector<double> doubles_;
    std::vector<std::string> strings_;
};

} // namespace Kvt::Mrl::MrlIO
