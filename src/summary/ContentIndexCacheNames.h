#pragma once

#include <string_view>

/// \file
/// What the XML file of the content index looks like, for its writer and its reader:
///
///     <summaryContentIndex xmlns="...">
///       <!--warning-->
///       <version>1</version>
///       <numVectors>...</numVectors>
///       <files>
///         <file>                        one per data file that holds report steps
///           <fileName>without directory</fileName>
///           <fileStamp> year month day hour minute second length </fileStamp>
///         </file>
///       </files>
///       <contentIndex>
///         <reportStep>
///           <fileName>...</fileName>
///           <miniStep> <number/> <offset/> </miniStep>
///         </reportStep>
///       </contentIndex>
///     </summaryContentIndex>

namespace Kvt::Mrl::MrlIO::CacheNames {

inline constexpr int currentVersion = 1;

inline constexpr std::string_view fileSuffix = "_summary_content_index__.xml";
inline constexpr std::string_view namespaceUri = "http://kvt.example/Mrl/MrlIO/SummaryContentIndex";
inline constexpr std::string_view document = "summaryContentIndex";
inline constexpr std::string_view version = "version";
inline constexpr std::string_view numVectors = "numVectors";
inline constexpr std::string_view files = "files";
inline constexpr std::string_view file = "file";
inline constexpr std::string_view fileName = "fileName";
inline constexpr std::string_view fileStamp = "fileStamp";
inline constexpr std::string_view contentIndex = "contentIndex";
inline constexpr std::string_view reportStep = "reportStep";
inline constexpr std::string_view miniStep = "miniStep";
inline constexpr std::string_view number = "number";
inline constexpr std::string_view offset = "offset";

inline constexpr std::string_view warning =
    "Do not modify this file.  This contains cache data used to speed up loading/reading of summary data.  Any "
    "modification may result in inconsistencies between the original data and the cache, and consequently erroneous "
    "loading or even a program crash.  This file may be deleted, in which case it may be re-generated the next time "
    "the "
    "summary data is loaded";

} // namespace Kvt::Mrl::MrlIO::CacheNames
