#pragma once

#include "core/Fail.h"
#include "initrestart/Extrema.h"

#include <mrlio/MorvaneReader.h>
#include <mrlio/MrlIOException.h>

#include <vector>

/// \file
/// Arrays on their way from a file into an index.

namespace Kvt::Mrl::MrlIO {

/// Reads an array that the index can't do without.
/// throws   RestartReaderException: failure, the keyword's name and, on a line of its own, what the reader said
template <class T>
void readNeededArray(MorvaneReader& reader, const KeywordHeader& header, std::vector<T>& out,
                     const char* failure = "Error reading ")
{
    try {
        if (reader.readDataVector(header, out))
            return;
    } catch (const MrlIOException& cause) {
        fail<RestartReaderException>(failure, header.name(), "\n", cause.what());
    }
    fail<RestartReaderException>(failure, header.name());
}

/// The same for an array that must not be empty.
template <class T>
void readFilledArray(MorvaneReader& reader, const KeywordHeader& header, std::vector<T>& out,
                     const char* failure = "Error reading ")
{
    readNeededArray(reader, header, out, failure);
    if (out.empty())
        fail<RestartReaderException>(failure, header.name());
}

/// Reads arrays for the sake of their smallest and largest value, into memory that is used again and again.
class ArrayExtrema
{
public:
    /// Both 0 for arrays without numbers, which are not read, and for those that can't be read.
    /// throws   MrlIOException for an array that is cut by the end of the file
    Extrema read(MorvaneReader& reader, const KeywordHeader& header);

private:
    template <class T>
    static Extrema readInto(MorvaneReader& reader, const KeywordHeader& header, std::vector<T>& values);

    std::vector<int> integers_;
    std::vector<float> floats_;
    std::vector<double> doubles_;
};

} // namespace Kvt::Mrl::MrlIO
