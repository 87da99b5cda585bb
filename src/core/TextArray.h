#pragma once

/// \file
/// The values of one keyword in a formatted file, from the reader's place on.

#include "core/TextValueParser.h"
#include "service/TextFileReader.h"

#include <cstdint>
#include <string>

namespace Kvt::Mrl::MrlIO {

/// How the text of each kind of element is read and passed. Passing doesn't convert anything, and what goes wrong in it
/// shows in the file's state, in front of the next value.
struct IntegerText
{
    using Value = int;

    static bool read(Service::TextFileReader& file, int& value) { return file.extract(scanInteger, value); }

    static void skip(Service::TextFileReader& file, std::int64_t count) { file.skipTokens(count); }
};

struct RealText
{
    using Value = float;

    static bool read(Service::TextFileReader& file, float& value) { return file.extract(scanReal, value); }

    static void skip(Service::TextFileReader& file, std::int64_t count) { file.skipTokens(count); }
};

struct DoubleText
{
    using Value = double;

    static bool read(Service::TextFileReader& file, double& value) { return file.extract(scanDouble, value); }

    static void skip(Service::TextFileReader& file, std::int64_t count) { file.skipTokens(count); }
};

struct LogicalText
{
    using Value = int;

    static bool read(Service::TextFileReader& file, int& value) { return file.extract(scanLogical, value); }

    static void skip(Service::TextFileReader& file, std::int64_t count) { file.skipTokens(count); }
};

/// A text in single quotes, trimmed of blanks, or a bare token as it stands.
struct StringText
{
    using Value = std::string;
    /// throws MrlIOException if only white space is left, nothing follows an opening quote, or the text behind it has 9
    ///        or more characters and a line break, which means that a quote is missing
    static bool read(Service::TextFileReader& file, std::string& value);
    /// throws MrlIOException if only white space is left
    static void skip(Service::TextFileReader& file, std::int64_t count);
};

enum class TextArrayResult
{
    Complete,
    EndedEarly,
    Unreadable
};

/// Reads `count` values, the i-th into place(i).
template <class Kind, class Place>
TextArrayResult readTextValues(Service::TextFileReader& file, std::int64_t count, Place place)
{
    for (std::int64_t i = 0; i < count; ++i) {
        if (!file.good())
            return TextArrayResult::EndedEarly;
        if (!Kind::read(file, place(i)))
            return TextArrayResult::Unreadable;
    }
    return TextArrayResult::Complete;
}

} // namespace Kvt::Mrl::MrlIO
