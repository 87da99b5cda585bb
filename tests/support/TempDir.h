#pragma once

#include <atomic>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <string>
#include <unistd.h>

namespace MrlIOTest {
/// A new, empty folder below the system's folder for temporary files. It goes with all its content at the end.
class TempDir
{
public:
    TempDir() : path_(uniquePath()) { std::filesystem::create_directories(path_); }

    TempDir(const TempDir&) = delete;
    TempDir& operator=(const TempDir&) = delete;

    ~TempDir()
    {
        std::error_code ignored;
        std::filesystem::remove_all(path_, ignored);
    }

    std::string path() const { return path_.string(); }

    /// The full name of a file in the folder; the file need not exist.
    std::string file(const std::string& name) const { return (path_ / name).string(); }

private:
    static std::filesystem::path uniquePath()
    {
        static std::atomic<int> count{0};
        const std::string name = "mrlio_test_" + std::to_string(::getpid()) + "_" + std::to_string(count++);
        return std::filesystem::temp_directory_path() / name;
    }

    std::filesystem::path path_;
};

/// Makes path a file of exactly these bytes.
inline void writeBytes(const std::string& path, const std::string& bytes)
{
    std::ofstream out(path, std::ios::binary | std::ios::trunc);
    out.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    out.close();
    if (!out)
        throw std::runtime_error("writeBytes: cannot write " + path);
}

/// All bytes of a file; throws when it can't be opened.
inline std::string readBytes(const std::string& path)
{
    std::ifstream in(path, std::ios::binary);
    if (!in)
        throw std::runtime_error("readBytes: cannot open " + path);
    return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}
} // namespace MrlIOTest
