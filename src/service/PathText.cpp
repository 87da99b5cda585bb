#include "service/PathText.h"

#include <algorithm>

namespace Kvt::Mrl::Core::Service {
std::string cleanedDirectory(const std::string& path)
{
    std::string clean;
    for (std::size_t begin = 0; begin < path.size();) {
        const std::size_t end = std::min(path.find('/', begin), path.size());
        const bool drop = end == begin || (begin > 0 && path.compare(begin, end - begin, ".") == 0);
        if (begin == 0 && end == 0)
            clean.push_back('/');
        else if (!drop)
            clean = joinedPath(clean, path.substr(begin, end - begin));
        begin = end + 1;
    }
    return clean;
}

std::string joinedPath(const std::string& base, const std::string& name)
{
    if (base.empty() || name.empty())
        return base + name;
    return base.back() == '/' ? base + name : base + '/' + name;
}
} // namespace Kvt::Mrl::Core::Service
