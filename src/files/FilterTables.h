#pragma once

#include "files/Extensions.h"

#include <mrlio/FileIdentifiers.h>

#include <initializer_list>
#include <map>
#include <string>
#include <vector>

/// \file
/// The filter lists behind FileIdentifiers. Whoever holds such a table makes it with new and never frees it: objects
/// that are destroyed at the end of the program may still ask for names.

namespace Kvt::Mrl::MrlIO {

/// The filter lists of the kinds that have a single file for each form. Only the formatted half of a format counts.
class PlainFilters
{
public:
    /// The filters of several kinds stand one behind the other; a refusal is that of the first.
    PlainFilters(std::initializer_list<extensions::PlainKind> kinds);
    explicit PlainFilters(const extensions::NumberedKind& kind);

    /// throws  std::runtime_error for a format that excludes both forms
    const Service::PathFilterList& choose(FileIdentifiers::DataFormat format) const;

private:
    Service::PathFilterList formatted_;
    Service::PathFilterList unformatted_;
    Service::PathFilterList either_; // kind by kind, unformatted ahead of formatted
    const char* refusal_;
};

/// The filter lists of the kinds that are unified or split.
class SteppedFilters
{
public:
    explicit SteppedFilters(const extensions::SteppedKind& kind);

    /// throws  std::runtime_error for a format that doesn't make both choices
    const Service::PathFilterList& unexpanded(FileIdentifiers::DataFormat format) const;

    /// throws  std::runtime_error for a format that excludes everything
    const Service::PathFilterList& expanded(FileIdentifiers::DataFormat format) const;

private:
    std::map<FileIdentifiers::DataFormat, Service::PathFilterList> unexpanded_;
    std::map<FileIdentifiers::DataFormat, Service::PathFilterList> expanded_;
    const char* refusal_;
};

/// The formats that exclude nothing altogether; no other format has filters of the unified or split kinds.
const std::vector<FileIdentifiers::DataFormat>& usableFormats();

void append(Service::PathFilterList& filters, const Service::PathFilterList& more);

/// Gives the filters of one kind of files.
using FilterFunction = const Service::PathFilterList& (*)(FileIdentifiers::DataFormat);

/// True if the name belongs to one of the kinds in that format.
bool isAnyOf(const std::string& name, std::initializer_list<FilterFunction> kinds, FileIdentifiers::DataFormat format);

} // namespace Kvt::Mrl::MrlIO
