#include "summary/UnfinishedLine.h"

#include "service/PositionalFile.h"

#include <mrlio/service/Namespaces.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <string_view>

namespace Kvt::Mrl::MrlIO {

std::int64_t startOfUnfinishedLine(const std::string& path)
{
    const Service::PositionalFile file(path.c_str());
    const std::int64_t length = file.isOpen() ? file.size() : 0;
    std::array<char, 4096> piece;
    for (std::int64_t end = length; end > 0;) {
        const std::int64_t start = std::max<std::int64_t>(0, end - static_cast<std::int64_t>(piece.size()));
        const auto count = static_cast<std::size_t>(end - start);
        if (file.readAt(piece.data(), count, start) != end - start)
            return -1;
        const std::size_t lineEnd = std::string_view(piece.data(), count).rfind('\n');
        if (lineEnd != std::string_view::npos) {
            const std::int64_t lineStart = start + static_cast<std::int64_t>(lineEnd) + 1;
            return lineStart == length ? -1 : lineStart;
        }
        end = start;
    }
    return length > 0 ? 0 : -1;
}

} // namespace Kvt::Mrl::MrlIO
