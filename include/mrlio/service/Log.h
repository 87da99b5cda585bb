#pragma once

#include <mrlio/Export.h>

#include <functional>
#include <string>

namespace Kvt::Mrl::Core::Service {

/// How serious a log message is. Higher is more serious.
enum MessageSeverity : int
{
    SeverityDebug = 0,
    SeverityInformation = 1,
    SeverityWarning = 2,
    SeverityError = 3,
};

/// The process-wide log of the library. It is quiet until a receiver is set. Any thread may send at any time.
class MRLIO_EXPORT Log
{
public:
    /// Gets each message, on the thread that sends it; so it may be called on several threads at once. It may send
    /// messages itself, which come to it at once; one that answers each with another never ends.
    using Sink = std::function<void(const std::string& text, MessageSeverity severity)>;

    Log() = delete;

    /// Hands a message to the receiver. Never throws: what the receiver throws is dropped. A null text counts as empty.
    static void SendLogMessage(const char* text, MessageSeverity severity) noexcept;

    /// Installs the receiver of all further messages. An empty function or null restores the default, which drops them.
    /// A message that another thread is just sending may still reach the former receiver after this call.
    static void SetSink(Sink sink);
};

} // namespace Kvt::Mrl::Core::Service
