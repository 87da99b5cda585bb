#pragma once

#include <mrlio/service/Exception.h>

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <filesystem>
#include <fstream>
#include <ios>
#include <stdexcept>
#include <string>
#include <string_view>
#include <typeinfo>
#include <unistd.h>

namespace MrlIOFuzz {

/// A broken promise of the library ends the run, so that the fuzzer keeps the input.
inline void require(bool promise, const char* text)
{
    if (promise)
        return;
    std::fprintf(stderr, "broken promise: %s\n", text);
    std::abort();
}

/// Runs an action that hostile content may make throw. False if it threw one of the library's own exceptions; every
/// other one, those of the standard library's containers and streams included, passes and ends the run.
template <class Action>
bool succeeds(Action action)
{
    try {
        action();
        return true;
    } catch (const Kvt::Mrl::Core::Service::Exception&) {
        return false;
    } catch (const std::exception& other) {
        if (typeid(other) == typeid(std::runtime_error) || typeid(other) == typeid(std::invalid_argument))
            return false;
        throw;
    }
}

/// A folder of the process's own, in memory where the system has a place for that. All inputs use the same one.
class Scratch
{
public:
    Scratch() { std::filesystem::create_directories(folder_); }

    Scratch(const Scratch&) = delete;
    Scratch& operator=(const Scratch&) = delete;

    ~Scratch()
    {
        std::error_code ignored;
        std::filesystem::remove_all(folder_, ignored);
    }

    std::string directory() const { return folder_.string(); }

    std::string path(const std::string& name) const { return (folder_ / name).string(); }

    std::string write(const std::string& name, std::string_view bytes) const
    {
        std::ofstream out(path(name), std::ios::binary | std::ios::trunc);
        out.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
        return path(name);
    }

private:
    static std::filesystem::path place()
    {
        const std::filesystem::path memory = "/dev/shm";
        const bool isUsable = ::access(memory.c_str(), W_OK | X_OK) == 0;
        return (isUsable ? memory : std::filesystem::temp_directory_path()) /
               ("mrlio_fuzz_" + std::to_string(::getpid()));
    }

    std::filesystem::path folder_ = place();
};

inline std::string_view textOf(const std::uint8_t* data, std::size_t size)
{
    return {reinterpret_cast<const char*>(data), size};
}

} // namespace MrlIOFuzz
