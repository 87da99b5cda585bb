#pragma once

#include <mrlio/Export.h>
#include <mrlio/service/Namespaces.h>

#include <string>

namespace Kvt::Mrl::MrlIO {

/// Tells whether a case has a DSP side directory, and where it is. That is the directory CASE_DSP.INC beside the case,
/// or the directory to which the shortcut CASE_DSP.INC.lnk points.
///
/// The shortcut may be a symbolic link, or a file in the binary format of shell links. Of the latter the stored relative
/// path counts, from the folder of the shortcut, and if nothing is there the local path.
///
/// The first question looks at the file system, and its answer is kept: later changes on disk are not seen. A plain
/// value; copies carry the answer with them.
class MRLIO_EXPORT DSPFileUtil
{
public:
    /// caseRoot   path of the case without an extension: "/cases/CASE"
    explicit DSPFileUtil(const std::string& caseRoot);

    /// True if there is such a directory, and also if there is a shortcut that can't be resolved: a damaged or
    /// unreadable one, or one that holds no path. A symbolic link to nothing, and a shortcut to something else than a
    /// directory, count for nothing. Never throws for what it finds.
    bool isDSPCase();

    /// Path of the directory. Of a shortcut that can't be resolved it is the path of the shortcut itself, which ends in
    /// ".lnk"; empty if this is no DSP case.
    std::string getDSPFilename();

private:
    void checkIt();

    bool checked_ = false;
    std::string path_;
};

} // namespace Kvt::Mrl::MrlIO
