#pragma once

/// \file
/// What the two writers of keyword files have in common.

#include "core/KeywordEncoder.h"
#include "service/FileStream.h"

#include <mrlio/service/Namespaces.h>

#include <string>

namespace Kvt::Mrl::MrlIO {

/// A keyword file in the making: its name, its stream and its form.
class KeywordFileOutput
{
public:
    explicit KeywordFileOutput(bool formatted) : formatted_(formatted) {}

    bool open(const std::string& name, bool append);

    const std::string& name() const { return name_; }

    bool close();

    template <class Record>
    bool write(const Record& keyword)
    {
        return KeywordEncoder(stream_, formatted_).write(keyword);
    }

    /// Stores the length of the longest string as the keyword's width if it has none, and writes with both numbers. A
    /// record of another type than C0nn is written as it is.
    bool writeStrings(KeywordTmpl<6>& keyword);

private:
    bool formatted_;
    std::string name_;
    Service::FileStream stream_;
};

} // namespace Kvt::Mrl::MrlIO
