#pragma once

#include <mrlio/Export.h>
#include <mrlio/service/Exception.h>

#include <string>

/// \file
/// The exceptions for faults of file content. Callers' errors arrive as std::invalid_argument instead, and faults of
/// streams and of state as std::runtime_error.

namespace Kvt::Mrl::MrlIO {

/// A file doesn't hold what it should. The text begins with the class-qualified name of the function that found the
/// fault, followed by ": " and the message; text that names the place (file, line, offset) follows on lines of its own.
class MRLIO_EXPORT MrlIOException : public Core::Service::Exception
{
public:
    explicit MrlIOException(const std::string& text) : Exception(text) {}
};

/// Thrown in reading dumpflux files.
class MRLIO_EXPORT DumpfluxReaderException : public MrlIOException
{
public:
    explicit DumpfluxReaderException(const std::string& text) : MrlIOException(text) {}
};

/// Thrown in reading gradients of well test results.
class MRLIO_EXPORT GRFTReaderException : public MrlIOException
{
public:
    explicit GRFTReaderException(const std::string& text) : MrlIOException(text) {}
};

/// Thrown in reading history-match data.
class MRLIO_EXPORT HMDReaderException : public MrlIOException
{
public:
    explicit HMDReaderException(const std::string& text) : MrlIOException(text) {}
};

/// Thrown in reading well test results.
class MRLIO_EXPORT RFTReaderException : public MrlIOException
{
public:
    explicit RFTReaderException(const std::string& text) : MrlIOException(text) {}
};

/// Thrown in reading init and restart files.
class MRLIO_EXPORT RestartReaderException : public MrlIOException
{
public:
    explicit RestartReaderException(const std::string& text) : MrlIOException(text) {}
};

/// Thrown in reading summary files.
class MRLIO_EXPORT SummaryReaderException : public MrlIOException
{
public:
    explicit SummaryReaderException(const std::string& text) : MrlIOException(text) {}
};

} // namespace Kvt::Mrl::MrlIO
