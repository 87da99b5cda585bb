#pragma once

#include <mrlio/Export.h>

namespace Kvt::Mrl::MrlIO {

/// The settings that every writer of results takes. The defaults suit a new case with split, unformatted files.
struct MRLIO_EXPORT MrlWriterDefaultParams
{
    /// The number of the simulator in the file headers; -2345 says that none is given.
    int simulatorValue = -2345;

    /// Data files that stand there from an earlier run may be replaced, and those of a split set are deleted. A writer
    /// does so once; what it has written itself is not replaced.
    bool overwriteData = false;

    /// An index or spec file from an earlier run may be replaced, once as well.
    bool overwriteSpec = false;

    /// Each letter of a generated extension changes its case, so CASE.smspec in place of CASE.SMSPEC.
    bool swapExtensionCase = false;

    /// Turns on the strict mode of the formatted writers when a writer is built. It holds for the whole process, and no
    /// writer turns it off. A number with an exponent of 10 or more then ends a formatted file in the middle, with a
    /// std::runtime_error "Can't use 'strict' - exponent overflow".
    bool strict = false;

    /// One data file for all report steps rather than one for each.
    bool unified = false;

    /// Summary only: keywords may have more than 8 characters, and names go out under NAMES even when they are short.
    /// Unformatted files hold the first 8 characters of a keyword. Formatted ones can't be read back with a keyword of
    /// 13 characters or more, whose closing quote is lost.
    bool longNames = false;

    /// Summary only: the files hold nothing that depends on the time of writing, so that two runs give the same bytes.
    bool noTimeStamps = false;
};

} // namespace Kvt::Mrl::MrlIO
