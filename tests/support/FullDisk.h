#pragma once

#include <csignal>
#include <sys/resource.h>

namespace MrlIOTest {

/// No file of this process grows beyond so many bytes, as if the disk were full.
class FullDisk
{
public:
    explicit FullDisk(rlim_t bytes) : handler_(std::signal(SIGXFSZ, SIG_IGN))
    {
        ::getrlimit(RLIMIT_FSIZE, &limit_);
        const rlimit full{bytes, limit_.rlim_max};
        ::setrlimit(RLIMIT_FSIZE, &full);
    }

    FullDisk(const FullDisk&) = delete;
    FullDisk& operator=(const FullDisk&) = delete;

    ~FullDisk()
    {
        ::setrlimit(RLIMIT_FSIZE, &limit_);
        std::signal(SIGXFSZ, handler_);
    }

private:
    rlimit limit_{};
    void (*handler_)(int);
};

} // namespace MrlIOTest
