#pragma once

#include "service/BufferedBinaryFileReader.h"

#include <mrlio/KeywordHeader.h>

#include <cstddef>
#include <cstdint>
#include <string>
#include <unordered_map>
#include <vector>

namespace Kvt::Mrl::MrlIO {

/// Walks over the headers of an unformatted file at nearly the speed of its bytes, many times faster than a reader over
/// short arrays. It takes only the steps that are beyond doubt: to a header of a name and type that it knows, over
/// records that are framed as they should be. All others are left to a reader, which also knows what to say about a
/// damage:
///
///     if (!skimmer.next()) {
///         reader.setCurrentHeader(current);
///         if (reader.readNextKeywordHeader(header) && !skimmer.learn(header))
///             ...                                             // the reader takes all further steps
///     }
class HeaderSkimmer
{
public:
    explicit HeaderSkimmer(const std::string& fileName) : file_(fileName.c_str()) {}

    /// Goes to the next header. False, at the same place as before, where a reader has to take the step.
    bool next();

    /// Goes to a header that a reader has found, and knows its kind from now on. False if the skimmer doesn't see the
    /// same: the file can't be opened a second time, or has changed. It is of no use then.
    bool learn(const KeywordHeader& header);

    /// The number of the present header's kind, from 0 on in the order of learning. Headers of one kind have one name
    /// and one type.
    std::uint32_t kind() const { return kind_; }

    const std::string& name() const { return kinds_[kind_].name; }

    std::int64_t size() const { return size_; }

    /// The header to which next() has gone.
    KeywordHeader header() const;

    /// Read the data of the present keyword. False where they have another type, or aren't short and in one record: a
    /// reader has to do it then.
    bool read(std::vector<int>& values);
    bool read(std::vector<float>& values);
    /// most   so many strings are read at most
    bool read(std::vector<std::string>& values, std::int64_t most);

    bool read(std::vector<double>&) { return false; }

private:
    /// The bytes of a header that tell its kind.
    struct Key
    {
        std::uint64_t name;
        std::uint32_t type;

        bool operator==(const Key&) const = default;
    };

    struct Kind
    {
        Key key;
        std::string name;
        ValueTypeInfo info;
        int width;              // of an element; negative if there can't be any
        std::uint32_t follower; // the kind that came behind the last time
    };

    struct Hash
    {
        std::size_t operator()(const Key& key) const;
    };

    const char* behindData();
    bool passRecords();
    bool findKind(const Key& key, std::uint32_t& kind);
    const char* onlyRecord(ValueType::Enum type);

    static Key keyOf(const char* header);

    Service::BufferedBinaryFileReader file_;
    std::vector<Kind> kinds_;
    std::unordered_map<Key, std::uint32_t, Hash> numbers_;
    std::uint32_t kind_ = 0;
    std::int64_t position_ = 0; // of the present header
    std::int64_t size_ = 0;
    std::int64_t resumeAt_ = 0;  // where the records begin that haven't been passed ...
    std::int64_t bytesLeft_ = 0; // ... and what they hold
};

} // namespace Kvt::Mrl::MrlIO
