#pragma once

#include "core/TextArray.h"
#include "core/VectorGrowth.h"
#include "service/TextFileReader.h"

#include <mrlio/KeywordHeader.h>

#include <algorithm>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace Kvt::Mrl::MrlIO {

/// The open file, the current keyword, and all that is done with them. The array operations take indexes that have been
/// checked and the kind of text that the header's type stands for.
class MorvaneAsciiReaderImpl
{
public:
    bool eof() const { return !file_ || file_->eof(); }

    bool open(const std::string& fileName);
    void setCurrent(const KeywordHeader& header);

    bool readNext(KeywordHeader& header);
    void readHeaderLine(KeywordHeader& header);
    void parseHeaderLine(KeywordHeader& header, std::string& line, std::int64_t position) const;
    void seekToData(const KeywordHeader& header);
    bool findHeaderLine(std::string& line, std::int64_t& position);

    template <class Kind>
    void readArray(const KeywordHeader& header, typename Kind::Value* out, std::int64_t first, std::int64_t last);

    template <class Kind>
    void readVector(const KeywordHeader& header, std::vector<typename Kind::Value>& out, std::int64_t first,
                    std::int64_t last);

    /// Throws what a read of `header` reports, with the place of the keyword.
    [[noreturn]] void failRead(const char* where, const char* message, const KeywordHeader& header) const;

    static constexpr const char* inReadData = "Kvt::Mrl::MrlIO::MorvaneAsciiReader::readKeywordData";

private:
    template <class Kind>
    void passData(const KeywordHeader& header);

    template <class Kind, class Filler>
    void readSlice(const KeywordHeader& header, Filler filler, std::int64_t first, std::int64_t last);

    bool goToData(const KeywordHeader& header);
    void finishSlice(const KeywordHeader& header, std::int64_t last);
    void check(TextArrayResult result, const KeywordHeader& header) const;

    std::int64_t mostValuesAhead() const;
    void passCurrentData();

    std::string fileName_;
    std::unique_ptr<Service::TextFileReader> file_;
    KeywordHeader current_;
};

template <class Kind>
void MorvaneAsciiReaderImpl::readArray(const KeywordHeader& header, typename Kind::Value* out, std::int64_t first,
                                       std::int64_t last)
{
    if (goToData(header))
        readSlice<Kind>(header, BufferFiller<typename Kind::Value>(out), first, last);
}

/// Replaces what the vector held. Room is made for all that the file can hold, but never for more than was asked for.
template <class Kind>
void MorvaneAsciiReaderImpl::readVector(const KeywordHeader& header, std::vector<typename Kind::Value>& out,
                                        std::int64_t first, std::int64_t last)
{
    if (goToData(header))
        readSlice<Kind>(header, VectorFiller<typename Kind::Value>(out, last - first + 1, mostValuesAhead()), first,
                        last);
    else
        out.clear();
}

template <class Kind, class Filler>
void MorvaneAsciiReaderImpl::readSlice(const KeywordHeader& header, Filler filler, std::int64_t first,
                                       std::int64_t last)
{
    Kind::skip(*file_, first);
    for (std::int64_t left = last - first + 1; left > 0;) {
        const std::int64_t count = std::min(left, Filler::step);
        auto* const place = filler.next(count);
        check(readTextValues<Kind>(
                  *file_, count, [place](std::int64_t i) -> auto& { return place[i]; }),
              header);
        left -= count;
    }
    finishSlice(header, last);
}

} // namespace Kvt::Mrl::MrlIO
