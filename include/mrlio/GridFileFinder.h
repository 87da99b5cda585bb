#pragma once

#include <mrlio/Export.h>
#include <mrlio/service/FileName.h>
#include <mrlio/service/Namespaces.h>

#include <string>

namespace Kvt::Mrl::MrlIO {

/// Picks one of the up to eight grid files that a case may have beside it, and knows their extensions. All operations
/// are static and safe on any thread.
///
/// FileFinders::Grid picks by another rule, the newest file.
class MRLIO_EXPORT GridFileFinder
{
public:
    enum GridType : int
    {
        AnyGrid = 0, ///< none, where it is a result
        EGRID = 1,
        GRID = 2
    };

    enum FormatType : int
    {
        AnyFormat = 0,
        Unformatted = 1,
        Formatted = 2
    };

    enum ExtensionType : int
    {
        Long = 0,
        Short = 1
    };

    enum CaseType : int
    {
        Lower = 0,
        Upper = 1
    };

    /// The result of a search.
    struct MRLIO_EXPORT FoundType
    {
        GridType type = AnyGrid; ///< of the selected file
        std::string fileName;    ///< of the selected file, without the directory; empty if there is none
        int egridCount = 0;      ///< all files that match, the selected one included
        int gridCount = 0;
    };

    GridFileFinder() = delete;

    /// Selects the first that is there in the order EGRID, EGR, FEGRID, FEG, GRID, GRD, FGRID, FGR, of two that differ
    /// in letter case the first in byte order, and counts all that match. Extensions match in either case.
    ///
    /// baseName       a regular expression for the root of the names, put between "^" and the extension as it is: a dot
    ///                in it stands for any character, a case named CASE(1) doesn't find its own files, and of A|B the
    ///                part A matches the beginning of any name. Kept as it is.
    /// type, format   AnyGrid and AnyFormat search for all
    /// returns        an empty result if nothing matches, the directory is missing, or the base name is no regular
    ///                expression or one of excessive cost. Nothing is thrown for these.
    /// cost           one listing of the directory, without its folders
    static FoundType findGridFile(const std::string& directory, const std::string& baseName, GridType type,
                                  FormatType format);

    /// A sentence for the user of what was found and selected.
    static std::string getMessage(const FoundType& found);

    /// Without the dot. Empty for AnyGrid, AnyFormat, and any value that isn't one of the enumeration's.
    static std::string getExtension(GridType type, FormatType format, ExtensionType extension, CaseType letters);

    /// By the extension, in any letter case; AnyGrid if it is no grid file's.
    static GridType getGridTypeFromFileName(const Service::FileName& file);
};

} // namespace Kvt::Mrl::MrlIO
