#pragma once

/// \file
/// The interface of a writer of one keyword file, whatever its form.

#include <mrlio/Export.h>
#include <mrlio/KeywordTmpl.h>

#include <string>

namespace Kvt::Mrl::MrlIO {

/// Writes one keyword file, keyword after keyword, from its start or from the end of an existing file.
///
/// Life cycle: setFilename opens, any number of writeKeyword calls follow, endWrite closes; after that setFilename may
/// open another file. Nothing is written a second time, there is no rollback, and after a false result the file may
/// hold part of a keyword. Output waits in a buffer until it is full or the file is closed, so a full disk may show
/// only in endWrite. A writer serves one thread at a time; writers of different files are independent.
///
/// The order of the virtual operations is part of the interface.
class MRLIO_EXPORT MorvaneWriter
{
public:
    virtual ~MorvaneWriter();

    /// Opens the file: at its end with append, otherwise emptied. The name is kept even if the open fails.
    /// False if the file can't be opened, or if this writer still has one open.
    virtual bool setFilename(const std::string& name, bool append) = 0;

    /// The name last given to setFilename.
    virtual const std::string& getFileName() const = 0;

    /// Closes the file. False if anything could not be written since setFilename, or if no file was open.
    virtual bool endWrite() = 0;

    /// Writes a header with the number of the array's elements (the header's own size is not asked), then the array.
    /// True when the stream is free of errors after the last value; false leaves it failed.
    ///
    /// C0nn: the width may be stored into the keyword. A writer that doesn't override this form gives true and writes
    /// nothing.
    virtual bool writeKeyword(KeywordTmpl<6>& keyword);

    /// LOGI: the stored integers; see the writers for what each form makes of them.
    virtual bool writeKeyword(KeywordTmpl<3>& keyword) = 0;

    virtual bool writeKeyword(KeywordCHAR& keyword) = 0;
    virtual bool writeKeyword(KeywordTmpl<1>& keyword) = 0;
    virtual bool writeKeyword(KeywordTmpl<0>& keyword) = 0;

    /// INTE: each value goes out less the record's getShift().
    virtual bool writeKeyword(KeywordINTE& keyword) = 0;

protected:
    MorvaneWriter() = default;
    MorvaneWriter(const MorvaneWriter&) = default;
    MorvaneWriter& operator=(const MorvaneWriter&) = default;
};

} // namespace Kvt::Mrl::MrlIO
