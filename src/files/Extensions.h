#pragma once

#include <array>
#include <string>
#include <string_view>

/// \file
/// Which extensions each kind of file of a case has. Each row is one kind; an empty text fills a row up. The first
/// extension of a row is the one that new files get, the others are older short forms.

namespace Kvt::Mrl::MrlIO::extensions {

using Pair = std::array<std::string_view, 2>;

/// A kind with a single file for each form. `refusal` answers a request that excludes both forms.
struct PlainKind
{
    Pair formatted;
    Pair unformatted;
    const char* refusal;
};

inline constexpr PlainKind dumpflux{
    {".FFLUX"}, {".FLUX"}, "invalid DataFormat flags : FileIdentifiers::Dumpflux::fileExtensionFilters"};
inline constexpr PlainKind grft{
    {".FGRFT", ".FGF"}, {".GRFT", ".GFT"}, "invalid DataFormat flags : FileIdentifiers::GRFT::fileExtensionFilters"};
inline constexpr PlainKind egrid{{".FEGRID", ".FEG"},
                                 {".EGRID", ".EGR"},
                                 "invalid DataFormat flags : FileIdentifiers::Grid::fileEGridExtensionFilters"};
inline constexpr PlainKind grid{{".FGRID", ".FGR"},
                                {".GRID", ".GRD"},
                                "invalid DataFormat flags : FileIdentifiers::Grid::fileGridExtensionFilters"};
inline constexpr PlainKind hmd{
    {".FHMD", ".FHM"}, {".HMD"}, "invalid DataFormat flags - FileIdentifiers::HMD::fileExtensionFilters"};
inline constexpr PlainKind rft{
    {".FRFT", ".FRT"}, {".RFT"}, "invalid DataFormat flags : FileIdentifiers::RFT::fileExtensionFilters"};
inline constexpr PlainKind init{{".FINIT", ".FIN"},
                                {".INIT", ".INI"},
                                "invalid DataFormat flags : FileIdentifiers::Restart::initFileExtensionFilters"};
inline constexpr PlainKind defaultInit{
    {".FINIT"}, {".INIT"}, "invalid DataFormat flags : FileIdentifiers::Restart::defaultInitFileExtensionFilters"};
inline constexpr PlainKind initSpec{
    {".FINSPEC", ".FIS"},
    {".INSPEC", ".ISS"},
    "invalid DataFormat flags : FileIdentifiers::Restart::initSpecFileExtensionFilters"};
inline constexpr PlainKind restartSpec{{".FRSSPEC", ".FRS"},
                                       {".RSSPEC", ".RSS"},
                                       "invalid DataFormat flags : FileIdentifiers::Restart::specFileExtensionFilters"};
inline constexpr PlainKind summarySpec{{".FSMSPEC", ".FSM"},
                                       {".SMSPEC", ".SMS"},
                                       "invalid DataFormat flags : FileIdentifiers::Summary::specFileExtensionFilters"};
inline constexpr PlainKind streamlinesSpec{
    {".FSLNSPEC"}, {".SLNSPEC"}, "invalid DataFormat flags : FileIdentifiers::Streamlines::specFileExtensionFilters"};

/// The streamlines solution has a text and a number of four digits in place of an extension of its own.
struct NumberedKind
{
    std::string_view formattedText;
    std::string_view unformattedText;
    unsigned digits;
    const char* refusal;
};

inline constexpr NumberedKind streamlinesSolution{
    "FSLN", "SLN", 4, "invalid DataFormat flags : FileIdentifiers::Streamlines::solutionFileExtensionFilters"};

/// The container form of the summary.
inline constexpr std::string_view summaryHdf = ".H5";

/// A kind that is either one unified file or a file for each report step. The extension of a step is a letter and a
/// number of four digits (two in old files); each further letter stands for 10000 steps (100) more. `refusal` answers a
/// request that doesn't make both choices.
struct SteppedKind
{
    Pair formattedUnified;
    Pair unformattedUnified;
    const char* formattedLetters;
    const char* unformattedLetters;
    const char* refusal;
};

inline constexpr SteppedKind restart{
    {".FUNRST", ".FUR"},
    {".UNRST", ".URS"},
    "FGH",
    "XYZ",
    "invalid DataFormat flags : FileIdentifiers::Restart::restartFileExtensionFiltersUnexpanded"};
inline constexpr SteppedKind summary{
    {".FUNSMRY", ".FUS"},
    {".UNSMRY", ".USY"},
    "ABC",
    "STU",
    "invalid DataFormat flags : FileIdentifiers::Summary::summaryFileExtensionFiltersUnexpanded"};

/// Extensions for new files, without the dot.
std::string ofNewFile(const PlainKind& kind, bool formatted);
std::string ofNewUnifiedFile(const SteppedKind& kind, bool formatted);

} // namespace Kvt::Mrl::MrlIO::extensions
