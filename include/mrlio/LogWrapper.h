#pragma once

#include <mrlio/Export.h>
#include <mrlio/ILog.h>

#include <string>

namespace Kvt::Mrl::MrlIO {

/// Forwards to another logger, if there is one, and keeps its failures away: whatever it throws is dropped. A text goes
/// out only if its level is enabled. The other logger has to live as long as it is set; copies share it.
class MRLIO_EXPORT LogWrapper : public virtual ILog
{
public:
    /// No logger.
    LogWrapper() = default;

    /// logger   not owned, may be null
    explicit LogWrapper(const ILog* logger) : logger_(logger) {}

    LogWrapper(const LogWrapper&) = default;
    LogWrapper(LogWrapper&&) noexcept = default;
    LogWrapper& operator=(const LogWrapper&) = default;
    LogWrapper& operator=(LogWrapper&&) noexcept = default;
    ~LogWrapper() override;

    /// Not to be called while another thread logs.
    void setLogger(const ILog* logger) { logger_ = logger; }

    /// False with no logger, and if the logger throws.
    bool isDebugEnabled() const override;
    bool isWarningEnabled() const override;
    bool isInfoEnabled() const override;
    bool isErrorEnabled() const override;
    bool isFatalEnabled() const override;

    void debug(const std::string& text) const override;
    void warning(const std::string& text) const override;
    void info(const std::string& text) const override;
    void error(const std::string& text) const override;
    void fatal(const std::string& text) const override;

private:
    const ILog* logger_ = nullptr;
};

} // namespace Kvt::Mrl::MrlIO
