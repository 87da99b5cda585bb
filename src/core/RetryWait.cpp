#include "core/RetryWait.h"

#include <atomic>
#include <thread>

namespace Kvt::Mrl::MrlIO {

namespace {

std::atomic<RetryWait> replacement{nullptr};

} // namespace

void setRetryWait(RetryWait wait) noexcept
{
    replacement.store(wait);
}

void waitForRetry(std::chrono::milliseconds duration)
{
    if (const RetryWait wait = replacement.load())
        wait(duration);
    else
        std::this_thread::sleep_for(duration);
}

} // namespace Kvt::Mrl::MrlIO
