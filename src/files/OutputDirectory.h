#pragma once

/// \file
/// What every writer of a case's files does with the directory and the names it is given before it writes.

#include <mrlio/service/Directory.h>
#include <mrlio/service/FileName.h>
#include <mrlio/service/Namespaces.h>

#include <string>
#include <string_view>

namespace Kvt::Mrl::MrlIO {

/// The directory of that path; a relative one is completed from the current directory.
/// throws   std::invalid_argument if the path is no directory, or none that exists
Service::Directory outputDirectory(const std::string& path);

/// directory, rootName and extension joined. The extension's letters change their case if swapCase says so.
Service::FileName outputFile(const Service::Directory& directory, const std::string& rootName,
                             const std::string& extension, bool swapCase);

/// The text with each ASCII letter in the other case.
std::string swapLetterCase(std::string text);

/// "File NAME already exists.": the text with which a writer refuses to replace a file.
std::string fileExistsText(const Service::FileName& file);

/// Extension of the file of a report step in a split set: one of the three letters and at least four digits. The steps
/// count from 0 with each letter, and from 10000 and 20000 the next letter is used.
std::string stepExtension(std::string_view letters, int step);

/// The regular expression that the names of a split set match.
/// rootName   taken literally
/// letters    as an expression: one letter, or a set like [XYZ]
std::string stepFilesPattern(const std::string& rootName, const std::string& letters);

/// Whether a file of that directory matches.
bool hasFilesOfType(const Service::Directory& directory, const std::string& pattern);

/// throws   std::invalid_argument, with the pattern in its text, if a file of that directory matches
void refuseFilesOfType(const Service::Directory& directory, const std::string& pattern);

/// Deletes the files that match. A file that another process holds on to for a moment costs an attempt; after a hundred
/// of them the boost::filesystem::filesystem_error is passed on.
void deleteFilesOfType(const Service::Directory& directory, const std::string& pattern);

} // namespace Kvt::Mrl::MrlIO
