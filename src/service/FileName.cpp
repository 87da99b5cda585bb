#include <mrlio/service/FileName.h>

#include "service/PathText.h"

#include <sys/stat.h>

namespace Kvt::Mrl::Core::Service {
namespace {
constexpr std::int64_t nanosecondsPerMillisecond = 1000000;

// Undefined for times that no calendar here reaches; some file systems keep any 64-bit number of seconds.
Time timeOf(const struct timespec& stamp)
{
    std::int64_t milliseconds = 0;
    if (__builtin_mul_overflow(std::int64_t{stamp.tv_sec}, Time::SECOND, &milliseconds) ||
        __builtin_add_overflow(milliseconds, stamp.tv_nsec / nanosecondsPerMillisecond, &milliseconds))
        return {};
    return Time::FromEpoch(milliseconds);
}

bool statusOf(const FileName& file, struct stat& status)
{
    return ::stat(file.GetFullName().c_str(), &status) == 0;
}
} // namespace

FileName::FileName(const std::string& path)
{
    Set(path, true);
}

FileName::FileName(const char* path) : FileName(std::string(path)) {}

void FileName::Set(const std::string& name, bool withDirectory)
{
    if (!withDirectory) {
        SetFileName(name);
        return;
    }
    const std::size_t slash = name.rfind('/');
    SetFileName(slash == std::string::npos ? name : name.substr(slash + 1));
    SetDirectory(slash == std::string::npos ? std::string() : name.substr(0, slash + 1));
}

void FileName::SetDirectory(const std::string& directory)
{
    directory_ = cleanedDirectory(directory);
}

void FileName::SetRootName(const std::string& rootName)
{
    rootName_ = rootName;
}

void FileName::SetExtension(const std::string& extension)
{
    extension_ = extension;
    hasDot_ = !extension.empty();
}

void FileName::SetFileName(const std::string& fileName)
{
    const std::size_t dot = fileName.rfind('.');
    hasDot_ = dot != std::string::npos;
    // The extension first: fileName may be this object's root name.
    std::string extension = hasDot_ ? fileName.substr(dot + 1) : std::string();
    rootName_ = fileName.substr(0, dot);
    extension_ = std::move(extension);
}

void FileName::SetFileName(const std::string& rootName, const std::string& extension)
{
    SetRootName(rootName);
    SetExtension(extension);
}

std::string FileName::GetFullName() const
{
    return joinedPath(directory_, GetFileName());
}

std::string FileName::GetFileName() const
{
    return hasDot_ ? rootName_ + '.' + extension_ : rootName_;
}

bool FileName::FileExists() const
{
    struct stat status;
    return statusOf(*this, status);
}

bool FileName::IsFile() const
{
    struct stat status;
    return statusOf(*this, status) && S_ISREG(status.st_mode);
}

std::int64_t FileName::FileLength() const
{
    struct stat status;
    return statusOf(*this, status) ? static_cast<std::int64_t>(status.st_size) : -1;
}

bool FileName::TimeLastModified(Time& time) const
{
    struct stat status;
    const bool found = statusOf(*this, status);
    time = found ? timeOf(status.st_mtim) : Time();
    return found;
}

bool FileName::IsCaseSensitive()
{
#if defined(_WIN32) || defined(__APPLE__)
    return false;
#else
    return true;
#endif
}
} // namespace Kvt::Mrl::Core::Service
