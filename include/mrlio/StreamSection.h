#pragma once

/// \file
/// A temporary file that holds one part of a result file until all parts can be joined.

#include <mrlio/Export.h>
#include <mrlio/service/FileName.h>
#include <mrlio/service/Namespaces.h>

#include <iosfwd>
#include <memory>
#include <string>

namespace Kvt::Mrl::MrlIO {

class StreamSectionImpl;

/// Part of a result file in a temporary file beside it. The file is opened at the first request for the stream, may be
/// closed and is opened again at the next request, going on where it stopped: its owner decides how many sections are
/// open at once. The owner also calls remove when the content is no longer needed; the destructor only closes.
///
/// From its first opening until remove or the destructor a section has its file to itself in this process, and while it
/// is open it holds an exclusive lock against other processes. To a second section of the same name the file thus can't
/// be opened. One thread at a time may use a section.
///
/// The order of the virtual operations is part of the interface.
class MRLIO_EXPORT StreamSection
{
public:
    /// target        the result file: section A of DIR/CASE.UNRST lies in DIR/CASE_A.tmp
    /// sectionName   an empty one gives DIR/CASE_FFM.tmp
    /// formatted     the content is text; makes a difference only on systems that translate line ends
    StreamSection(const Service::FileName& target, const std::string& sectionName, bool formatted);
    StreamSection(const StreamSection&) = delete;
    StreamSection& operator=(const StreamSection&) = delete;
    virtual ~StreamSection();

    /// Closes the stream, if open, and remembers its position, where the next opening goes on; a failed stream keeps
    /// the place of its next byte, so that what the file holds stays. Reading and writing share that position: after
    /// rewind it is the place where the reader stopped. A failed close leaves the stream failed.
    virtual void close();

    /// The stream to write to, with numbers in scientific form, opened if need be: emptied at first and after remove,
    /// else at the remembered position. A file that can't be opened or is locked is tried ten times more, waiting
    /// 0.5, 1.0 ... 5.0 seconds behind the failed attempts, 27.5 seconds in all; the caller's thread sleeps.
    /// throws std::runtime_error, with the section's name, the number of attempts and the file, if none succeeds or the
    ///        file doesn't reach to the remembered position any more
    virtual std::ostream& stream();

    /// Closes the stream and deletes the file; the next opening starts from nothing. A file that can't be deleted, or
    /// that somebody else has locked, stays with its remembered position, and nothing is reported.
    virtual void remove();

    /// Goes back to the start of an open section and gives the buffer to read its content from, valid until the section
    /// is closed. Null if nothing was written.
    /// throws std::runtime_error if the section is closed, or what was written doesn't reach the file
    std::streambuf* rewind();

    /// Limits the memory in front of the file, from the next opening on; below 1, or above 1 MiB, stands for 1 MiB.
    void setBufferSize(int bytes);

private:
    std::unique_ptr<StreamSectionImpl> impl_;
};

} // namespace Kvt::Mrl::MrlIO
