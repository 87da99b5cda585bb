#pragma once

#include <mrlio/KeywordHeader.h>
#include <mrlio/MorvaneReader.h>
#include <mrlio/service/FileName.h>
#include <mrlio/service/Namespaces.h>

#include <array>
#include <cstddef>
#include <memory>
#include <string>
#include <vector>

namespace Kvt::Mrl::MrlIO {

/// Walks over the keywords of a summary data file that a simulator may still be writing. A reader of keyword files
/// takes every fault for damage; the walk tells damage from a keyword that is cut off by the end of the file, which is
/// where the writer has come to. Damage throws the reader's MrlIOException.
class DataFileWalk
{
public:
    /// Opens the file; isOpen() tells whether that worked.
    explicit DataFileWalk(const Service::FileName& file);

    bool isOpen() const { return reader_ != nullptr; }

    /// The full name of the file.
    const std::string& fileName() const { return reader_->getFileName(); }

    /// Goes to the next keyword. False at the end of the file, and where the file is cut off.
    bool next();

    /// The keyword that next() has found last.
    const KeywordHeader& header() const { return headers_[current_]; }

    /// True once the end of the file was found to be in the middle of a keyword.
    bool isCut() const { return isCut_; }

    enum class Outcome
    {
        Read,
        Failed, // why stands in failure
        Cut     // the walk is over
    };
    /// Reads the data of the present keyword.
    Outcome readIntegers(std::vector<int>& values, std::string& failure);

    /// Whether all data of the last keyword but one, or the last, are there, once the walk is over. The walk itself
    /// counts unformatted data that something follows, and takes formatted ones there on trust.
    bool isWhole(const KeywordHeader& keyword);

private:
    bool endsInsideHeader() const;
    bool isCutOff(const std::string& failure);
    template <class T>
    bool canRead(const KeywordHeader& keyword);

    Service::FileName file_;
    bool isFormatted_;
    std::unique_ptr<MorvaneReader> reader_;
    std::array<KeywordHeader, 2> headers_; // the present keyword and the one tried next: a failed try spoils its header
    std::size_t current_ = 0;
    bool isOver_ = false;
    bool isCut_ = false;
};

} // namespace Kvt::Mrl::MrlIO
