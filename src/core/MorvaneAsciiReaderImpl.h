#pragma once

#include "core/TextArray.h"
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

    void finishSlice(const KeywordHeader& header, std::int64_t last);
    void check(TextArrayResult result, const KeywordHeader& header) const;
    void requireFile(const KeywordHeader& header) const;

    std::int64_t possibleSize(std::int64_t wanted, std::int64_t read) const;
    void passCurrentData();

    std::string fileName_;
    std::unique_ptr<Service::TextFileReader> file_;
    KeywordHeader current_;
};

template <class Kind>
void MorvaneAsciiReaderImpl::readArray(const KeywordHeader& header, typename Kind::Value* out, std::int64_t first,
                                       std::int64_t last)
{
    requireFile(header);
    seekToData(header);
    if (header.size() == 0)
        return;
    Kind::skip(*file_, first);
    check(readTextValues<Kind>(
              *file_, last - first + 1, [out](std::int64_t i) -> auto& { return out[i]; }),
          header);
    finishSlice(header, last);
}

/// Fills an empty vector, which grows by a step at a time. Once the first one is there, room for all that the file can
/// hold is reserved, but never for more than was asked for; a count that lies takes no more memory than the values that
/// are there.
template <class Kind>
void MorvaneAsciiReaderImpl::readVector(const KeywordHeader& header, std::vector<typename Kind::Value>& out,
                                        std::int64_t first, std::int64_t last)
{
    constexpr std::int64_t step = (std::int64_t{256} << 10) / static_cast<std::int64_t>(sizeof(typename Kind::Value));
    requireFile(header);
    seekToData(header);
    if (header.size() == 0)
        return;
    Kind::skip(*file_, first);
    const std::int64_t count = last - first + 1;
    for (std::int64_t read = 0; read < count;) {
        const std::int64_t next = std::min(step, count - read);
        if (read == step)
            out.reserve(static_cast<std::size_t>(possibleSize(count, read)));
        out.resize(static_cast<std::size_t>(read + next));
        auto* const place = out.data() + read;
        check(readTextValues<Kind>(
                  *file_, next, [place](std::int64_t i) -> auto& { return place[i]; }),
              header);
        read += next;
    }
    finishSlice(header, last);
}

} // namespace Kvt::Mrl::MrlIO
