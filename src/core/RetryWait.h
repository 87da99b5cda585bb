#pragma once

/// \file
/// How a section passes the time until it tries again to open its file.

#include <chrono>

namespace Kvt::Mrl::MrlIO {

using RetryWait = void (*)(std::chrono::milliseconds);

/// Replaces the wait of the whole process, which is a sleep, so that tests needn't sit through it. Null restores the
/// sleep.
void setRetryWait(RetryWait wait) noexcept;

/// Waits between two attempts to open a file.
void waitForRetry(std::chrono::milliseconds duration);

} // namespace Kvt::Mrl::MrlIO
