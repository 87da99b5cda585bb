#pragma once

#include <string>

namespace Kvt::Mrl::Core::Service::XML {

/// Collects what goes wrong while a document is parsed.
class ParserErrorHandler
{
public:
    bool getSawErrors() const { return sawErrors_; }

    /// The texts of the last error and of the last fatal error, with their place in the file; empty if there was none.
    const std::string& getLastError() const { return lastError_; }

    const std::string& getLastFatalError() const { return lastFatalError_; }

    void addError(const std::string& text)
    {
        sawErrors_ = true;
        lastError_ = text;
    }

    void addFatalError(const std::string& text)
    {
        sawErrors_ = true;
        lastFatalError_ = text;
    }

    /// Forgets everything.
    void reset() { *this = ParserErrorHandler(); }

private:
    bool sawErrors_ = false;
    std::string lastError_;
    std::string lastFatalError_;
};

} // namespace Kvt::Mrl::Core::Service::XML
