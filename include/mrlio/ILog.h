#pragma once

#include <mrlio/Export.h>

#include <string>

namespace Kvt::Mrl::MrlIO {

/// A logger that a program may hand to the builders of readers, which log what went wrong at level error. It stays the
/// program's own. The order of the operations is part of the interface.
class MRLIO_EXPORT ILog
{
public:
    virtual bool isDebugEnabled() const = 0;
    virtual bool isWarningEnabled() const = 0;
    virtual bool isInfoEnabled() const = 0;
    virtual bool isErrorEnabled() const = 0;
    virtual bool isFatalEnabled() const = 0;

    virtual void debug(const std::string& text) const = 0;
    virtual void warning(const std::string& text) const = 0;
    virtual void info(const std::string& text) const = 0;
    virtual void error(const std::string& text) const = 0;
    virtual void fatal(const std::string& text) const = 0;

    virtual ~ILog() = default;
};

} // namespace Kvt::Mrl::MrlIO
