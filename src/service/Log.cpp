#include <mrlio/service/Log.h>

#include <memory>
#include <mutex>
#include <utility>

namespace Kvt::Mrl::Core::Service {
namespace {

/// The receiver is shared, so that a message being sent keeps it alive while another thread sets a new one, and that
/// the lock isn't held while it runs: it may log or set a receiver itself.
struct SinkHolder
{
    std::mutex mutex;
    std::shared_ptr<const Log::Sink> sink;
};

/// Never freed, for objects that are destroyed at the end of the program may still log.
SinkHolder& holder()
{
    static SinkHolder* const instance = new SinkHolder;
    return *instance;
}

std::shared_ptr<const Log::Sink> currentSink()
{
    const std::lock_guard lock(holder().mutex);
    return holder().sink;
}

} // namespace

void Log::SendLogMessage(const char* text, MessageSeverity severity) noexcept
{
    try {
        if (const auto sink = currentSink())
            (*sink)(text != nullptr ? text : "", severity);
    } catch (...) {
        // A log that fails must not turn into a failure of the library.
    }
}

void Log::SetSink(Sink sink)
{
    auto shared = sink ? std::make_shared<const Sink>(std::move(sink)) : nullptr;
    const std::lock_guard lock(holder().mutex);
    holder().sink.swap(shared); // the former receiver goes after the lock, as its destruction is the caller's code
}

} // namespace Kvt::Mrl::Core::Service
