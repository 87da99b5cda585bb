#pragma once

/// \file
/// Writes keyword records onto a stream that somebody else owns.

#include <mrlio/Export.h>
#include <mrlio/KeywordTmpl.h>
#include <mrlio/service/FileName.h>
#include <mrlio/service/Namespaces.h>

#include <iosfwd>
#include <string>

namespace Kvt::Mrl::MrlIO {

/// Writes keyword records in one of the two forms onto an open stream: the writer for files that are made of several
/// sections. The forms are those of MorvaneBinaryWriter and MorvaneAsciiWriter, strict mode included, with a stricter
/// rule for names, and C0nn governed by the keyword's intData alone: it is the width of the unformatted elements, of
/// the formatted items (80 / (intData + 3) a line), and of the type text. Longer strings are cut unformatted and
/// written whole formatted. The header's type decides how strings are written, not the record's class: a KeywordCHAR
/// that was read from a C0nn array goes out as one again.
///
/// The stream must outlive the writer, which holds no buffer: each keyword is handed to the stream before write
/// returns.
class MRLIO_EXPORT KeywordWriter
{
public:
    /// stream     written to, not owned; a binary one on platforms that translate line ends, unless formatted
    /// file       the file that the stream stands for, copied and only reported
    KeywordWriter(std::ostream& stream, bool formatted, const Service::FileName& file);

    /// The file given to the constructor.
    const Service::FileName& getFileName() const { return file_; }

    /// throws std::invalid_argument if the name is empty or has more than 8 characters
    static void validateKeywordName(const std::string& name);

    /// Writes a record of any of the kinds below, or of a class derived from one: a class on KeywordINTE keeps its own
    /// getShift().
    /// throws std::invalid_argument, before anything is written, for a name that validateKeywordName refuses and for a
    ///        C0nn width of 0 or below, above 99, or above 77 in the formatted form;
    ///        std::runtime_error "A problem was encountered writing the keyword NAME to file." if the stream failed,
    ///        and the one of strict mode
    template <class Record>
    void write(const Record& keyword)
    {
        validateKeywordName(keyword.name());
        if (!writeKw(keyword))
            failWrite(keyword.name());
    }

private:
    bool writeKw(const KeywordTmpl<0>& keyword);
    bool writeKw(const KeywordTmpl<1>& keyword);
    bool writeKw(const KeywordTmpl<3>& keyword);
    bool writeKw(const KeywordTmpl<5>& keyword);
    bool writeKw(const KeywordTmpl<6>& keyword);
    bool writeKw(const KeywordCHAR& keyword);
    bool writeKw(const KeywordINTE& keyword);
    [[noreturn]] static void failWrite(const std::string& name);

    std::ostream& stream_;
    bool formatted_;
    Service::FileName file_;
};

} // namespace Kvt::Mrl::MrlIO
