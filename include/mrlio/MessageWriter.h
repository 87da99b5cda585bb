#pragma once

#include <mrlio/Export.h>
#include <mrlio/MessageType.h>
#include <mrlio/service/Namespaces.h>
#include <mrlio/service/YearMonthDay.h>

#include <memory>
#include <string>

namespace Kvt::Mrl::MrlIO {

class MessageWriterImpl;

/// Writes the message file of a run, CASE.MSG: a small mark-up file with one element for each message.
///
///     MessageWriter messages(directory, "CASE", YearMonthDay(2017, 3, 15), true, false);
///     messages.open();
///     messages.writeMessage(MessageType::Warning, "Rate < limit in well P1", 10.5, "P1", "WELL", "");
///     messages.close();
///     messages.open();                                         // goes on where it stopped
///     ...
///     messages.close();
///
/// gives
///
///     <morvane>
///     <warning date="25/3/2017" time="10.50000000000000" name="P1" type="WELL">
///      Rate &lt; limit in well P1
///     </warning>
///     </morvane>
///
/// The writer may be closed and opened again as often as a run likes; behind each close the file is whole. Whether it
/// is well-formed XML is up to the caller, too, since attributes and control characters are written as they come. Each
/// message goes to the system at once and with one write, so that other processes, which may read the file at any time,
/// see whole messages. One thread at a time.
class MRLIO_EXPORT MessageWriter
{
public:
    /// Checks the names; the file is made by open.
    ///
    /// directory            must exist; a relative one counts from the current directory
    /// caseName             root name of the file
    /// startDate            the date from which elapsed times count, up to the year 32767; YearMonthDay(), of the year
    ///                      0, for none
    /// overwrite            a file that is there already is emptied by the first open; without it that is refused
    /// throwOnStreamError   open and writeMessage report what they couldn't write; without it only close does
    /// throws               std::invalid_argument if the directory is none, or the file exists and may not be
    ///                      overwritten; Service::ServiceException for a date that Time doesn't reach
    MessageWriter(const std::string& directory, const std::string& caseName, const Service::YearMonthDay& startDate,
                  bool overwrite, bool throwOnStreamError);

    MessageWriter(const MessageWriter&) = delete;
    MessageWriter& operator=(const MessageWriter&) = delete;

    /// Releases the file. The closing root tag is close's affair: a writer that goes while it is open leaves a file
    /// without it. Never throws.
    ~MessageWriter();

    /// Opens the file: the first time with the root's opening tag, later on in front of its closing tag.
    ///
    /// throws   std::runtime_error if the writer is open already, or the file can't be opened. That includes a file that
    ///          has appeared since the construction and may not be overwritten, and at a later opening one that is gone
    ///          or too short to hold what the writer wrote. A closed writer stays closed.
    void open();

    /// Writes the root's closing tag as the end of the file, and closes it. Does nothing on a closed writer.
    ///
    /// throws   std::runtime_error if that, or any message since open, couldn't be written. The writer is closed all the
    ///          same. A message that was written in part is taken away again as far as the system permits.
    void close();

    /// Names the root's tags, which are called "morvane" until then. Without effect once the opening tag stands in the
    /// file.
    ///
    /// throws   std::runtime_error if the writer is open
    void resetRootTagName(const std::string& name);

    /// Replaces the start date for the messages to come.
    ///
    /// startDate   one of the year 0 means none
    /// throws      std::runtime_error if the writer isn't open; Service::ServiceException for a date that Time doesn't
    ///             reach
    void resetStartDate(const Service::YearMonthDay& startDate);

    /// Writes one message: its element's opening tag, its text, and the closing tag, each on a line.
    ///
    /// The element says the date, which is the start date and the whole days of the elapsed time, and the elapsed time.
    /// Both are left empty without a start date; so are the date where the calendar ends, and the time where it is 0.
    ///
    /// type          gives the name of the element
    /// text          bytes in the encoding of the caller's choice. " & ' < > are escaped, all others, line ends and
    ///               control characters too, are written as they are.
    /// elapsedTime   days since the start date, 0 or above
    /// name, typeName, guid   of the object that the message is about; an attribute each, left out when empty. They are
    ///               written unescaped: escaping is the caller's affair.
    /// throws        std::runtime_error if the writer isn't open or there is no such type; std::invalid_argument for a
    ///               negative time. With throwOnStreamError std::ios_base::failure if the message couldn't be written;
    ///               this and all further messages until close are lost then. Without it they are lost silently.
    void writeMessage(MessageType::Enum type, const std::string& text, double elapsedTime, const std::string& name,
                      const std::string& typeName, const std::string& guid);

private:
    std::unique_ptr<MessageWriterImpl> impl_;
};

} // namespace Kvt::Mrl::MrlIO
