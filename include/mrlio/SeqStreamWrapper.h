#pragma once

/// \file
/// The interface of a section over a stream that exists already.

#include <mrlio/Export.h>
#include <mrlio/StreamSection.h>

#include <iosfwd>
#include <string>

namespace Kvt::Mrl::MrlIO {

/// A section that has no file of its own: what is written to it goes straight to the given stream. Closing and removing
/// do nothing; there is nothing to rewind, so rewind throws as for a section that was never opened.
class MRLIO_EXPORT SeqStreamWrapper : public StreamSection
{
public:
    /// stream   written to, not owned; must outlive the section
    SeqStreamWrapper(std::ostream* stream, const std::string& sectionName, bool formatted);
    ~SeqStreamWrapper() override;

    void close() override;

    /// The stream given to the constructor.
    std::ostream& stream() override;

    void remove() override;

private:
    std::ostream* stream_;
};

} // namespace Kvt::Mrl::MrlIO
