#include "service/FileUtils.h"

#include "service/PositionalFile.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <system_error>
#include <unistd.h>

namespace Kvt::Mrl::Core::Service {
void FileUtils::Remove(const FileName& file)
{
    const std::string path = file.GetFullName();
    if (::unlink(path.c_str()) != 0)
        throw std::system_error(errno, std::generic_category(), "Unable to remove file " + path);
}

std::int64_t FileUtils::ComputeLineNumber(const FileName& file, const std::streampos& position)
{
    const PositionalFile text(file.GetFullName().c_str());
    if (!text.isOpen())
        return 1;
    std::array<char, 64 * 1024> piece;
    std::int64_t line = 1;
    std::int64_t done = 0;
    for (std::int64_t left = std::streamoff(position); left > 0; left = std::streamoff(position) - done) {
        const auto wanted = std::min<std::int64_t>(left, piece.size());
        const std::int64_t got = text.readAt(piece.data(), static_cast<std::size_t>(wanted), done);
        if (got <= 0)
            break;
        line += std::count(piece.begin(), piece.begin() + got, '\n');
        done += got;
    }
    return line;
}
} // namespace Kvt::Mrl::Core::Service
