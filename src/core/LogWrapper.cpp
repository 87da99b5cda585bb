#include <mrlio/LogWrapper.h>

namespace Kvt::Mrl::MrlIO {

namespace {

using IsEnabled = bool (ILog::*)() const;
using Write = void (ILog::*)(const std::string&) const;

bool ask(const ILog* logger, IsEnabled isEnabled)
{
    if (logger == nullptr)
        return false;
    try {
        return (logger->*isEnabled)();
    } catch (...) {
        return false;
    }
}

/// Whether the level is enabled is asked of the wrapper, whose answer a derived class may have changed.
void forward(const ILog& wrapper, const ILog* logger, IsEnabled isEnabled, Write write, const std::string& text)
{
    if (logger == nullptr)
        return;
    try {
        if ((wrapper.*isEnabled)())
            (logger->*write)(text);
    } catch (...) {
        // A failure of logging never becomes one of the library.
    }
}

} // namespace

LogWrapper::~LogWrapper() = default;

bool LogWrapper::isDebugEnabled() const
{
    return ask(logger_, &ILog::isDebugEnabled);
}

bool LogWrapper::isWarningEnabled() const
{
    return ask(logger_, &ILog::isWarningEnabled);
}

bool LogWrapper::isInfoEnabled() const
{
    return ask(logger_, &ILog::isInfoEnabled);
}

bool LogWrapper::isErrorEnabled() const
{
    return ask(logger_, &ILog::isErrorEnabled);
}

bool LogWrapper::isFatalEnabled() const
{
    return ask(logger_, &ILog::isFatalEnabled);
}

void LogWrapper::debug(const std::string& text) const
{
    forward(*this, logger_, &ILog::isDebugEnabled, &ILog::debug, text);
}

void LogWrapper::warning(const std::string& text) const
{
    forward(*this, logger_, &ILog::isWarningEnabled, &ILog::warning, text);
}

void LogWrapper::info(const std::string& text) const
{
    forward(*this, logger_, &ILog::isInfoEnabled, &ILog::info, text);
}

void LogWrapper::error(const std::string& text) const
{
    forward(*this, logger_, &ILog::isErrorEnabled, &ILog::error, text);
}

void LogWrapper::fatal(const std::string& text) const
{
    forward(*this, logger_, &ILog::isFatalEnabled, &ILog::fatal, text);
}

} // namespace Kvt::Mrl::MrlIO
