#pragma once

#include <mrlio/Export.h>

#include <stdexcept>
#include <string>

namespace Kvt::Mrl::Core::Service {
/// Root of the exceptions of the library family. It carries a text and nothing else.
class MRLIO_EXPORT Exception : public std::runtime_error
{
public:
    explicit Exception(const std::string& text) : std::runtime_error(text) {}
};

/// A service was asked for something that can't be: a date that doesn't exist, a broken invariant.
class MRLIO_EXPORT ServiceException : public Exception
{
public:
    explicit ServiceException(const std::string& text) : Exception(text) {}
};

/// A path that should name a directory belongs to something else.
class MRLIO_EXPORT DirectoryException : public Exception
{
public:
    explicit DirectoryException(const std::string& text) : Exception(text) {}
};
} // namespace Kvt::Mrl::Core::Service
