#pragma once

#include "support/Fuzzing.h"

#include <mrlio/MorvaneReaderUtils.h>

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <memory>
#include <string>
#include <type_traits>
#include <vector>

namespace MrlIOFuzz {

/// Reads a keyword file in every way that a reader offers, and compares what comes out.
class KeywordFileCheck
{
public:
    /// comparesAllSlices  false if only slices from the start of an array on agree with it
    KeywordFileCheck(const std::string& file, bool formatted, bool comparesAllSlices)
        : file_(file),
          formatted_(formatted),
          comparesAllSlices_(comparesAllSlices)
    {}

    void run()
    {
        const auto reader = open();
        std::vector<KeywordHeader> headers;
        const bool endsWell = walk(*reader, headers, true);

        // Reading arrays must not have changed the walk, nor the order what is read.
        std::vector<KeywordHeader> again;
        require(walk(*open(), again, false) == endsWell, "a second walk ends as the first one");
        require(headers.size() == again.size(), "a second walk finds as many keywords");
        for (std::size_t i = 0; i < headers.size(); ++i)
            require(isSame(headers[i], again[i]), "a second walk finds the same keywords");
        headers.resize(std::min(headers.size(), mostArraysRead));
        for (auto header = headers.rbegin(); header != headers.rend(); ++header)
            readAsStored(*reader, *header);
    }

private:
    using KeywordHeader = Kvt::Mrl::MrlIO::KeywordHeader;
    using MorvaneReader = Kvt::Mrl::MrlIO::MorvaneReader;
    using ValueType = Kvt::Mrl::MrlIO::ValueType;

    static constexpr std::size_t mostArraysRead = 256;
    static constexpr std::int64_t mostSlices = 5;

    std::unique_ptr<MorvaneReader> open() const
    {
        auto reader = Kvt::Mrl::MrlIO::MorvaneReaderUtils::createReader(file_, formatted_);
        require(reader != nullptr, "a file that is there can be opened");
        return reader;
    }

    /// False if the walk ends with an exception.
    bool walk(MorvaneReader& reader, std::vector<KeywordHeader>& headers, bool readArrays)
    {
        return succeeds([&] {
            for (KeywordHeader header; reader.readNextKeywordHeader(header);) {
                headers.push_back(header);
                if (readArrays && headers.size() <= mostArraysRead)
                    readAsStored(reader, header);
            }
        });
    }

    static bool isSame(const KeywordHeader& a, const KeywordHeader& b)
    {
        return a.name() == b.name() && a.size() == b.size() && a.valueType() == b.valueType() &&
               a.valueTypeInfo().intData() == b.valueTypeInfo().intData() &&
               a.keywordLargePos() == b.keywordLargePos() && a.second_keywordLargePos() == b.second_keywordLargePos();
    }

    void readAsStored(MorvaneReader& reader, const KeywordHeader& header)
    {
        switch (header.valueType()) {
        case ValueType::DOUB:
            return readAs<double>(reader, header);
        case ValueType::REAL:
            return readAs<float>(reader, header);
        case ValueType::INTE:
        case ValueType::LOGI:
            return readAs<int>(reader, header);
        default:
            return readAs<std::string>(reader, header);
        }
    }

    template <class T>
    void readAs(MorvaneReader& reader, const KeywordHeader& header)
    {
        std::vector<T> whole;
        const bool isRead = succeeds([&] { reader.readDataVector(header, whole); });
        require(isRead ? std::ssize(whole) == header.size() : whole.empty(), "an array is read whole or not at all");
        if (!isRead)
            return;
        const std::int64_t step = header.size() / mostSlices + 1;
        for (std::int64_t first = 0; first < header.size(); first += step) {
            const std::int64_t last = std::min(first + step, header.size()) - 1;
            std::vector<T> slice;
            const bool isSliceRead = succeeds([&] { reader.readDataVector(header, slice, first, last); });
            if (first != 0 && !comparesAllSlices_)
                continue;
            require(isSliceRead && std::ssize(slice) == last - first + 1, "a slice of a readable array can be read");
            for (std::size_t i = 0; i < slice.size(); ++i)
                require(isSameValue(slice[i], whole[static_cast<std::size_t>(first) + i]),
                        "a slice is part of the whole");
        }
    }

    template <class T>
    static bool isSameValue(const T& a, const T& b)
    {
        if constexpr (std::is_arithmetic_v<T>)
            return std::memcmp(&a, &b, sizeof a) == 0; // not-a-numbers are equal too
        else
            return a == b;
    }

    std::string file_;
    bool formatted_;
    bool comparesAllSlices_;
};

} // namespace MrlIOFuzz
